#pragma once

#include "python/TextCaster.h"

#include <optional>
#include <utility>
#include <variant>

namespace Python
{

/// A length in m, or a text such as "50nm".
using CLength = std::variant<double, CommonUI::CStr>;
/// One or two of them.
using CLengths = std::variant<CLength, std::pair<CLength, CLength>>;

/// A length in m.
/// @param name of the argument, for the message
/// @throws std::invalid_argument for a text that is no length
double LengthOf(const char* name, const CLength& given);
/// Likewise, for one that has to be above 0.
double PositiveOf(const char* name, const CLength& given);
/// Likewise, for one or two of them.
std::pair<double, std::optional<double>> PositivesOf(const char* name, const CLengths& given);

} // namespace Python

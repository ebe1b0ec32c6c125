#pragma once

#include <optional>
#include <string_view>

namespace CommonUI::Formats
{

/// What a unit of length is in metres; none for another text.
/// @param name UTF-8, or Latin-1 where that is no UTF-8
std::optional<double> FindLengthUnit(std::string_view name);

} // namespace CommonUI::Formats

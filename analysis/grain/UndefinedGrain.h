#pragma once

#include "../../export/Export.h"
#include "Grains.h"

#include <string_view>

namespace CommonUI::Analysis
{

/// Why a quantity of a grain is not defined: a clause such as "there is no other grain".
/// @param key of a quantity whose value for the grain is NaN
/// @return a string literal
COMMONUIANALYSIS_API std::string_view ExplainGrain(std::string_view key, EGrainKind kind);

} // namespace CommonUI::Analysis

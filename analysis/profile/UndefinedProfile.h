#pragma once

#include "../../export/Export.h"
#include "ProfileParameters.h"

#include <span>
#include <string_view>

namespace CommonUI::Analysis
{

/// Why a parameter of a profile, one of ComputeProfile or of a template, is not defined: a clause such as
/// "the profile has no whole element". It is looked for when somebody asks, so that the values of many
/// profiles need no room for it.
/// @param key of a parameter whose value for the profile is NaN
/// @param heights in m, missing points NaN
/// @param dx spacing of the points in m
/// @return a string literal; empty where nothing more is known
COMMONUIANALYSIS_API std::string_view ExplainProfile(std::string_view key, std::span<const double> heights,
                                                     double dx, const SProfileMethod& method = {});

} // namespace CommonUI::Analysis

#pragma once

namespace CommonUI
{

/// Texts of the string table for what steps a number, in fields and in cells of a grid.
constexpr int c_increase = 10281;
constexpr int c_decrease = 10282;
constexpr int c_largerSteps = 10283;
constexpr int c_smallerSteps = 10284;

} // namespace CommonUI

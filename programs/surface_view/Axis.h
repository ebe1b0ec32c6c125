#pragma once

#include "common/Range.h"
#include "common/Str.h"

#include <vector>

namespace SurfaceView
{

/// A mark of an axis.
struct STick {
    double value = 0; ///< m
    CommonUI::CStr text{};
};

/// An axis of lengths with marks at round numbers.
struct SAxis {
    CommonUI::CStr unit{}; ///< of the marks' texts: "µm"
    std::vector<STick> ticks{};
};

/// Marks at multiples of 1, 2 or 5 times a power of ten in the unit that suits the range.
/// @param range m, not empty
/// @param intervals about how many intervals there shall be between the marks, from 1
SAxis MakeAxis(CommonUI::CRange<double> range, int intervals);

/// A factor with up to three significant digits and no more than it needs: "2.5", "12", "250".
CommonUI::CStr FactorText(double factor);

/// The text of a length in the unit that suits it: "64 µm".
CommonUI::CStr LengthText(double metres);

/// A positive number with two significant digits.
double RoundedFactor(double factor);

} // namespace SurfaceView

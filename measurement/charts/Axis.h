#pragma once

#include "../../common/Range.h"
#include "../../common/Str.h"
#include "../../export/Export.h"

#include <vector>

namespace CommonUI::Measurement
{

/// A mark of an axis.
struct STick {
    double value = 0; ///< in m, or in the axis' own unit where it has none of length
    CStr text{};      ///< without the unit
};

/// An axis with marks at round numbers.
struct SAxis {
    CStr unit{};                ///< of the marks' texts: "µm"
    std::vector<STick> ticks{}; ///< its marks
};

/// Marks at multiples of 1, 2 or 5 times a power of ten in the unit that suits the range; far from all units
/// that is a power of ten of metres, "10⁹⁰ m". A range without length has none.
/// @param range m, not empty
/// @param intervals about how many intervals there shall be between the marks, from 1
COMMONUIMEASUREMENT_API SAxis MakeAxis(CRange<double> range, int intervals);

/// Likewise of numbers that are no lengths, such as percentages; without a unit.
COMMONUIMEASUREMENT_API SAxis MakeNumberAxis(CRange<double> range, int intervals);

/// Marks of a logarithmic axis: at powers of ten, of which some are left out where there would be too many,
/// and at 2 and 5 times these where there would be too few. Without a unit.
/// @param range of numbers above 0
/// @param most how many marks there are at most, about
COMMONUIMEASUREMENT_API SAxis MakeLogarithmicAxis(CRange<double> range, int most);

/// The text of a length in the unit that suits it, with three digits: "64 µm".
COMMONUIMEASUREMENT_API CStr LengthLabel(double metres);

} // namespace CommonUI::Measurement

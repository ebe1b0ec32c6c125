#pragma once

#include "../../common/Str.h"
#include "../../common/Unit.h"
#include "SurfaceMarks.h"

#include <vector>

namespace CommonUI::Measurement
{

/// From one place of a surface to another. Lengths in m; NaN where a height that is needed is missing.
struct SDistance {
    double dx = 0;      ///< along x
    double dy = 0;      ///< along y
    double dz = 0;      ///< of the heights
    double inPlane = 0; ///< without the heights
    double inSpace = 0; ///< along the straight line through space
    double slope = 0;   ///< degrees above the plane, -90 to 90; NaN for two places that are one
};
/// Measures from one place to another; heights are those of GetHeightAt.
COMMONUIMEASUREMENT_API SDistance MeasureDistance(const Analysis::SSurface& surface,
                                                  const Analysis::SPlace& from, const Analysis::SPlace& to);

/// The angle at the second of three places, degrees from 0 to 180; NaN where another one is the same, or, in
/// space, a height is missing.
struct SAngle {
    double inPlane = 0; ///< without the heights, degrees
    double inSpace = 0; ///< with the heights, degrees
};
/// Measures the angle between the lines from `at` to the other two.
COMMONUIMEASUREMENT_API SAngle MeasureAngle(const Analysis::SSurface& surface, const Analysis::SPlace& from,
                                            const Analysis::SPlace& at, const Analysis::SPlace& to);

/// Units and decimals in which lengths and heights of a surface are written, the same for all of its places.
struct COMMONUIMEASUREMENT_API SLengthFormat {
    CUnit unit{};     ///< at its factor
    int decimals = 3; ///< behind the point

    /// @param range of the lengths, m: a ten-thousandth of it is told
    static SLengthFormat Of(double range);
    /// The number alone; a dash for NaN.
    CStr GetNumber(double metres) const;
    /// With the unit.
    CStr GetText(double metres) const;
};

/// The format of distances over a surface.
COMMONUIMEASUREMENT_API SLengthFormat GetWidthFormat(const Analysis::SSurface& surface);
/// The format of differences of its heights.
COMMONUIMEASUREMENT_API SLengthFormat GetHeightFormat(const Analysis::SSurface& surface);

/// What stands at a mark: its number, and what it measures in short, such as "2: 14.0 µm, Δz −3.1 nm".
/// @param width, height formats of the surface
COMMONUIMEASUREMENT_API CStr DescribeMark(const Analysis::SSurface& surface, const SMark& mark,
                                          const SLengthFormat& width, const SLengthFormat& height);

/// All that marks measure: a row of headers, then one for each mark. Cells that a mark has nothing for are
/// empty.
COMMONUIMEASUREMENT_API std::vector<std::vector<CStr>> MakeMarkTable(const Analysis::SSurface& surface,
                                                                     const std::vector<SMark>& marks,
                                                                     const SLengthFormat& width,
                                                                     const SLengthFormat& height);

} // namespace CommonUI::Measurement

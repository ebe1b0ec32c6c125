#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"
#include "../surface/Value.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace CommonUI::Analysis
{

/// How a surface lies in another one that shows the same.
struct SShift {
    double coefficient = c_undefined; ///< of correlation where they overlap, -1 to 1
    /// Where the second surface shows what the first one has in its middle, less that middle, m.
    double x = c_undefined;
    double y = c_undefined;        ///< NaN of profiles
    double rotation = c_undefined; ///< of the second one around that place, degrees from x to y; likewise
    std::string_view reason{};     ///< why there is none
};

/// Correlation coefficients of two surfaces for the shifts of one over the other by whole points.
///
/// Each is Pearson's coefficient of the heights where both overlap, so that neither offsets nor factors of
/// the heights count, nor bright spots beside the overlap. Shifts reach to half of the smaller surface in
/// each direction. Missing points count as points of the mean height of their surface.
///
/// Takes n log n: the sums of products by a Fourier transform, those of each surface from sums of
/// rectangles.
class COMMONUIANALYSIS_API CCrossCorrelation
{
public:
    /// @param first,second at least one point each; see FindRefusal
    CCrossCorrelation(const SSurface& first, const SSurface& second);

    std::size_t GetReachX() const { return m_reachX; } ///< the greatest shift to either side, in points
    std::size_t GetReachY() const { return m_reachY; } ///< in lines
    /// The coefficients for the shifts along x from -reach to reach, for those along y from -reach to
    /// reach, at the spacing of the surfaces; NaN where a surface is flat.
    SSurface MakeMap() const;
    double GetValue(std::ptrdiff_t x,
                    std::ptrdiff_t y) const; ///< the coefficient of a shift, in points and lines

private:
    std::size_t m_reachX;
    std::size_t m_reachY;
    double m_dx;
    double m_dy;
    std::vector<double> m_values{};
};

/// Why two surfaces cannot be compared; empty where they can.
COMMONUIANALYSIS_API std::string_view FindRefusal(const SSurface& first, const SSurface& second);

/// Finds the shift and the rotation of the second surface against the first one.
///
/// It starts from the shift by whole points with the greatest coefficient (of several, as of periodic
/// surfaces, the shortest one), at the vertex of the parabola through its neighbours in each direction, and
/// goes on to the least squares of the first surface less the second one, shifted and rotated, with
/// an offset and a factor of the heights (Gauss and Newton; cubic convolution between the points; both
/// surfaces smoothed by 1, 4, 6, 4, 1 against noise).
/// So a rotation is found that leaves the peak where it is: some degrees, the fewer the finer the
/// surfaces. Of large surfaces every second, third … point counts.
COMMONUIANALYSIS_API SShift FindShift(const SSurface& first, const SSurface& second,
                                      const CCrossCorrelation& correlation);
/// Likewise, or why there is none.
COMMONUIANALYSIS_API SShift FindShift(const SSurface& first, const SSurface& second);

} // namespace CommonUI::Analysis

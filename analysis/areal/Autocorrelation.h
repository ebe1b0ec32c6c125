#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"
#include "../surface/Value.h"

#include <cstddef>
#include <vector>

namespace CommonUI::Analysis
{

/// How far the autocorrelation reaches, m.
struct SDecay {
    double shortest = c_undefined; ///< in the direction of the fastest decay
    double longest = c_undefined;  ///< in the direction of the slowest decay
};

/// The autocorrelation of a surface with itself shifted (ISO 25178-2): the mean of z(x, y) z(x - tx, y - ty)
/// over the points at which the shifted surface overlaps, divided by the mean of z². z is the height above
/// the mean; missing points count as points of that height.
///
/// The shifts reach to half the surface in each direction, as little of it overlaps beyond.
class COMMONUIANALYSIS_API CAutocorrelation
{
public:
    /// @param mean of the valid heights
    CAutocorrelation(const SSurface& surface, double mean);

    /// How far one has to go from the middle until the autocorrelation has fallen to a level. Straight ways
    /// to the border of the known shifts are tried in steps of a point, in directions about a quarter of a
    /// degree apart, and the shortest and the longest way refined between them.
    /// @param level 0 to 1
    /// @return shortest is NaN if the level is reached nowhere, longest if there is a direction in which it
    ///     is not; both are NaN for a flat surface and without at least two points in each direction
    SDecay ComputeDecay(double level) const;

    /// Between whole shifts by cubic convolution (Keys, 1981).
    /// @param x in points, -points/2 … points/2
    /// @param y in lines, 0 … lines/2: that of the opposite shift is the same
    double GetValue(double x, double y) const;

private:
    double GetValueAt(std::ptrdiff_t column, std::ptrdiff_t row) const;
    double FindDecay(double x, double y, double level) const;

    std::size_t m_reachX; // greatest shifts, in points and lines
    std::size_t m_reachY;
    double m_dx;
    double m_dy;
    std::vector<double> m_values; // for each shift in y those in x, -reach … reach
};

} // namespace CommonUI::Analysis

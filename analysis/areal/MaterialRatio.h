#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"
#include "../surface/Value.h"

#include <cstddef>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// Quantities of the straight line through the core of a material ratio curve. NaN for fewer than four
/// points.
struct SCore {
    double Sk = c_undefined;   ///< core height, m
    double Spk = c_undefined;  ///< reduced peak height, m
    double Svk = c_undefined;  ///< reduced dale height, m
    double Smr1 = c_undefined; ///< material ratio at which peaks end and the core begins, percent
    double Smr2 = c_undefined; ///< material ratio at which the core ends and dales begin, percent
};

/// The areal material ratio curve of a set of heights (ISO 25178-2: inverse material ratio): how high a
/// plane lies that cuts a given share of the points.
///
/// The curve runs through the n heights in falling order at material ratios 0, 1/(n-1) … 1 and is straight
/// between them, from the highest point at 0 % to the lowest at 100 %.
class COMMONUIANALYSIS_API CMaterialRatio
{
public:
    /// NaN heights are left out.
    /// @throws ENoPoints when there is no other
    explicit CMaterialRatio(std::span<const double> heights);

    /// The valid heights, falling.
    std::span<const double> GetHeights() const { return m_heights; }

    /// Height at a material ratio in percent, 0 to 100 (ISO 25178-2: Smc).
    double GetHeight(double percent) const;
    /// Material ratio in percent at a height: the share of points at or above it (ISO 25178-2: Smr).
    double GetRatio(double height) const;
    /// Material above the height of a material ratio, volume per area, m (ISO 25178-2: Vm).
    double GetMaterialVolume(double percent) const;
    /// Void below the height of a material ratio, volume per area, m (ISO 25178-2: Vv).
    double GetVoidVolume(double percent) const;
    /// Core, peaks and dales (ISO 13565-2, ISO 25178-2: Sk family). The equivalent straight line is the
    /// least-squares line through the 40 % of the curve whose secant falls least, the first of them if
    /// there are several. Spk and Svk are the heights of triangles with the areas of the curve above and
    /// below the core.
    SCore ComputeCore() const;

private:
    double GetHeightAt(double position) const;
    double Integrate(double from, double to, double level) const;
    std::size_t FindFlattestWindow() const;

    std::vector<double> m_heights;
    double m_span; // distance from the first to the last position: material ratio 100 %
};

} // namespace CommonUI::Analysis

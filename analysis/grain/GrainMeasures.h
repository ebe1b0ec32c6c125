#pragma once

#include "../../export/Export.h"
#include "../surface/Value.h"
#include "Grains.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace CommonUI::Analysis
{

/// The grains of a surface, measured.
struct SGrains {
    std::size_t count = 0; ///< of the grains
    /// Area of the grains in percent of that of all valid points; NaN without one.
    double coverage = c_undefined;
    std::vector<SValues> columns{}; ///< for each quantity a value of each grain, the grain of ID 1 first
    std::vector<double> areas{};    ///< of the grains, to weight with: AreaExHoles
    std::vector<double> volumes{};  ///< likewise: MatVoidVolume
};

/// Keys of all quantities by which grains are measured, in the order in which they are listed and measured.
COMMONUIANALYSIS_API std::vector<std::string_view> GetGrainKeys();

/// Finds the grains of a surface and measures them. docs/grain-measures.md defines each quantity. In brief:
///
/// - A grain is the rectangular cells, dx by dy, of its points. All sizes and shapes are those of this
///   figure; the formulas are of ISO 9276-6:2008 where it has them. Positions count from the corner of the
///   map, so that the first point lies at (dx/2, dy/2).
/// - Heights, depths and volumes are those of the grain's own points above or below the threshold. A particle
///   has no depths and a pore no heights, which are then NaN.
/// - A grain that touches the border of the map or missing points is measured as far as it is seen.
/// - Angles are in degrees from the x to the y axis.
///
/// Takes time proportional to the number of points whatever their pattern, on several threads.
/// @param threshold a height in m
/// @throws ETooManyPoints as FindGrains does
COMMONUIANALYSIS_API SGrains MeasureGrains(const SSurface& surface, double threshold, EGrainKind kind);

/// Likewise, for some columns.
/// @param keys which columns are wanted, in any order; others than those of GetGrainKeys are ignored
COMMONUIANALYSIS_API SGrains MeasureGrains(const SSurface& surface, double threshold, EGrainKind kind,
                                           std::span<const std::string_view> keys);

/// Likewise, of grains that have been found.
/// @param map of FindGrains for the same surface, threshold and kind; grains that SelectGrains has left out
///     are neither measured nor neighbours
COMMONUIANALYSIS_API SGrains MeasureGrains(const SSurface& surface, double threshold, EGrainKind kind,
                                           std::span<const std::string_view> keys, const SGrainMap& map);

/// Statistics of a column: those of ComputeStatistics, then Mode, MeanWeightArea, SDWeightArea,
/// MeanWeightVolume and SDWeightVolume.
/// @param column of grains.columns
/// @param share for Fractile, 0 to 1
COMMONUIANALYSIS_API std::vector<SValue> ComputeGrainStatistics(const SGrains& grains, const SValues& column,
                                                                double share = 0.25);

} // namespace CommonUI::Analysis

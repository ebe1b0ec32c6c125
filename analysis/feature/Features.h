#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"
#include "../surface/Value.h"
#include "ChangeTree.h"
#include "Watershed.h"

#include <cstddef>
#include <vector>

namespace CommonUI::Analysis
{

/// A hill or a dale.
struct SFeature {
    SExtremum extremum{};        ///< its peak or pit
    double height = c_undefined; ///< of the peak or pit, as measured
    double saddle = c_undefined; ///< as of SPruned
    std::size_t points = 0;      ///< how many points belong to it
    /// Whether no point of it is at the border of the surface or beside a missing point.
    bool isClosed = false;
    double area = 0; ///< that of the points' cells, dx by dy: m²
    /// Between the surface and the height of the saddle: the material of the hill above it, or what the dale
    /// holds before it overflows (ISO 25178-2: VolS). NaN without a saddle. m³
    double volume = c_undefined;
};

/// The hills or the dales of a surface, measured.
struct SFeatures {
    SFeatureMap map{};                ///< which of them each point belongs to
    std::vector<SFeature> features{}; ///< that of number 1 first
};

/// Finds and measures the hills or dales that pruning leaves; see FindWatersheds and PruneFeatures.
/// @param leastExtent that a peak has above the saddle, or a pit below it, to count; m
/// @throws ETooManyPoints as FindWatersheds does
COMMONUIANALYSIS_API SFeatures FindFeatures(const SSurface& surface, EFeature kind, double leastExtent);

/// The curvature of a surface at a point, -(∂²z/∂x² + ∂²z/∂y²)/2 by the differences from the next points to
/// both sides: 1/m, above 0 at a peak, NaN where one of them is missing.
COMMONUIANALYSIS_API double ComputeCurvature(const SSurface& surface, std::size_t point);

} // namespace CommonUI::Analysis

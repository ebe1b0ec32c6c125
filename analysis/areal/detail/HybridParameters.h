#pragma once

#include "analysis/surface/Surface.h"
#include "analysis/surface/Value.h"

namespace CommonUI::Analysis
{

/// Slope and area of a surface; see ComputeAreal.
struct SHybridParameters {
    double slope = c_undefined;         ///< Sdq
    double excess = c_undefined;        ///< Sdr, percent
    double projectedArea = c_undefined; ///< S2A, m²
    double developedArea = c_undefined; ///< S3A, m²
};

SHybridParameters ComputeHybridParameters(const SSurface& surface);

} // namespace CommonUI::Analysis

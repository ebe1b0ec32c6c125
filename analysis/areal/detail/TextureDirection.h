#pragma once

#include "analysis/areal/detail/PowerSpectrum.h"
#include "analysis/surface/Value.h"

namespace CommonUI::Analysis
{

/// Texture direction Std (ISO 25178-2) and how pronounced it is.
struct STextureDirection {
    /// The direction in which the angular power spectrum is greatest, in degrees from x towards y (towards
    /// greater numbers of lines), greater than -90 and up to 90. It is the direction of the dominant waves;
    /// ridges and grooves run at right angles to it, so it is 0 for grooves along y. NaN for a flat surface.
    double degrees = c_undefined;
    /// Stdi, the mean of the angular spectrum divided by its maximum: 0 to 1.
    double index = c_undefined;
};

/// The angular spectrum is the integral of the power times the frequency over the frequency. A direction is
/// first looked for in steps of half a degree, then refined: a plane wave of five periods or more is found to
/// 0.05°.
/// @param spectrum not empty
STextureDirection ComputeTextureDirection(const CPowerSpectrum& spectrum);

} // namespace CommonUI::Analysis

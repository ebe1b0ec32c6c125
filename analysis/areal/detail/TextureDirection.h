#pragma once

#include "analysis/surface/Surface.h"

namespace CommonUI::Analysis
{

/// Texture direction Std (ISO 25178-2): the direction in which the angular power spectrum is greatest, in
/// degrees from x towards y (towards greater numbers of lines), greater than -90 and up to 90. It is the
/// direction of the dominant waves; ridges and grooves run at right angles to it, so it is 0 for grooves
/// along y.
///
/// The angular spectrum is the integral of the power times the frequency over the frequency, for wavelengths
/// from two spacings, the greater one, up to the shorter side of the surface: the same range in all
/// directions. The power is the mean of that of squares of the shorter side, which overlap by half (of a long
/// strip 256, evenly spread), so that no direction is resolved better than another. In each the heights are
/// counted from their weighted mean and fade towards the edges (Hann window); missing points count as points
/// at the mean. A direction is first looked for in steps of half a degree, then refined: a plane wave of five
/// periods or more is found to 0.05°.
/// @return NaN where there is no such wavelength, as on a single line, and for a flat surface
double ComputeTextureDirection(const SSurface& surface);

} // namespace CommonUI::Analysis

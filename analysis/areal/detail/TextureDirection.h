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
/// directions. The heights are counted from the mean and fade towards the edges (Hann window); missing points
/// count as points at the mean. The integral is taken in steps of half a degree, the maximum interpolated by
/// a parabola.
/// @param mean of the valid heights
/// @return NaN where there is no such wavelength, as on a single line, and for a flat surface
double ComputeTextureDirection(const SSurface& surface, double mean);

} // namespace CommonUI::Analysis

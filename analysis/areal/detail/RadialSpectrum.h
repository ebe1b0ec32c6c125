#pragma once

#include "analysis/areal/detail/PowerSpectrum.h"
#include "analysis/surface/Value.h"

namespace CommonUI::Analysis
{

/// What the radial spectrum tells.
struct SRadialParameters {
    double wavelength = c_undefined; ///< Srw, m
    double index = c_undefined;      ///< Srwi
};

/// The radial spectrum is the power of all waves of a frequency, whatever their direction: the integral along
/// half a circle, under normal weights as wide as waves of the surface's size can be told apart. Srw is the
/// wavelength at its maximum; that of a plane wave of five periods or more is found to 1 %. Srwi is its mean
/// over the frequencies divided by its maximum.
/// @param spectrum not empty
/// @return NaN for a flat surface
SRadialParameters ComputeRadialParameters(const CPowerSpectrum& spectrum);

/// Fractal dimension Sfd, 2 to 3: the power at the frequency f of a surface that is alike on all scales goes
/// with 1/f^b, b = 8 - 2 Sfd. b comes from a straight line through the logarithms of mean power and frequency
/// in bands of a quarter of an octave, in which n frequencies count n/(n + 100), for wavelengths from four
/// spacings, the greater one, up to a quarter of the shorter side. A steeper spectrum, as that of a smooth
/// surface, gives 2, a flatter one, as that of white noise, 3.
/// @param spectrum not empty
/// @return NaN for a flat surface and where the wavelengths span less than an octave
double ComputeFractalDimension(const CPowerSpectrum& spectrum);

} // namespace CommonUI::Analysis

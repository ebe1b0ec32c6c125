#pragma once

namespace CommonUI
{

/// The kinds of analysis that keep preferences.
enum class EAnalysis {
    Calibration1D = 0,
    CalibrationXY = 1,
    CalibrationZ = 2,
    CrossCorrelation = 3,
    Linearity = 4,
    PlaneCorrection = 5,
    Roughness = 6,        ///< of a surface image; its parameters are those of the roughness catalogue
    RoughnessProfile = 7, ///< of profiles; its parameters are those of the roughness catalogue
    Tip = 8,
    Measure = 9 ///< grains and measured shapes; its parameters are those of the grain catalogue
};

/// Whether it is one of the two that have the parameters of the roughness catalogue.
constexpr bool IsRoughness(EAnalysis analysis)
{
    return analysis == EAnalysis::Roughness || analysis == EAnalysis::RoughnessProfile;
}

} // namespace CommonUI

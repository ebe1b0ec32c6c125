#pragma once

#include "../analysis/surface/Surface.h"
#include "../export/Export.h"
#include "../model/Analysis.h"
#include "../model/AnalysisPreferencesData.h"
#include "../model/Enumerations.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace CommonUI::Measurement
{

/// How the mean pitch of a grating is found (ISO 11952).
enum class EPitchMethod {
    Fourier, ///< the strongest wave
    Centroid ///< the centres of gravity of the lines of the grating
};

/// What the analyses besides those of roughness and grains need beyond the preferences. Each takes its own
/// and leaves the others.
struct SFurtherOptions {
    /// What a calibration compares with, m: the pitch, that along x, or the height of the steps, above 0.
    std::optional<double> reference{};
    std::optional<double> referenceY{};               ///< the pitch along y; that along x without it
    EPitchMethod pitchMethod = EPitchMethod::Fourier; ///< of calibrations by a grating
    /// Of the cross correlation, the surface whose shift is measured; of the linearity, the reference. It is
    /// preprocessed as the first one.
    std::shared_ptr<const Analysis::SSurface> second{};
    ETipEstimationArea tipArea = ETipEstimationArea::Depth50; ///< what of the tip is evaluated
    double tipWidth = 0;                                      ///< m, above 0; for ETipEstimationArea::Width
    double tipNoise = 0;                                      ///< heights that are no bumps of a surface, m
};

/// One of the analyses besides those of roughness and grains: the three calibrations, cross correlation,
/// linearity, plane correction and tip.
struct SFurtherAnalysis {
    EAnalysis analysis;        ///< one for which IsFurther holds
    SFurtherOptions options{}; ///< what it needs beyond the preferences
    /// MakeChoices takes it from the preferences.
    ERoughnessPreprocessingOptions preprocessing = ERoughnessPreprocessingOptions::None;
};

/// Whether an analysis is one of those.
constexpr bool IsFurther(EAnalysis analysis)
{
    return !IsRoughness(analysis) && analysis != EAnalysis::Measure;
}

/// A picture that an analysis has for a result.
struct SOutputImage {
    CStr key{};                   ///< of the output, such as "CorrelationImage"
    CStr name{};                  ///< as users read it
    Analysis::SSurface surface{}; ///< the picture's values, by place in m
    bool isLength = true;         ///< whether its values are in metres; they have no unit otherwise
};

/// A curve that an analysis has for a result.
struct SOutputCurve {
    CStr key{};                                      ///< of the output, such as "PitchChart"
    CStr name{};                                     ///< as users read it
    CStr labelX{};                                   ///< what is drawn to the right
    CStr labelY{};                                   ///< what is drawn upwards
    bool isLengthX = false;                          ///< whether x is in metres; it is a number otherwise
    bool isLengthY = true;                           ///< likewise
    std::vector<std::pair<double, double>> points{}; ///< x and y
};

/// What an analysis has for results besides the table: those of its outputs that are on.
struct SOutputs {
    std::vector<SOutputImage> images{}; ///< those of the outputs that are pictures
    std::vector<SOutputCurve> curves{}; ///< those of the outputs that are curves
};

} // namespace CommonUI::Measurement

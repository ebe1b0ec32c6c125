#pragma once

#include "analysis/grain/Grains.h"
#include "common/Str.h"
#include "measurement/FurtherAnalysis.h"

#include <memory>

namespace Workbench
{

/// How grains are found.
struct SGrainChoice {
    /// A reference of settings/SetReference.h to the set that finds the threshold.
    CommonUI::CStr set = u"BUILT-IN:PnPQuickLaunchSimpleThresholdParticles";
    CommonUI::Analysis::EGrainKind kind = CommonUI::Analysis::EGrainKind::Particle;

    bool operator==(const SGrainChoice& other) const = default;
};

/// Which analysis is shown, and what it needs beyond its preferences. Lengths are in m, nominal ones 0 for
/// none.
struct SAnalysisChoice {
    CommonUI::EAnalysis analysis = CommonUI::EAnalysis::Roughness;
    double pitch = 0;  ///< nominal pitch of a grating, of an areal one that along x
    double pitchY = 0; ///< nominal pitch of an areal grating along y
    double step = 0;   ///< nominal height of steps
    CommonUI::Measurement::EPitchMethod pitchMethod = CommonUI::Measurement::EPitchMethod::Fourier;
    CommonUI::ETipEstimationArea tipArea = CommonUI::ETipEstimationArea::Depth50;
    double tipWidth = 1e-6; ///< above 0; for ETipEstimationArea::Width
    double tipNoise = 0;    ///< heights that are no bumps of a surface
    SGrainChoice grains{};

    bool operator==(const SAnalysisChoice& other) const = default;
};

/// The numbers of a choice, as far as its analysis takes them.
/// @param second the other surface of analyses that take two; null for none
CommonUI::Measurement::SFurtherOptions
MakeFurtherOptions(const SAnalysisChoice& choice, std::shared_ptr<const CommonUI::Analysis::SSurface> second);

/// Whether an analysis has results of a surface, be it with another one.
bool CanAnalyze(CommonUI::EAnalysis analysis, const CommonUI::Analysis::SSurface& surface);

/// Why an analysis has no results of a surface, in a sentence; empty where it may have some.
CommonUI::CStr ExplainRefusal(CommonUI::EAnalysis analysis, const CommonUI::Analysis::SSurface& surface,
                              const CommonUI::Analysis::SSurface* second);

} // namespace Workbench

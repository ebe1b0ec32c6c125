#include "workbench/analyze/AnalysisChoice.h"

#include "workbench/analyze/AnalyzeTexts.h"

#include <optional>
#include <utility>

namespace Workbench
{

using namespace CommonUI;

namespace
{

std::optional<double> ReferenceOf(double length)
{
    return length > 0 ? std::optional(length) : std::nullopt;
}

} // namespace

Measurement::SFurtherOptions MakeFurtherOptions(const SAnalysisChoice& choice,
                                                std::shared_ptr<const Analysis::SSurface> second)
{
    Measurement::SFurtherOptions options;
    switch (choice.analysis) {
    case EAnalysis::CalibrationXY:
        options.referenceY = ReferenceOf(choice.pitchY);
        [[fallthrough]];
    case EAnalysis::Calibration1D:
        options.pitchMethod = choice.pitchMethod;
        options.reference = ReferenceOf(choice.pitch);
        break;
    case EAnalysis::CalibrationZ:
        options.reference = ReferenceOf(choice.step);
        break;
    case EAnalysis::CrossCorrelation:
    case EAnalysis::Linearity:
        options.second = std::move(second);
        break;
    case EAnalysis::Tip:
        options.tipArea = choice.tipArea;
        options.tipWidth = choice.tipWidth;
        options.tipNoise = choice.tipNoise;
        break;
    default:
        break;
    }
    return options;
}

bool CanAnalyze(EAnalysis analysis, const Analysis::SSurface& surface)
{
    return !surface.IsProfile() || (analysis != EAnalysis::CalibrationXY && analysis != EAnalysis::Measure);
}

CStr ExplainRefusal(EAnalysis analysis, const Analysis::SSurface& surface, const Analysis::SSurface* second)
{
    if (!CanAnalyze(analysis, surface))
        return Text(EAnalyzeText::NeedsSurface);
    if (analysis == EAnalysis::CrossCorrelation && !second)
        return Text(EAnalyzeText::NeedsSecond);
    return {};
}

} // namespace Workbench

#include "workbench/series/SeriesSource.h"

#include "common/PathText.h"
#include "measurement/ComputeAnalysis.h"
#include "model/AnalysisPreferencesManager.h"
#include "workbench/analyze/AnalysisChoice.h"
#include "workbench/analyze/AnalyzeTexts.h"

#include <chrono>
#include <utility>

namespace Workbench
{

using namespace CommonUI;
using Analysis::SSurface;
using Measurement::SSeriesRequest;

namespace
{

// Only waits: a thread of its own reads, which may be stuck in a drive.
SSurface Read(const CStr& path, const Formats::CSurfaceReading::FRead& read,
              const SSeriesRequest::FIsWanted& isWanted)
{
    constexpr std::chrono::milliseconds c_waitTime{20};
    Formats::CSurfaceReading reading(ToPath(path), read);
    while (!reading.WaitFor(c_waitTime))
        if (!isWanted())
            return {};
    return reading.Take();
}

// One table has parameters of surfaces or of profiles.
CStr Refuse(EAnalysis analysis, const SSurface& surface, const SSurface* second)
{
    if (analysis == EAnalysis::Roughness && surface.IsProfile())
        return Text(EAnalyzeText::NeedsSurface);
    return ExplainRefusal(analysis, surface, second);
}

} // namespace

Measurement::SChoices SSeriesSource::Choose() const
{
    return Measurement::ChooseAnalysis(analysis, GetAnalysisPreferencesManager(), options, method);
}

SSeriesRequest MakeSeriesRequest(const SSeriesSource& source, std::vector<Measurement::SSeriesItem> items)
{
    return {.items = std::move(items),
            .analysis = source.analysis,
            .choices = source.Choose(),
            .read = [read = source.read](const CStr& path,
                                         const auto& isWanted) { return Read(path, read, isWanted); },
            .refuse = [analysis = source.analysis, second = source.options.second](
                          const SSurface& surface) { return Refuse(analysis, surface, second.get()); }};
}

} // namespace Workbench

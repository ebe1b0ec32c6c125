#pragma once

#include "formats/SurfaceReading.h"
#include "measurement/series/Series.h"

#include <functional>
#include <vector>

namespace Workbench
{

/// Which steps are done to the surfaces of a series.
enum class ESeriesSteps { None, OfCurrent, OfEach };

/// What a series is made of; it is kept from one start to the next.
struct SSeriesChoice {
    bool isOfFolder = false;
    CommonUI::CStr folder{};
    ESeriesSteps steps = ESeriesSteps::OfEach;
};

/// What a workbench has for a series at the moment.
struct SSeriesSource {
    std::vector<CommonUI::Measurement::SSeriesItem> open{}; ///< as they were read, with the steps of each
    CommonUI::Measurement::CProcessSteps steps{};           ///< of the surface in front
    CommonUI::EAnalysis analysis = CommonUI::EAnalysis::Roughness;
    CommonUI::Measurement::SFurtherOptions options{};
    CommonUI::Measurement::SMethod method{};
    CommonUI::Formats::CSurfaceReading::FRead read{};

    /// The choices of the analysis by its preferences.
    /// @throws ERequest
    CommonUI::Measurement::SChoices Choose() const;
};

using FSeriesSource = std::function<SSeriesSource()>;

/// The request for some surfaces; those without an input are read.
/// @throws ERequest
CommonUI::Measurement::SSeriesRequest
MakeSeriesRequest(const SSeriesSource& source, std::vector<CommonUI::Measurement::SSeriesItem> items);

} // namespace Workbench

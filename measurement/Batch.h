#pragma once

#include "../export/Export.h"
#include "../settings/factory/SettingsFactory.h"
#include "../settings/readers/ReportTemplateSettings.h"
#include "ApplySteps.h"
#include "Request.h"
#include "Results.h"
#include "Steps.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <variant>
#include <vector>

namespace CommonUI::Measurement
{

/// How many horizontal cross sections are shown.
struct SBatchProfiles {
    int count; ///< of cross sections
};

/// Missing points get heights.
struct SBatchVoids {
};

/// A set that changes nothing here.
struct SBatchUseless {
    CStr reason; ///< a clause such as "a colour scale changes no result"
};

/// A step of a batch sequence with what it needs.
struct SBatchWork {
    CStr name; ///< where its set stands in a menu, or what it does
    /// What is done.
    std::variant<SBatchUseless, SStep, SGrainSearch, SRoughnessSet, SReportTemplate, SBatchProfiles,
                 SBatchVoids>
        work;
    CStr file{}; ///< the path of the set; empty where it is built in or there is none
};

/// A batch sequence with all that its steps need.
struct COMMONUIMEASUREMENT_API SBatch {
    std::vector<SBatchWork> steps{}; ///< in the order of the sequence

    /// Whether a step changes the surface.
    bool ChangesSurface() const;
};

/// Reads the batch sequence that a user specification names, which becomes the most recent one, and all sets
/// of its steps, which do not.
/// @throws EUnknownSet
/// @throws ERequest for a user specification that names none, and for a set that cannot be read or used
COMMONUIMEASUREMENT_API SBatch LoadBatch(CSettingsFactory& factory, const CStr& userSpec);

/// A report that a step writes.
struct SBatchReport {
    std::size_t step;                      ///< the number of the step, from 1
    CStr name;                             ///< of the template, or what the step does
    const SReportTemplateSettings* layout; ///< null for a table of cross sections
    const SInput& input;                   ///< what was analysed: the surface, or the cross sections
    const SChoices& choices;               ///< the analysis in force, for the surface
    SResults results;                      ///< of it; they refer to the input
    /// The roughness, where the results are those of grains and the template has blocks of both.
    std::optional<SResults> roughness{};
};

/// Receives the reports of a run in their order. What the report refers to lives until the function returns.
using FBatchReport = std::function<void(SBatchReport)>;

/// What a run has come to.
struct SBatchOutcome {
    SChoices choices;            ///< the analysis that is in force at the end
    std::vector<CStr> remarks{}; ///< a sentence for each step that had no effect, or another one than it says
};

/// Does the steps one after the other. A step that does not fit the surface is left out, with a remark.
/// @param input the surface, which steps change; each step becomes one of its steps, with the remark if there
///     is one
/// @param request the analysis in force at the beginning
COMMONUIMEASUREMENT_API SBatchOutcome RunBatch(const SBatch& batch, SInput& input, const SRequest& request,
                                               const CAnalysisPreferencesManager& manager,
                                               const FBatchReport& report);

} // namespace CommonUI::Measurement

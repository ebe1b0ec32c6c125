#pragma once

#include "../export/Export.h"
#include "../model/RoughnessAnalysisPreferencesData.h"
#include "../settings/factory/SettingsFactory.h"
#include "../settings/readers/FilterSettings.h"
#include "../settings/readers/PlaneCorrectionSettings.h"
#include "../settings/readers/ReportTemplateSettings.h"

#include <optional>
#include <variant>
#include <vector>

namespace CommonUI::Measurement
{

/// A settings set that is applied to a surface before it is analysed.
struct SStep {
    CStr userSpec; ///< by which the set was named
    CStr name;     ///< where it stands in a menu: "Filter / Smoothing / Mean 3x3"
    std::variant<SPlaneCorrectionSettings, SFilterSettings> settings; ///< what is done
};

/// A settings set that says which parameters and statistics of a roughness analysis are meant.
struct SRoughnessSet {
    CStr userSpec;                          ///< by which the set was named
    CStr name;                              ///< where it stands in a menu
    CRoughnessAnalysisPreferencesData data; ///< the preferences that the set makes
};

/// A settings set that says what a report is made of.
struct SReportTemplate {
    CStr name;                      ///< of the set alone
    SReportTemplateSettings layout; ///< its blocks and their order
};

/// What settings sets make of a run.
struct SSets {
    std::vector<SStep> steps{};              ///< in the order given
    std::vector<SRoughnessSet> roughness{};  ///< of two for one analysis the later one counts
    std::optional<SReportTemplate> report{}; ///< likewise
};

/// Reads the sets that user specifications name, each of which becomes the most recent one of its type. A
/// path is relative to the current folder.
/// @throws EUnknownSet
/// @throws ERequest for a user specification that names a set of another type, and for a set that cannot be
///     read or used
COMMONUIMEASUREMENT_API SSets LoadSets(CSettingsFactory& factory, const std::vector<CStr>& userSpecs);

} // namespace CommonUI::Measurement

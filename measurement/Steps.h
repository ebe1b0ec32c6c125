#pragma once

#include "../export/Export.h"
#include "../settings/factory/SettingsFactory.h"
#include "../settings/readers/FilterSettings.h"
#include "../settings/readers/PlaneCorrectionSettings.h"

#include <variant>
#include <vector>

namespace CommonUI::Measurement
{

/// A settings set that is applied to a surface before it is analysed.
struct SStep {
    CStr userSpec; ///< by which the set was named
    CStr name;     ///< where it stands in a menu: "Filter / Smoothing / Mean 3x3"
    std::variant<SPlaneCorrectionSettings, SFilterSettings> settings;
};

/// Reads the sets that user specifications name, each of which becomes the most recent one of its type. A
/// path is relative to the current folder.
/// @throws EUnknownSet
/// @throws ERequest for a user specification that names no plane correction and no filter, and for a set that
///     cannot be read or used
COMMONUIMEASUREMENT_API std::vector<SStep> LoadSteps(CSettingsFactory& factory,
                                                     const std::vector<CStr>& userSpecs);

} // namespace CommonUI::Measurement

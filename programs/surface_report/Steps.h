#pragma once

#include "settings/factory/SettingsFactory.h"
#include "settings/readers/FilterSettings.h"
#include "settings/readers/PlaneCorrectionSettings.h"

#include <string>
#include <variant>
#include <vector>

namespace SurfaceReport
{

/// A settings set that is applied to a surface before it is analysed.
struct SStep {
    std::string userSpec; ///< by which the set was named
    CommonUI::CStr name;  ///< where it stands in a menu: "Filter / Smoothing / Mean 3x3"
    std::variant<CommonUI::SPlaneCorrectionSettings, CommonUI::SFilterSettings> settings;
};

/// Reads the sets that user specifications name, each of which becomes the most recent one of its type. A
/// path is relative to the current folder.
/// @throws EUsage for a user specification that names no plane correction and no filter
/// @throws std::runtime_error for a set that cannot be read or used
std::vector<SStep> LoadSteps(CommonUI::CSettingsFactory& factory, const std::vector<std::string>& userSpecs);

/// The sets of a type, or of all types for an empty text: headings and folders, and below them identifiers
/// with texts. UTF-8.
/// @param type the type's key
/// @throws EUsage when there is no such type
std::string ListSettings(CommonUI::CSettingsFactory& factory, const std::string& type);

} // namespace SurfaceReport

#pragma once

#include "settings/factory/SettingsFactory.h"

#include <string>

namespace SurfaceReport
{

/// The sets of a type, or of all types for an empty text: headings and folders, and below them identifiers
/// with texts. UTF-8.
/// @param type the type's key
/// @throws CommandLine::EUsage when there is no such type
std::string ListSettings(CommonUI::CSettingsFactory& factory, const std::string& type);

} // namespace SurfaceReport

#pragma once

#include "../../common/ini/Inifile.h"
#include "../../export/Export.h"
#include "../../model/RoughnessAnalysisPreferencesData.h"

namespace CommonUI
{

/// @file
/// Sets of the types ImageRoughness and ProfileRoughness hold the preferences of one roughness analysis, in
/// the section that they have in a preferences file; see docs/roughness-settings.md.

/// Reads the section of the object's analysis from a set; the current section stays selected. What the set
/// does not say, or says in a way that cannot be read (with a line in the diagnostics), gets its default.
/// What preferences do not store stays: what is allowed, and which standards are enabled.
/// @return false, with the reason in the diagnostics and the object unchanged, for a set without this
///     section, as a set for the other analysis
COMMONUI_API bool LoadRoughnessSettings(CInifile& ini, CRoughnessAnalysisPreferencesData& data);

/// Writes the section of the object's analysis, and that of its dynamic parameters; the current section stays
/// selected. The object's modified flag stays as it is: its own file has not been written.
COMMONUI_API void SaveRoughnessSettings(const CRoughnessAnalysisPreferencesData& data, CInifile& ini);

} // namespace CommonUI

#pragma once

#include "common/Inifile.h"
#include "settings/BuiltInSetting.h"

namespace CommonUI
{

/// @file
/// The built-in sets, by type: each function writes a set of its type into an empty document, in the same way
/// as a user's set is written.

void WriteBuiltInPlaneCorrection(EBuiltInSetting setting, CInifile& ini);
void WriteBuiltInReportTemplate(EBuiltInSetting setting, CInifile& ini);
void WriteBuiltInBatchSequence(EBuiltInSetting setting, CInifile& ini);
void WriteBuiltInImageRoughness(EBuiltInSetting setting, CInifile& ini);
void WriteBuiltInProfileRoughness(EBuiltInSetting setting, CInifile& ini);
void WriteBuiltInFilter(EBuiltInSetting setting, CInifile& ini);
void WriteBuiltInColorScale(EBuiltInSetting setting, CInifile& ini);
void WriteBuiltInGrainThresholds(EBuiltInSetting setting, CInifile& ini);
void WriteBuiltInAnimation(EBuiltInSetting setting, CInifile& ini);

} // namespace CommonUI

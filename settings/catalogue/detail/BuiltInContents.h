#pragma once

#include "common/ini/Inifile.h"
#include "settings/catalogue/BuiltInSetting.h"

#include <cstddef>

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

/// Whether a table has the numbers from `first` to `last` in order, so that a row is found by its number.
template<class TRow, std::size_t Count>
constexpr bool AreNumbered(const TRow (&rows)[Count], int first, int last)
{
    int number = first;
    for (const TRow& row : rows)
        if (row.number != number++)
            return false;
    return number == last + 1;
}

} // namespace CommonUI

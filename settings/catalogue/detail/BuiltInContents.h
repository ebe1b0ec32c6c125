#pragma once

#include "common/ini/Inifile.h"
#include "settings/catalogue/detail/BuiltInGroups.h"

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

/// The row of a set in a table of contents; null when there is none.
template<class TRow, std::size_t Count>
constexpr const TRow* FindRow(const TRow (&rows)[Count], EBuiltInSetting setting)
{
    for (const TRow& row : rows)
        if (row.setting == setting)
            return &row;
    return nullptr;
}

/// Whether there are contents for every set of a type and for no other.
/// @param hasContents tells it of a set, or finds what it has
template<class FHasContents>
constexpr bool HoldsEverySet(ESettingType type, FHasContents hasContents)
{
    for (const SBuiltInSettingGroup& group : c_builtInGroups)
        for (int number = group.first; number <= group.last; ++number) {
            const bool has = hasContents(EBuiltInSetting{number});
            if (has != (group.type == type))
                return false;
        }
    return true;
}

constexpr bool HoldsEverySet(ESettingType type, EBuiltInSetting only)
{
    return HoldsEverySet(type, [=](EBuiltInSetting setting) { return setting == only; });
}

template<class TRow, std::size_t Count>
constexpr bool HoldsEverySet(ESettingType type, const TRow (&rows)[Count])
{
    return HoldsEverySet(type, [&](EBuiltInSetting setting) { return FindRow(rows, setting); });
}

} // namespace CommonUI

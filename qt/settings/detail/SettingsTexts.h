#pragma once

#include "common/StringTable.h"
#include "qt/QtText.h"
#include "settings/SettingTypes.h"

namespace CommonUI
{

/// Texts of the string table for the windows of settings.
constexpr int c_chooserTitle = 11241;
constexpr int c_search = 11242;
constexpr int c_name = 11243;
constexpr int c_place = 11244;
constexpr int c_choose = 11245;
constexpr int c_manageTitle = 11246;
constexpr int c_rename = 11247;
constexpr int c_trash = 11248;
constexpr int c_openFolder = 11249;
constexpr int c_close = 11250;
constexpr int c_newName = 11251;
constexpr int c_renameTitle = 11252;
constexpr int c_compareTitle = 11253;
constexpr int c_leftSet = 11254;
constexpr int c_rightSet = 11255;
constexpr int c_onlyDifferences = 11256;
constexpr int c_differenceCount = 11257;
constexpr int c_key = 11258;
constexpr int c_noSection = 11259;
constexpr int c_importTitle = 11260;
constexpr int c_importButton = 11261;
constexpr int c_useAtOnce = 11262;
constexpr int c_yours = 11263;
constexpr int c_imported = 11264;
constexpr int c_same = 11265; ///< the first of four, in the order of SSettingsDifference::EKind
constexpr int c_sets = 11269;
constexpr int c_keys = 11270;
constexpr int c_left = 11271;
constexpr int c_right = 11272;
constexpr int c_cancelButton = 10262;

inline QString GetText(int id)
{
    return ToQString(GetString(id));
}

/// The title of a window for the sets of a type.
inline QString MakeTitle(int id, ESettingType type)
{
    return ToQString(
        CStr::Format(GetString(id), GetSettingTypeEnum().GetFriendlyString(static_cast<int>(type))));
}

/// A name as it is where Qt would take `&` for a mnemonic.
inline QString WithoutMnemonic(const CStr& text)
{
    return ToQString(text).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace CommonUI

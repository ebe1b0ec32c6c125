#pragma once

namespace CommonUI
{

/// Texts of the string table for the menu of settings and what it leads to.
constexpr int c_allSetsText = 11201;
constexpr int c_loadText = 11202;
constexpr int c_saveAsText = 11203;
constexpr int c_importText = 11204;
constexpr int c_compareText = 11205;
constexpr int c_manageText = 11206;
constexpr int c_lookingText = 11207;
constexpr int c_noCustomSetsText = 11208;
constexpr int c_allCountedSetsText = 11209;
constexpr int c_noSettingsText = 11210;
constexpr int c_noFileNameText = 11211;
constexpr int c_nameTakenText = 11212;
constexpr int c_cannotRenameText = 11213;
constexpr int c_trashQuestion = 11214;
constexpr int c_noTrashText = 11215;
constexpr int c_cannotOpenText = 11216;
constexpr int c_noSetText = 11217;
constexpr int c_cannotReadText = 11218;
constexpr int c_changedMeanwhileText = 11219;
constexpr int c_cannotWriteText = 11220;
constexpr int c_newSetText = 11221;
constexpr int c_replacedSetText = 11222;
constexpr int c_sameSetText = 11223;
constexpr int c_countText = 11224;
constexpr int c_countSoFarText = 11225;

} // namespace CommonUI

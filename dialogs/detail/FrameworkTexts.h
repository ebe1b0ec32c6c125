#pragma once

namespace CommonUI
{

/// Texts of the string table for messages, lists to choose from and editors of texts.
constexpr int c_dontShowAgain = 11301;
constexpr int c_dontAskAgain = 11302;
constexpr int c_listFilter = 11311;
constexpr int c_listCount = 11312;       // with how many are shown, and of how many
constexpr int c_listChosenCount = 11313; // the same and how many are chosen
constexpr int c_listAll = 11314;
constexpr int c_listNone = 11315;
constexpr int c_editorFind = 11321;
constexpr int c_editorNext = 11322;
constexpr int c_editorPrevious = 11323;
constexpr int c_editorMatchCase = 11324;
constexpr int c_editorNotFound = 11325;
constexpr int c_editorWrapped = 11326;
constexpr int c_editorThrowAway = 11327;
constexpr int c_editorClose = 11328;
constexpr int c_editorText = 11329;

} // namespace CommonUI

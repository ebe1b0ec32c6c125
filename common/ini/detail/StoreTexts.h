#pragma once

namespace CommonUI
{

// Texts of the string table about stores.
constexpr int c_noText = 11801;
constexpr int c_wrongEncoding = 11802;
constexpr int c_cutOff = 11803;
constexpr int c_isRepaired = 11804;
constexpr int c_hasNoBackup = 11805;
constexpr int c_cannotBeRepaired = 11806;
constexpr int c_cannotBeRead = 11807;
constexpr int c_isNewer = 11808;
constexpr int c_earlierIsKept = 11809;
constexpr int c_changedByNewer = 11810;

} // namespace CommonUI

#pragma once

namespace CommonUI
{

// Texts of the string table in the start pane.
constexpr int c_startPaneTitle = 11501;
constexpr int c_feedKinds = 11502; // of the first kind; the others follow
constexpr int c_nothingConfigured = 11508;
constexpr int c_notFetched = 11509;
constexpr int c_loading = 11510;
constexpr int c_updated = 11511;
constexpr int c_asOf = 11512;
constexpr int c_offlineSince = 11513;
constexpr int c_notAvailable = 11514;
constexpr int c_noEntries = 11515;
constexpr int c_noTitle = 11516;
constexpr int c_moreEntries = 11517;
constexpr int c_loadingSize = 11518;
constexpr int c_someNotFetched = 11519;
constexpr int c_notRefreshed = 11520;
constexpr int c_httpOutcomes = 11530; // of Answered, which has none; the others follow
constexpr int c_httpStatus = 11540;
constexpr int c_noFeed = 11541;
constexpr int c_reasonWithDetail = 11542;

} // namespace CommonUI

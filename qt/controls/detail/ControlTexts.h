#pragma once

#include "common/StringTable.h"
#include "qt/QtText.h"

namespace CommonUI
{

/// Texts of the string table for the controls.
constexpr int c_reading = 11454;
constexpr int c_moveUp = 11461;
constexpr int c_moveDown = 11462;
constexpr int c_remove = 11463;
constexpr int c_filter = 11464;
constexpr int c_found = 11466;
constexpr int c_allTabs = 11467;
constexpr int c_closeTab = 11468;
constexpr int c_closeOthers = 11469;
constexpr int c_moveLeft = 11470;
constexpr int c_moveRight = 11471;
constexpr int c_sortBy = 11472;
constexpr int c_checkShown = 11473;
constexpr int c_uncheckShown = 11474;
constexpr int c_recentColors = 11475;
constexpr int c_moreColors = 11476;
constexpr int c_color = 11477;
constexpr int c_opacity = 11478;
constexpr int c_shape = 11479;
constexpr int c_size = 11480;
constexpr int c_filled = 11481;
constexpr int c_colors = 11482;
constexpr int c_chooseColor = 11483;
constexpr int c_noColor = 11484;
constexpr int c_refresh = 11485;
constexpr int c_showHidden = 11486;

inline QString GetQString(int id)
{
    return ToQString(GetString(id));
}

} // namespace CommonUI

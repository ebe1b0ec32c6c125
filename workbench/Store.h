#pragma once

#include "common/ini/IniStore.h"
#include "controls/color/InterfaceColors.h"
#include "controls/lists/RecentList.h"
#include "workbench/analyze/AnalysisChoice.h"
#include "workbench/BlockWidget.h"
#include "workbench/report/ReportChoice.h"
#include "workbench/series/SeriesSource.h"

#include <filesystem>

namespace Workbench
{

/// What the workbench keeps from one start to the next, in one file: preferences of analyses, general ones,
/// placement of windows, layouts of results, folders of file dialogs and recent sets, which the library owns,
/// and choices of its own. Two workbenches with one file keep each other's changes.
class CStore
{
public:
    static constexpr std::size_t c_mostFiles = 10;

    /// Reads the file, preferences.ini in a folder for the workbench below that of GetFolders for settings.
    CStore();
    /// The folder of the file.
    const std::filesystem::path& GetFolder() const noexcept { return m_folder; }
    /// @param reason receives a sentence when it cannot be written
    bool Save(CommonUI::CStr& reason);

    CommonUI::CRecentList<CommonUI::CStr> files{c_mostFiles}; ///< the surfaces that were opened last
    CommonUI::CStr colorScale{};                              ///< a reference of settings/SetReference.h
    SBlockLook look{};                                        ///< its exaggeration is that of each surface
    CommonUI::EInterfaceScheme colors = CommonUI::EInterfaceScheme::System;
    SAnalysisChoice analysis{};
    SSeriesChoice series{};
    SReportChoice report{};
    bool showsMap = true;
    bool showsBlock = true;

    /// What was found in the file when it was loaded.
    const CommonUI::SStoreAccount& GetAccount() const noexcept { return m_store.GetAccount(); }

private:
    void TakeShared();

    std::filesystem::path m_folder;
    CommonUI::CIniStore m_store;
};

} // namespace Workbench

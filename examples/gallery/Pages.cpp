#include "examples/gallery/Pages.h"

namespace Gallery
{

namespace
{

constexpr SPage c_pages[] = {
    {"numeric-edits", "Numeric edits", MakeNumericEditsPage, StageNumericEditsPage},
    {"grid-items", "Grid items", MakeGridItemsPage, StageGridItemsPage},
    {"result-grid", "Result grid", MakeResultGridPage, StageResultGridPage},
    {"progress", "Progress", MakeProgressPage, StageProgressPage},
    {"number-format", "Number format", MakeNumberFormatPage, StageNumberFormatPage},
    {"selection", "Parameter selection", MakeSelectionPage, StageSelectionPage},
    {"result-dialog", "Result dialog", MakeResultDialogPage, StageResultDialogPage},
    {"lists", "Lists", MakeListsPage, StageListsPage},
    {"controls", "Controls", MakeControlsPage, StageControlsPage},
    {"folders", "Folders", MakeFoldersPage, StageFoldersPage},
    {"tabs", "Tabs", MakeTabsPage, nullptr},
    {"dialogs", "Dialogs", MakeDialogsPage, StageDialogsPage},
    {"start-pane", "Start pane", MakeStartPanePage, StageStartPanePage},
    {"settings", "Settings", MakeSettingsPage, StageSettingsPage},
    {"services", "Services", MakeServicesPage, nullptr, OpenMessageBox},
};

} // namespace

std::span<const SPage> GetPages()
{
    return c_pages;
}

} // namespace Gallery

#pragma once

#include "../../common/Rect.h"
#include "../../export/Export.h"
#include "../../output/results/ResultGridPane.h"

#include <memory>

struct HWND__;

namespace CommonUI
{

class CWinGridView;

/// A table of results in a window of Windows: headers, scrolling, selection, and the commands that copy it.
/// Copying puts text and HTML on the library's clipboard together. It is drawn by GDI in the colours of the
/// system, those of high contrast too.
///
/// The commands are in its context menu, which the context menu key opens as well; Ctrl+C and Ctrl+A do what
/// they do everywhere. Ctrl++ fits all columns, as a double click on the edge of a header fits one;
/// Alt+Shift+Right and Alt+Shift+Left make the column that keys go to wider and narrower. Tab, Enter and
/// Escape are the dialog's. Screen readers know its cells, their headers and which of them has the keyboard,
/// by UI Automation.
///
/// Rows are as high as a line in the font of the window, at first that of the parent; WM_SETFONT gives
/// another one, to be sent on a change of the monitor as well, and columns grow and shrink with it. The
/// window may go before the object, with its parent. Callbacks may destroy the object, and throw: see
/// CWinMessageLoop. User-interface thread only.
class COMMONUIWIN_API CWinResultGrid
{
public:
    enum class ECommand {
        Copy, ///< what is selected, with the headers of its columns
        CopyWithoutHeaders,
        CopyTransposed, ///< what is selected, with its headers, columns as rows
        CopyWhole,      ///< the table as reports have it
        CopyWholeTransposed,
        SelectAll,
        FitColumns,
        Wider, ///< the column that keys go to
        Narrower
    };

    /// Takes the place, the number and the place in the tab order of a control of a dialog, which is
    /// destroyed: a text without contents in its template. Throws std::system_error where there is none.
    /// @param table not owned; it must outlive the object
    CWinResultGrid(HWND__* dialog, int identifier, CGridBaseOutputCtrl& table);
    /// @param place in pixels of the parent
    CWinResultGrid(HWND__* parent, int identifier, const SRect& place, CGridBaseOutputCtrl& table);
    ~CWinResultGrid();
    CWinResultGrid(const CWinResultGrid&) = delete;
    CWinResultGrid& operator=(const CWinResultGrid&) = delete;

    CGridBaseOutputCtrl& GetTable() noexcept { return m_table; }
    CResultGridPane& GetPane() noexcept { return m_pane; }
    /// To be called after rows or columns have changed. Columns are fitted when there are others than before.
    void Update();
    /// What the menu does: for buttons and tool bars of the application.
    void Run(ECommand command);

    /// Null when the system has destroyed it.
    HWND__* GetWindow() const noexcept;

private:
    void Show();
    void OpenMenu(SPoint screen);

    CGridBaseOutputCtrl& m_table;
    CResultGridPane m_pane;
    std::unique_ptr<CWinGridView> m_view;
};

} // namespace CommonUI

#pragma once

#include "../../common/Rect.h"
#include "../../export/Export.h"
#include "../../output/grid/GridCtrl.h"

#include <memory>

struct HWND__;

namespace CommonUI
{

class CWinGridView;

/// A grid of items in a window of Windows, whose cells are edited in place. It is drawn by GDI in the colours
/// of the system, those of high contrast too; pictures of buttons are not drawn.
///
/// A click, Enter, F2 or a typed text opens the editor of a cell: a field, one with two arrows, or a list.
/// Enter and a click elsewhere take over what is in it, Tab and Shift+Tab too, to go on in the next cell or
/// the one before; Escape leaves the value. A text that the cell refuses is answered by a sound. Where a cell
/// has no use for Enter it presses the default button of the dialog; Tab and Escape are the dialog's while no
/// editor is open. Ctrl++, Alt+Shift+Right and Alt+Shift+Left change columns as in CWinResultGrid, and screen
/// readers know the cells.
///
/// Rows are as high as a line in the font of the window, at first that of the parent; WM_SETFONT gives
/// another one. The window may go before the object, with its parent. Callbacks may destroy the object, and
/// throw: see CWinMessageLoop. User-interface thread only.
class COMMONUIWIN_API CWinGridCtrl
{
public:
    /// Takes the place, the number and the place in the tab order of a control of a dialog, which is
    /// destroyed: a text without contents in its template. Throws std::system_error where there is none.
    CWinGridCtrl(HWND__* dialog, int identifier);
    /// @param place in pixels of the parent
    CWinGridCtrl(HWND__* parent, int identifier, const SRect& place);
    ~CWinGridCtrl();
    CWinGridCtrl(const CWinGridCtrl&) = delete;
    CWinGridCtrl& operator=(const CWinGridCtrl&) = delete;

    /// The grid that is shown; lives as long as the object.
    CGridCtrl& GetGrid() noexcept { return m_grid; }
    /// Null when the system has destroyed it.
    HWND__* GetWindow() const noexcept;

private:
    void Show();

    CGridCtrl m_grid;
    std::unique_ptr<CWinGridView> m_view;
};

} // namespace CommonUI

#pragma once

#include "output/grid/GridView.h"
#include "windows/detail/ControlWindow.h"

#include <functional>
#include <memory>

namespace CommonUI
{

/// An editor over a cell: a field or a list of the system, in which the user types or chooses. Its window is
/// a child of the grid's, and goes with the object.
class CGridCellEditor : public CSubclass
{
public:
    using FDone = std::function<void(EGridEditEnd)>;

    /// What is sent to the grid's window when a list has closed, with the end in the first parameter and the
    /// editor's window in the second: the editor is to be told by Finish.
    static constexpr UINT c_listClosed = WM_APP;

    /// Makes the editor that is asked for, hidden.
    static std::unique_ptr<CGridCellEditor> Make(const SGridEdit& edit, HWND grid, HFONT font, FDone done);
    ~CGridCellEditor() override;

    CStr GetText() const;
    /// Shows it within a cell.
    virtual void Place(const SRect& rect) = 0;
    virtual void Hide() { ShowWindow(GetHandle(), SW_HIDE); }
    /// Opens a list, when the mouse that opened the editor has been released.
    virtual void DropDown() {}
    /// What one of its windows tells the grid's. @return whether it was one of its windows
    virtual bool OnNotify(UINT message, WPARAM wide, LPARAM longer) = 0;
    /// Says no more that it is done.
    void Disarm() { m_done = nullptr; }
    /// The object may be gone afterwards.
    void Finish(EGridEditEnd end);

protected:
    /// @param window which the object owns from now on
    CGridCellEditor(HWND window, FDone done);

    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
    /// @return whether the key has been used
    virtual bool OnKey(WPARAM code);
    virtual bool OnCharacter(wchar_t character);
    virtual bool OnWheel(WPARAM) { return false; }

private:
    FDone m_done;
};

} // namespace CommonUI

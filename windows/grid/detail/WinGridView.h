#pragma once

#include "output/grid/GridPane.h"
#include "windows/detail/ControlWindow.h"
#include "windows/grid/detail/GridCellEditor.h"
#include "windows/grid/detail/GridProvider.h"

#include <functional>
#include <memory>
#include <vector>

namespace CommonUI
{

/// Shows a grid: draws what is visible, scrolls, and forwards mouse and keys. A grid of items opens its
/// editors here.
class CWinGridView final : public CControlWindow, public CGridView
{
public:
    CWinGridView(HWND parent, int identifier, const SRect& place);
    /// A view where a control of a dialog is, which goes. Throws std::system_error where there is none.
    static std::unique_ptr<CWinGridView> Replace(HWND dialog, int identifier);
    ~CWinGridView() override;

    /// Shows a grid in place of the one before. It is not owned; either may go first.
    void Attach(CGridPane& grid);
    /// Has Enter open the editor of a cell; where a cell has no use for the key it stays the dialog's.
    void TakeEnter() { m_takesEnter = true; }
    /// Calls `open` with the place on the screen where a context menu is asked for.
    void SetMenu(std::function<void(SPoint)> open) { m_menu = std::move(open); }

    void Invalidate(const SRect& rect) override;
    void UpdateScrollBars() override;
    void TakeFocus() override { SetFocus(GetHandle()); }
    void OpenEditor(const SGridEdit& edit) override;
    void MoveEditor(const SRect& rect) override;
    void CloseEditor() override;
    int GetTextWidth(std::u16string_view text) const override;
    void OnSelectionChanged() override { m_automation.TellFocus(); }

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

private:
    SSize GetSize() const;
    void SetBar(int bar, long long range, int page, long long position) const;
    bool TakeMessage(UINT message, WPARAM wide, LPARAM longer);
    bool TakeKey(WPARAM key);
    bool TakeCharacter(wchar_t character);
    bool TakeEditorMessage(UINT message, WPARAM wide, LPARAM longer);
    void EndEdit(EGridEditEnd end);
    void UpdateFocus();
    bool TakeColumnKey(WPARAM key);
    bool TakeFocusAlive();
    bool TakeMouse(UINT message, LPARAM longer);
    void TakeWheel(int delta, bool sideways);
    void Release(SPoint point, bool isCaptured);
    bool TakeRelease(SPoint point);
    void Scroll(int bar, WPARAM wide);
    void SendMouse(unsigned int message, SPoint point);
    void OpenMenu(LPARAM place);
    bool ShowCursor() const;
    void SetFont(HFONT font);
    void UpdateLineHeight();
    void Paint();

    std::function<void(SPoint)> m_menu;
    CGridAutomation m_automation{GetHandle(), *this};
    std::unique_ptr<CGridCellEditor> m_editor;
    std::vector<std::unique_ptr<CGridCellEditor>> m_closedEditors; // whose windows may still be at work
    bool m_takesEnter = false;
    HFONT m_font = nullptr; // the application's
    int m_lineHeight = 0;
    long long m_rowsScale = 1; // the pixels of a unit of the vertical scroll bar
    int m_wheelRest = 0;       // turned, and too little for a pixel
    bool m_pressed = false;    // the left button, which was pressed here
    SPoint m_pointer;          // where it was last while the button was held
    std::shared_ptr<void> m_life = std::make_shared<char>();
};

} // namespace CommonUI

#pragma once

#include "dialogs/BaseDialog.h"
#include "windows/detail/ControlWindow.h"
#include "windows/dialogs/WinDarkTitle.h"

#include <memory>
#include <string>
#include <vector>

namespace CommonUI
{

/// What the windows of dialogs have in common: they lie over the middle of the window below, keep input from
/// the others of the thread while they are modal, have the font of the system's messages on their monitor,
/// and tell their dialog of OK, Cancel, Escape, closing and F1. Keys do in them what they do in dialogs.
class CWinDialogWindow : public CControlWindow
{
public:
    /// @param parent the window below, or null for the one in use
    explicit CWinDialogWindow(HWND parent);
    ~CWinDialogWindow() override;

    HWND GetControl(int number) const { return GetDlgItem(GetHandle(), number); }

    void Show(bool visible);
    void SetModal(bool modal);
    void SetBusy(bool busy) { m_busy = busy; }
    void SetText(int control, const CStr& text);
    void Enable(int control, bool enable);

    /// The size of a text in pixels when wrapped at a width.
    SIZE Measure(const std::wstring& text, int width = c_unwrapped) const;
    /// The average width of a character and its height, of which a dialog unit is a quarter and an eighth.
    SIZE GetUnits() const;

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
    bool IsDialog() const override { return true; }

    /// The dialog that the window shows; null for none.
    virtual CBaseDialog* GetDialog() const = 0;
    /// Puts controls to their places and calls Resize: before the window is shown, and on another monitor.
    virtual void Arrange() = 0;
    /// A control has something to tell, other than OK and Cancel.
    virtual void OnControl(int control, int notification);

    HWND AddControl(const wchar_t* type, DWORD style, int number, DWORD extendedStyle = 0);
    /// Adds a text before a control, which SetText sets for it and of which a letter leads to it.
    HWND AddLabel(int number);
    /// Places a control; in pixels.
    static void Place(HWND control, const SRect& place);
    void Resize(SIZE contents);
    /// The width that a button needs for its text.
    int GetButtonWidth(int number) const;
    /// Pixels for dialog units.
    int ToX(int units) const { return MulDiv(units, GetUnits().cx, 4); }
    int ToY(int units) const { return MulDiv(units, GetUnits().cy, 8); }

private:
    static constexpr int c_unwrapped = 100'000;

    struct SLabel {
        int number; // of the control that it stands before
        HWND text;
        wchar_t letter;
    };

    void SetMessageFont();
    void Disable(HWND window);
    void LieOver();
    static void FocusOn(HWND control);
    std::wstring Mark(SLabel& label, std::wstring text) const;
    bool TellDialog(UINT message, WPARAM wide);
    LRESULT Colour(UINT message, WPARAM context) const;

    class CDisabledWindow;

    bool m_hasParent;
    HWND m_below = nullptr; // the application's window when all were disabled
    HWND m_focus = nullptr; // the control that had the keyboard when the window was left
    HFONT m_font = nullptr;
    CWinDarkTitle m_title;
    bool m_busy = false;
    std::vector<SLabel> m_labels;
    std::vector<std::unique_ptr<CDisabledWindow>> m_disabled;
};

} // namespace CommonUI

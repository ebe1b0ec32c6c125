#pragma once

#include "windows/services/WinServices.h"

#include "windows/detail/Api.h"
#include "windows/detail/WinText.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace CommonUI
{

/// A dialog without a loop of its own, with some fields of a template.
class CTestDialog
{
public:
    /// @param fields how many edit fields it has: of the numbers 100, 101 and so on, one below the other
    explicit CTestDialog(int fields)
    {
        // A template without items: fields are added as a resource compiler would.
        struct alignas(4) STemplate {
            DLGTEMPLATE head;
            WORD menu, windowClass, title;
        } form{};
        form.head.style = WS_POPUP | WS_BORDER;
        form.head.cx = 200;
        form.head.cy = 140;
        m_window = CreateDialogIndirectParamW(nullptr, &form.head, nullptr, Handle, 0);
        EXPECT_TRUE(m_window);
        for (int i = 0; i < fields; ++i)
            CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"",
                            WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, 20, 20 + 40 * i, 120, 24,
                            m_window, reinterpret_cast<HMENU>(static_cast<INT_PTR>(100 + i)), nullptr,
                            nullptr);
        // Without activation: a display without window manager keeps what was active for two seconds.
        ShowWindow(m_window, SW_SHOWNA);
        s_commands.clear();
    }
    ~CTestDialog() { Close(); }
    CTestDialog(const CTestDialog&) = delete;
    CTestDialog& operator=(const CTestDialog&) = delete;

    HWND Get() const { return m_window; }
    HWND GetItem(int identifier) const { return GetDlgItem(m_window, identifier); }
    void Close()
    {
        if (m_window)
            DestroyWindow(m_window);
        m_window = nullptr;
    }
    /// A key as it comes out of the queue, which goes to the dialog before it goes to the control.
    void Press(WORD key, bool control = false)
    {
        Hold(VK_CONTROL, control);
        MSG message{GetFocus(), WM_KEYDOWN, key, 1, 0, {}};
        if (!IsDialogMessageW(m_window, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        Pump();
        Hold(VK_CONTROL, false);
    }
    void Type(const wchar_t* text)
    {
        for (; *text; ++text)
            SendMessageW(GetFocus(), WM_CHAR, *text, 1);
    }
    static void Pump()
    {
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
            DispatchMessageW(&message);
    }
    /// The numbers of buttons that the dialog's keys have stood for.
    static std::vector<int> TakeCommands() { return std::exchange(s_commands, {}); }
    static void Hold(int key, bool held)
    {
        BYTE keys[256];
        GetKeyboardState(keys);
        keys[key] = held ? 0x80 : 0;
        SetKeyboardState(keys);
    }

private:
    static INT_PTR CALLBACK Handle(HWND, UINT message, WPARAM wide, LPARAM)
    {
        if (message == WM_COMMAND && LOWORD(wide) <= IDCANCEL)
            s_commands.push_back(LOWORD(wide));
        return FALSE;
    }

    inline static std::vector<int> s_commands;
    HWND m_window;
};

inline CStr TextOf(HWND window)
{
    wchar_t text[200] = {};
    GetWindowTextW(window, text, 200);
    return FromWide(text);
}

inline int WidthOf(HWND window)
{
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect.right - rect.left;
}

/// Pixels of a window that do not have the colour of its first.
inline int CountDrawn(HWND window)
{
    RECT rect{};
    GetClientRect(window, &rect);
    HDC__* const screen = GetDC(window);
    const COLORREF ground = GetPixel(screen, 0, 0);
    int drawn = 0;
    for (int y = 0; y < rect.bottom; ++y)
        for (int x = 0; x < rect.right; ++x)
            drawn += GetPixel(screen, x, y) != ground ? 1 : 0;
    ReleaseDC(window, screen);
    return drawn;
}

} // namespace CommonUI

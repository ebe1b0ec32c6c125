#pragma once

#include "windows/detail/Api.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

namespace CommonUI
{

/// The dialog of the system that this thread shows: a message box or a file dialog. Null if there is none.
inline HWND FindDialog()
{
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM result) CALLBACK -> BOOL {
            wchar_t name[16] = {};
            GetClassNameW(window, name, 16);
            const bool isDialog = std::wstring(name) == L"#32770" && IsWindowVisible(window);
            if (isDialog)
                *reinterpret_cast<HWND*>(result) = window;
            return !isDialog;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

/// Does something with the dialog that a call is about to show, as soon as it is there.
class CWhenShown
{
public:
    using FAct = std::function<void(HWND)>;

    /// @param patience how often to look before the dialog is said to be there: some go on being built
    explicit CWhenShown(FAct act, int patience = 1)
        : m_patience(patience)
    {
        s_act = std::move(act);
        s_self = this;
        m_timer = SetTimer(nullptr, 0, 20, Look);
    }
    ~CWhenShown()
    {
        EXPECT_FALSE(s_act) << "no dialog was shown";
        KillTimer(nullptr, m_timer);
        s_act = nullptr;
    }
    CWhenShown(const CWhenShown&) = delete;
    CWhenShown& operator=(const CWhenShown&) = delete;

private:
    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD)
    {
        const HWND dialog = FindDialog();
        if (dialog && s_act && --s_self->m_patience <= 0)
            std::exchange(s_act, nullptr)(dialog);
    }

    inline static FAct s_act;
    inline static CWhenShown* s_self = nullptr;
    UINT_PTR m_timer;
    int m_patience;
};

} // namespace CommonUI

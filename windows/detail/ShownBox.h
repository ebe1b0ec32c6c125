#pragma once

#include "platform/MessageBoxService.h"
#include "windows/detail/Api.h"

namespace CommonUI
{

/// Makes the next message box of the thread what the library promises of one: a Help button that works
/// everywhere, questions that can be closed, and a check box below the buttons.
class CShownBox
{
public:
    static constexpr int c_check = 0x7001; ///< the number of the check box

    /// @param checkText empty for no check box
    CShownBox(const SMessageBox& box, const CStr& checkText);
    ~CShownBox();
    CShownBox(const CShownBox&) = delete;
    CShownBox& operator=(const CShownBox&) = delete;

    /// After the box has gone.
    bool WasChecked() const noexcept { return m_wasChecked; }

private:
    static LRESULT CALLBACK OnHook(int code, WPARAM wide, LPARAM longer);
    static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM wide, LPARAM longer);

    void Adopt(HWND window);
    void AddCheck();
    bool TakeCommand(WPARAM command) const;
    LRESULT PassOn(HWND window, UINT message, WPARAM wide, LPARAM longer) const;

    const SMessageBox& m_box;
    const CStr& m_checkText;
    CShownBox* m_outer;
    HHOOK m_hook;
    HWND m_window = nullptr;
    HWND m_check = nullptr;
    WNDPROC m_system = nullptr;
    bool m_wasChecked = false;
};

} // namespace CommonUI

#pragma once

#include "windows/detail/Api.h"

namespace CommonUI
{

/// A window that nobody sees, for the messages of the thread that makes it. They come from whatever loop runs
/// on the thread, those of the system's boxes and menus too.
class CMessageWindow
{
public:
    enum class EKind {
        MessageOnly, ///< hears what is sent to it and nothing else
        TopLevel     ///< hears what the system tells all windows, too
    };

    /// Throws std::system_error where the system has no window left.
    explicit CMessageWindow(EKind kind = EKind::MessageOnly);
    virtual ~CMessageWindow();
    CMessageWindow(const CMessageWindow&) = delete;
    CMessageWindow& operator=(const CMessageWindow&) = delete;

    HWND GetHandle() const noexcept { return m_window; }

protected:
    /// Must not throw: see GuardedCall.
    virtual LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer);

private:
    static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM wide, LPARAM longer);
    static const wchar_t* GetClass();

    HWND m_window;
};

/// The library or program that this code is in.
HINSTANCE GetModule() noexcept;

} // namespace CommonUI

#pragma once

#include "windows/detail/Api.h"

#include "common/Rect.h"
#include "common/Str.h"

#include <memory>

namespace CommonUI
{

/// A window of the library: a control in a window of the application, what pops up over one, or one for
/// messages. The window may go before the object, with its parent.
class CControlWindow
{
public:
    /// Throws std::system_error where the system has no window left.
    CControlWindow(HWND parent, int identifier, const SRect& place, DWORD style, DWORD extendedStyle = 0);
    virtual ~CControlWindow();
    CControlWindow(const CControlWindow&) = delete;
    CControlWindow& operator=(const CControlWindow&) = delete;

    /// Null when the system has destroyed it.
    HWND GetHandle() const noexcept { return m_window; }

    /// Has the dialog of the library that a key is for, if it is for one, do what keys do in dialogs.
    /// @return whether it has been handled and goes nowhere else
    static bool TakeDialogKey(MSG& message);

protected:
    /// Must not throw: see GuardedCall. A callback may destroy the object.
    virtual LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer);
    /// Whether Tab, Enter, Escape and the marked letters of labels do in it what they do in dialogs.
    virtual bool IsDialog() const { return false; }

private:
    static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM wide, LPARAM longer);
    static ATOM GetClass();

    HWND m_window;
};

/// Hears the messages of somebody else's window before it does itself.
class CSubclass
{
public:
    explicit CSubclass(HWND window);
    virtual ~CSubclass();
    CSubclass(const CSubclass&) = delete;
    CSubclass& operator=(const CSubclass&) = delete;

    /// Null when the system has destroyed it.
    HWND GetHandle() const noexcept { return m_window; }

protected:
    /// Must not throw: see GuardedCall. A callback may destroy the object.
    virtual LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer);
    LRESULT PassOn(UINT message, WPARAM wide, LPARAM longer) const;
    /// Expires with the object.
    std::weak_ptr<void> GetLife() const { return m_life; }

private:
    static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM wide, LPARAM longer, UINT_PTR identifier,
                                   DWORD_PTR object);

    HWND m_window;
    std::shared_ptr<void> m_life = std::make_shared<char>();
};

/// Draws into memory first and then onto the window, so that nothing flickers.
class CBufferedPaint
{
public:
    explicit CBufferedPaint(HWND window);
    ~CBufferedPaint();
    CBufferedPaint(const CBufferedPaint&) = delete;
    CBufferedPaint& operator=(const CBufferedPaint&) = delete;

    /// In pixels of the window.
    HDC GetContext() const noexcept { return m_memory; }
    const RECT& GetClip() const noexcept { return m_paint.rcPaint; }

private:
    HWND m_window;
    PAINTSTRUCT m_paint{};
    HDC m_memory;
    HBITMAP m_bitmap;
    HGDIOBJ m_before;
};

/// The library or program that this code is in.
HINSTANCE GetModule() noexcept;
/// Where a window is, in pixels of the screen.
SRect GetScreenRect(HWND window);
/// The title of a window, or what is typed in a field.
CStr ReadWindowText(HWND window);
/// Has a message come when the pointer leaves the window.
void AwaitPointerLeft(HWND window);
SPoint PointOf(LPARAM longer) noexcept;
bool IsHeld(int key) noexcept;
COLORREF ToColorRef(unsigned int red, unsigned int green, unsigned int blue) noexcept;

} // namespace CommonUI

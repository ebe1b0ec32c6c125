#include "windows/detail/ControlWindow.h"

#include "windows/detail/WinText.h"

#include <commctrl.h>

#include <algorithm>
#include <system_error>

namespace CommonUI
{

CControlWindow::CControlWindow(HWND parent, int identifier, const SRect& place, DWORD style,
                               DWORD extendedStyle)
    : m_window(CreateWindowExW(extendedStyle, MAKEINTRESOURCEW(GetClass()), L"", style, place.left, place.top,
                               place.GetWidth(), place.GetHeight(), parent,
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier)), GetModule(),
                               nullptr))
{
    if (!m_window)
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), "a window");
    SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

CControlWindow::~CControlWindow()
{
    if (!m_window)
        return;
    SetWindowLongPtrW(m_window, GWLP_USERDATA, 0);
    DestroyWindow(m_window);
}

LRESULT CControlWindow::OnMessage(UINT message, WPARAM wide, LPARAM longer)
{
    return DefWindowProcW(m_window, message, wide, longer);
}

LRESULT CALLBACK CControlWindow::Handle(HWND window, UINT message, WPARAM wide, LPARAM longer)
{
    auto* const self = reinterpret_cast<CControlWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self && message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->m_window = nullptr;
    } else if (self) {
        return self->OnMessage(message, wide, longer);
    }
    return DefWindowProcW(window, message, wide, longer);
}

bool CControlWindow::TakeDialogKey(MSG& message)
{
    HWND__* const root = GetAncestor(message.hwnd, GA_ROOT);
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST ||
        GetClassLongPtrW(root, GCW_ATOM) != GetClass())
        return false;
    const auto* const self = reinterpret_cast<CControlWindow*>(GetWindowLongPtrW(root, GWLP_USERDATA));
    return self && self->IsDialog() && IsDialogMessageW(root, &message);
}

ATOM CControlWindow::GetClass()
{
    // Goes with the library, which may be loaded again to another place.
    static const struct SRegistration {
        SRegistration()
        {
            WNDCLASSW description{};
            description.style = CS_DBLCLKS;
            description.lpfnWndProc = Handle;
            description.hInstance = GetModule();
            description.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512)); // the arrow
            description.lpszClassName = L"CommonUIControl";
            number = RegisterClassW(&description);
        }
        ~SRegistration() { UnregisterClassW(MAKEINTRESOURCEW(number), GetModule()); }

        ATOM number;
    } registration;
    return registration.number;
}

CSubclass::CSubclass(HWND window)
    : m_window(window)
{
    if (!window || !SetWindowSubclass(window, Handle, reinterpret_cast<UINT_PTR>(this),
                                      reinterpret_cast<DWORD_PTR>(this)))
        throw std::system_error(ERROR_INVALID_WINDOW_HANDLE, std::system_category(),
                                "the window of a control");
}

CSubclass::~CSubclass()
{
    if (m_window)
        RemoveWindowSubclass(m_window, Handle, reinterpret_cast<UINT_PTR>(this));
}

LRESULT CSubclass::OnMessage(UINT message, WPARAM wide, LPARAM longer)
{
    return PassOn(message, wide, longer);
}

LRESULT CSubclass::PassOn(UINT message, WPARAM wide, LPARAM longer) const
{
    return DefSubclassProc(m_window, message, wide, longer);
}

LRESULT CALLBACK CSubclass::Handle(HWND window, UINT message, WPARAM wide, LPARAM longer, UINT_PTR identifier,
                                   DWORD_PTR object)
{
    auto* const self = reinterpret_cast<CSubclass*>(object);
    if (message != WM_NCDESTROY)
        return self->OnMessage(message, wide, longer);
    self->m_window = nullptr;
    RemoveWindowSubclass(window, Handle, identifier);
    return DefSubclassProc(window, message, wide, longer);
}

CBufferedPaint::CBufferedPaint(HWND window)
    : m_window(window)
{
    HDC__* const screen = BeginPaint(window, &m_paint);
    const RECT& clip = m_paint.rcPaint;
    m_memory = CreateCompatibleDC(screen);
    m_bitmap = CreateCompatibleBitmap(screen, std::max<int>(clip.right - clip.left, 1),
                                      std::max<int>(clip.bottom - clip.top, 1));
    m_before = SelectObject(m_memory, m_bitmap);
    SetViewportOrgEx(m_memory, -clip.left, -clip.top, nullptr);
    SetBkMode(m_memory, TRANSPARENT);
}

CBufferedPaint::~CBufferedPaint()
{
    const RECT& clip = m_paint.rcPaint;
    BitBlt(m_paint.hdc, clip.left, clip.top, clip.right - clip.left, clip.bottom - clip.top, m_memory,
           clip.left, clip.top, SRCCOPY);
    SelectObject(m_memory, m_before);
    DeleteObject(m_bitmap);
    DeleteDC(m_memory);
    EndPaint(m_window, &m_paint);
}

HINSTANCE GetModule() noexcept
{
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&GetModule), &module);
    return module;
}

SRect GetScreenRect(HWND window)
{
    RECT rect{};
    GetWindowRect(window, &rect);
    return {rect.left, rect.top, rect.right, rect.bottom};
}

CStr ReadWindowText(HWND window)
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return FromWide(text);
}

void AwaitPointerLeft(HWND window)
{
    TRACKMOUSEEVENT track{};
    track.cbSize = sizeof track;
    track.dwFlags = TME_LEAVE;
    track.hwndTrack = window;
    TrackMouseEvent(&track);
}

SPoint PointOf(LPARAM longer) noexcept
{
    return {static_cast<short>(LOWORD(longer)), static_cast<short>(HIWORD(longer))};
}

bool IsHeld(int key) noexcept
{
    return GetKeyState(key) < 0;
}

COLORREF ToColorRef(unsigned int red, unsigned int green, unsigned int blue) noexcept
{
    return red | (green << 8U) | (blue << 16U);
}

} // namespace CommonUI

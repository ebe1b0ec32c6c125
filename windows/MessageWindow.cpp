#include "windows/detail/MessageWindow.h"

#include <system_error>

namespace CommonUI
{

CMessageWindow::CMessageWindow(EKind kind)
    : m_window(CreateWindowExW(0, GetClass(), L"", WS_POPUP, 0, 0, 0, 0,
                               kind == EKind::MessageOnly ? HWND_MESSAGE : nullptr, nullptr, GetModule(),
                               nullptr))
{
    if (!m_window)
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                                "a window for messages");
    SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

CMessageWindow::~CMessageWindow()
{
    SetWindowLongPtrW(m_window, GWLP_USERDATA, 0);
    DestroyWindow(m_window);
}

LRESULT CMessageWindow::OnMessage(UINT message, WPARAM wide, LPARAM longer)
{
    return DefWindowProcW(m_window, message, wide, longer);
}

LRESULT CALLBACK CMessageWindow::Handle(HWND window, UINT message, WPARAM wide, LPARAM longer)
{
    auto* const self = reinterpret_cast<CMessageWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self ? self->OnMessage(message, wide, longer) : DefWindowProcW(window, message, wide, longer);
}

const wchar_t* CMessageWindow::GetClass()
{
    static constexpr const wchar_t* c_name = L"CommonUIMessages";
    // Goes with the library, which may be loaded again to another place.
    static const struct SRegistration {
        SRegistration()
        {
            WNDCLASSW description{};
            description.lpfnWndProc = Handle;
            description.hInstance = GetModule();
            description.lpszClassName = c_name;
            RegisterClassW(&description);
        }
        ~SRegistration() { UnregisterClassW(c_name, GetModule()); }
    } registration;
    return c_name;
}

HINSTANCE GetModule() noexcept
{
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&GetModule), &module);
    return module;
}

} // namespace CommonUI

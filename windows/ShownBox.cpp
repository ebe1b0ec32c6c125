#include "windows/detail/ShownBox.h"

#include "platform/HelpService.h"
#include "windows/detail/CallGuard.h"
#include "windows/detail/ControlWindow.h"
#include "windows/detail/WinText.h"

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

CShownBox* s_awaited = nullptr; // the box that is about to come
constexpr const wchar_t* c_property = L"CommonUIBox";
constexpr UINT c_arrange = WM_APP;

bool IsDialog(HWND window)
{
    wchar_t name[16] = {};
    GetClassNameW(window, name, 16);
    return std::wstring_view(name) == L"#32770";
}

RECT PlaceIn(HWND parent, HWND child)
{
    RECT place{};
    GetWindowRect(child, &place);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

// How large a text gets in a width.
SIZE Measure(HWND window, HFONT font, const std::wstring& text, int width)
{
    HDC__* const context = GetDC(window);
    void* const before = SelectObject(context, font);
    RECT area{0, 0, width, 0};
    DrawTextW(context, text.c_str(), -1, &area, DT_CALCRECT | DT_WORDBREAK);
    SelectObject(context, before);
    ReleaseDC(window, context);
    return {area.right, area.bottom};
}

// Makes a box larger, to all sides.
void Enlarge(HWND window, const SIZE& by)
{
    RECT place{};
    GetWindowRect(window, &place);
    SetWindowPos(window, nullptr, place.left - by.cx / 2, place.top - by.cy / 2,
                 place.right - place.left + by.cx, place.bottom - place.top + by.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

// Keeps the buttons of a box in its middle.
void MoveButtons(HWND window, int by)
{
    for (const int number : {IDOK, IDCANCEL, IDYES, IDNO, IDHELP})
        if (HWND__* const button = GetDlgItem(window, number)) {
            const RECT place = PlaceIn(window, button);
            SetWindowPos(button, nullptr, place.left + by, place.top, 0, 0,
                         SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSIZE);
        }
}

} // namespace

CShownBox::CShownBox(const SMessageBox& box, const CStr& checkText)
    : m_box(box)
    , m_checkText(checkText)
    , m_outer(std::exchange(s_awaited, this))
    , m_hook(SetWindowsHookExW(WH_CBT, OnHook, nullptr, GetCurrentThreadId()))
{
}

CShownBox::~CShownBox()
{
    if (m_hook)
        UnhookWindowsHookEx(m_hook);
    s_awaited = m_outer;
}

LRESULT CALLBACK CShownBox::OnHook(int code, WPARAM wide, LPARAM longer)
{
    const auto window = reinterpret_cast<HWND>(wide);
    if (code == HCBT_ACTIVATE && s_awaited && !s_awaited->m_window && IsDialog(window))
        s_awaited->Adopt(window);
    return CallNextHookEx(nullptr, code, wide, longer);
}

void CShownBox::Adopt(HWND window)
{
    m_window = window;
    UnhookWindowsHookEx(std::exchange(m_hook, nullptr));
    SetPropW(window, c_property, this);
    m_system = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Handle)));
    if ((m_box.style & MessageBoxStyle::c_buttonMask) == MessageBoxStyle::c_yesNo)
        EnableMenuItem(GetSystemMenu(window, FALSE), SC_CLOSE, MF_BYCOMMAND | MF_ENABLED);
    // When the system has laid out the box, and before it is drawn.
    if (!m_checkText.IsEmpty())
        PostMessageW(window, c_arrange, 0, 0);
}

void CShownBox::AddCheck()
{
    RECT client{};
    GetClientRect(m_window, &client);
    // The space that the box leaves below its buttons.
    HWND__* const button =
        GetDlgItem(m_window, static_cast<int>(CMessageBoxService::GetCautiousAnswer(m_box.style)));
    const int margin = button ? client.bottom - PlaceIn(m_window, button).bottom : 0;
    const auto font = reinterpret_cast<HFONT>(SendMessageW(m_window, WM_GETFONT, 0, 0));
    const std::wstring text = ToWide(m_checkText);
    const int mark = GetSystemMetrics(SM_CXMENUCHECK) + 2 * GetSystemMetrics(SM_CXEDGE);
    const int outside = mark + 2 * margin;
    // As wide as its text, and no wider than boxes are that have a long text.
    const int widest = std::max<int>(client.right, GetSystemMetrics(SM_CXSCREEN) / 4);
    const SIZE size = Measure(m_window, font, text, widest - outside);
    const int more = std::max<int>(0, size.cx + outside - client.right);
    Enlarge(m_window, {more, size.cy + margin});
    MoveButtons(m_window, more / 2);
    m_check = CreateWindowExW(0, L"BUTTON", text.c_str(),
                              WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_AUTOCHECKBOX | BS_MULTILINE, margin,
                              client.bottom, size.cx + mark, size.cy, m_window,
                              reinterpret_cast<HMENU>(static_cast<INT_PTR>(c_check)), GetModule(), nullptr);
    SendMessageW(m_check, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

LRESULT CALLBACK CShownBox::Handle(HWND window, UINT message, WPARAM wide, LPARAM longer)
{
    auto& self = *static_cast<CShownBox*>(GetPropW(window, c_property));
    const bool isQuestion = (self.m_box.style & MessageBoxStyle::c_buttonMask) == MessageBoxStyle::c_yesNo;
    if (message == c_arrange)
        self.AddCheck();
    if (message == WM_CLOSE && isQuestion)
        return self.PassOn(window, WM_COMMAND, IDNO, 0);
    if (message == WM_COMMAND && LOWORD(wide) == IDCANCEL && isQuestion)
        return self.PassOn(window, WM_COMMAND, IDNO, 0);
    if (message == WM_COMMAND && self.TakeCommand(wide))
        return 0;
    if (message == WM_DESTROY) {
        self.m_wasChecked = self.m_check && SendMessageW(self.m_check, BM_GETCHECK, 0, 0) == BST_CHECKED;
        RemovePropW(window, c_property);
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(self.m_system));
    }
    return self.PassOn(window, message, wide, longer);
}

// What the system does not know, or does not do everywhere.
bool CShownBox::TakeCommand(WPARAM command) const
{
    if (LOWORD(command) == IDHELP && (m_box.style & MessageBoxStyle::c_help))
        GuardedCall([topic = m_box.helpTopic] { GetHelpService().Open(topic); });
    else if (LOWORD(command) != c_check)
        return false;
    return true;
}

LRESULT CShownBox::PassOn(HWND window, UINT message, WPARAM wide, LPARAM longer) const
{
    return CallWindowProcW(m_system, window, message, wide, longer);
}

} // namespace CommonUI

#include "windows/dialogs/detail/WinDialogWindow.h"

#include "windows/detail/CallGuard.h"
#include "windows/detail/MonitorScale.h"
#include "windows/detail/OwnerWindow.h"
#include "windows/detail/WinText.h"

#include <algorithm>
#include <utility>

namespace CommonUI
{

// A window that takes no input as long as the object lives, and shows so by the pointer.
class CWinDialogWindow::CDisabledWindow final : public CSubclass
{
public:
    CDisabledWindow(HWND window, const bool& busy)
        : CSubclass(window)
        , m_busy(busy)
    {
        EnableWindow(window, FALSE);
    }
    ~CDisabledWindow() override
    {
        if (GetHandle())
            EnableWindow(GetHandle(), TRUE);
    }

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override
    {
        if (message != WM_SETCURSOR || !m_busy)
            return PassOn(message, wide, longer);
        constexpr WORD c_wait = 32514;
        SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(c_wait)));
        return TRUE;
    }

private:
    const bool& m_busy;
};

CWinDialogWindow::CWinDialogWindow(HWND parent)
    : CControlWindow(parent ? GetAncestor(parent, GA_ROOT) : nullptr, 0, {0, 0, 100, 100},
                     WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN,
                     WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT)
    , m_hasParent(parent != nullptr)
    , m_title(GetHandle())
{
    SetMessageFont();
}

CWinDialogWindow::~CWinDialogWindow()
{
    DeleteObject(m_font);
}

HWND CWinDialogWindow::AddControl(const wchar_t* type, DWORD style, int number, DWORD extendedStyle)
{
    HWND__* const control =
        CreateWindowExW(extendedStyle, type, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, GetHandle(),
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(number)), GetModule(), nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(m_font), FALSE);
    return control;
}

HWND CWinDialogWindow::AddLabel(int number)
{
    m_labels.push_back({number, AddControl(L"STATIC", SS_CENTERIMAGE, -1), 0});
    return m_labels.back().text;
}

void CWinDialogWindow::Place(HWND control, const SRect& place)
{
    SetWindowPos(control, nullptr, place.left, place.top, place.GetWidth(), place.GetHeight(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void CWinDialogWindow::Resize(SIZE contents)
{
    const SIZE whole = GetWholeSize(GetHandle(), contents);
    SetWindowPos(GetHandle(), nullptr, 0, 0, whole.cx, whole.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    InvalidateRect(GetHandle(), nullptr, TRUE);
}

// Controls keep the font before until they have the new one.
void CWinDialogWindow::SetMessageFont()
{
    HFONT__* const before = std::exchange(m_font, MakeMessageFont(GetDpi(GetHandle())));
    for (HWND__* control = ::GetWindow(GetHandle(), GW_CHILD); control;
         control = ::GetWindow(control, GW_HWNDNEXT))
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(m_font), FALSE);
    DeleteObject(before);
}

void CWinDialogWindow::Show(bool visible)
{
    if (!GetHandle() || (IsWindowVisible(GetHandle()) != FALSE) == visible)
        return;
    if (visible) {
        Arrange();
        LieOver();
        m_focus = nullptr;
        ShowWindow(GetHandle(), SW_SHOW);
        SetFocus(GetHandle()); // from which it goes to the first control
        return;
    }
    // The system would give the keyboard to another program where the window below takes no input yet.
    HWND__* const below = ::GetWindow(GetHandle(), GW_OWNER);
    if (GetActiveWindow() == GetHandle() && below && IsWindowEnabled(below))
        SetActiveWindow(below);
    ShowWindow(GetHandle(), SW_HIDE);
}

void CWinDialogWindow::SetModal(bool modal)
{
    m_disabled.clear();
    m_below = nullptr;
    if (!modal)
        return;
    m_below = GetOwnerWindow(); // which later is one of those that take no input
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM self) CALLBACK -> BOOL {
            GuardedCall([&] { reinterpret_cast<CWinDialogWindow*>(self)->Disable(window); });
            return TRUE;
        },
        reinterpret_cast<LPARAM>(this));
}

void CWinDialogWindow::Disable(HWND window)
{
    if (window != GetHandle() && IsWindowVisible(window) && IsWindowEnabled(window))
        m_disabled.push_back(std::make_unique<CDisabledWindow>(window, m_busy));
}

// Over the middle of the window below.
void CWinDialogWindow::LieOver()
{
    if (!m_hasParent) {
        HWND__* const owner = IsWindow(m_below) ? m_below : GetOwnerWindow();
        SetWindowLongPtrW(GetHandle(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
    }
    HWND__* const below = ::GetWindow(GetHandle(), GW_OWNER);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(below ? below : GetHandle(), MONITOR_DEFAULTTOPRIMARY), &monitor);
    const RECT& work = monitor.rcWork;
    const SRect around = below ? GetScreenRect(below) : SRect{work.left, work.top, work.right, work.bottom};
    const SRect own = GetScreenRect(GetHandle());
    const int left = around.left + (around.GetWidth() - own.GetWidth()) / 2;
    const int top = around.top + (around.GetHeight() - own.GetHeight()) / 2;
    SetWindowPos(GetHandle(), nullptr, std::max<int>(work.left, left), std::max<int>(work.top, top), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CWinDialogWindow::FocusOn(HWND control)
{
    SetFocus(control);
    if (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL)
        SendMessageW(control, EM_SETSEL, 0, -1);
}

// With a mark for a letter that no other label has.
std::wstring CWinDialogWindow::Mark(SLabel& label, std::wstring text) const
{
    label.letter = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        wchar_t letter = text[i];
        CharLowerBuffW(&letter, 1);
        const bool isFree = IsCharAlphaNumericW(letter) &&
                            std::none_of(m_labels.begin(), m_labels.end(),
                                         [letter](const SLabel& other) { return other.letter == letter; });
        if (isFree) {
            label.letter = letter;
            return text.insert(i, 1, L'&');
        }
    }
    return text;
}

void CWinDialogWindow::SetText(int control, const CStr& text)
{
    const auto found = std::find_if(m_labels.begin(), m_labels.end(),
                                    [control](const SLabel& label) { return label.number == control; });
    if (found == m_labels.end())
        SetWindowTextW(GetControl(control), ToWide(text).c_str());
    else
        SetWindowTextW(found->text, Mark(*found, ToWide(text)).c_str());
}

void CWinDialogWindow::Enable(int control, bool enable)
{
    HWND__* const window = GetControl(control);
    // A control without input keeps the keyboard, and Escape with it.
    if (!enable && window && ::GetFocus() == window)
        SetFocus(GetHandle());
    EnableWindow(window, enable);
    if (::GetFocus() == GetHandle())
        SetFocus(GetHandle()); // which leads it on to a control that takes it
}

SIZE CWinDialogWindow::Measure(const std::wstring& text, int width) const
{
    HDC__* const context = GetDC(GetHandle());
    void* const before = SelectObject(context, m_font);
    RECT area{0, 0, width, 0};
    DrawTextW(context, text.c_str(), -1, &area, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(context, before);
    ReleaseDC(GetHandle(), context);
    return {area.right, area.bottom};
}

SIZE CWinDialogWindow::GetUnits() const
{
    constexpr int c_letters = 52;
    const SIZE size = Measure(L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    return {std::max<LONG>((size.cx + c_letters / 2) / c_letters, 1), std::max<LONG>(size.cy, 1)};
}

int CWinDialogWindow::GetButtonWidth(int number) const
{
    wchar_t text[100] = {};
    GetWindowTextW(GetControl(number), text, 100);
    const SIZE needed = Measure(text);
    return needed.cx + 2 * needed.cy;
}

void CWinDialogWindow::OnControl(int, int)
{
}

// @return whether it was the dialog's business; the object may be gone then
bool CWinDialogWindow::TellDialog(UINT message, WPARAM wide)
{
    CBaseDialog* const dialog = GetDialog();
    if (!dialog)
        return message == WM_CLOSE;
    const int button = message == WM_COMMAND && HIWORD(wide) == BN_CLICKED ? LOWORD(wide) : 0;
    if (message == WM_CLOSE || (message == WM_KEYDOWN && wide == VK_ESCAPE) || button == IDCANCEL)
        GuardedCall([dialog] { dialog->OnCancel(); });
    else if (button == IDOK && IsWindowEnabled(GetControl(IDOK))) // Enter, too, which needs no button
        GuardedCall([dialog] { dialog->OnOK(); });
    else if (message == WM_HELP)
        GuardedCall([dialog] { dialog->OnHelpInfo(); });
    else if (message == WM_COMMAND)
        GuardedCall([this, wide] { OnControl(LOWORD(wide), HIWORD(wide)); });
    else
        return false;
    return true;
}

// The ground of dialogs.
LRESULT CWinDialogWindow::Colour(UINT message, WPARAM context) const
{
    const auto drawing = reinterpret_cast<HDC>(context);
    if (message == WM_CTLCOLORSTATIC) {
        SetTextColor(drawing, GetSysColor(COLOR_BTNTEXT));
        SetBkColor(drawing, GetSysColor(COLOR_BTNFACE));
        return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
    }
    RECT client{};
    GetClientRect(GetHandle(), &client);
    FillRect(drawing, &client, GetSysColorBrush(COLOR_BTNFACE));
    return TRUE;
}

LRESULT CWinDialogWindow::OnMessage(UINT message, WPARAM wide, LPARAM longer)
{
    if (TellDialog(message, wide))
        return 0;
    switch (message) {
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(m_font);
    case DM_GETDEFID:
        return GetControl(IDOK) ? MAKELRESULT(IDOK, DC_HASDEFID) : 0;
    case WM_ERASEBKGND:
    case WM_CTLCOLORSTATIC:
        return Colour(message, wide);
    case WM_DPICHANGED: {
        const auto& place = *reinterpret_cast<const RECT*>(longer);
        SetWindowPos(GetHandle(), nullptr, place.left, place.top, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        SetMessageFont();
        Arrange();
        return 0;
    }
    case WM_NEXTDLGCTL: // to a control, or to the next or the one before
        FocusOn(longer ? reinterpret_cast<HWND>(wide)
                       : GetNextDlgTabItem(GetHandle(), ::GetFocus(), wide != 0));
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wide) == WA_INACTIVE)
            m_focus = ::GetFocus();
        break;
    case WM_SETFOCUS: {
        const bool takesIt = m_focus && IsChild(GetHandle(), m_focus) && IsWindowEnabled(m_focus);
        HWND__* const control = takesIt ? m_focus : GetNextDlgTabItem(GetHandle(), nullptr, FALSE);
        if (control && IsWindowEnabled(control))
            SetFocus(control);
        return 0;
    }
    default:
        break;
    }
    return CControlWindow::OnMessage(message, wide, longer);
}

} // namespace CommonUI

#include "windows/dialogs/WinProgressWindow.h"

#include "windows/detail/CallGuard.h"
#include "windows/detail/ControlWindow.h"
#include "windows/detail/OwnerWindow.h"
#include "windows/detail/WinText.h"

#include <commctrl.h>

#include <algorithm>
#include <vector>

namespace CommonUI
{

namespace
{

constexpr DWORD c_style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;

HFONT MakeFont()
{
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return CreateFontIndirectW(&metrics.lfMessageFont);
}

// A window that takes no input as long as the object lives, and shows so by the pointer.
class CDisabledWindow final : public CSubclass
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

} // namespace

class CWinProgressWindow::CWindow final : public CControlWindow
{
public:
    CWindow(CWinProgressWindow& view, HWND parent)
        : CControlWindow(parent ? GetAncestor(parent, GA_ROOT) : nullptr, 0, {0, 0, 100, 100}, c_style,
                         WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT)
        , m_view(view)
        , m_hasParent(parent != nullptr)
        , m_font(MakeFont())
    {
        const INITCOMMONCONTROLSEX used{sizeof used, ICC_PROGRESS_CLASS};
        InitCommonControlsEx(&used);
        AddControl(L"STATIC", SS_NOPREFIX, ProgressTemplate::c_text);
        AddControl(PROGRESS_CLASSW, 0, ProgressTemplate::c_bar);
        m_cancel = std::make_unique<CCancel>(
            *this, AddControl(L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, ProgressTemplate::c_cancel));
    }
    ~CWindow() override { DeleteObject(m_font); }

    HWND GetControl(int number) const { return GetDlgItem(GetHandle(), number); }

    void Show(bool visible)
    {
        if (!GetHandle() || (IsWindowVisible(GetHandle()) != FALSE) == visible)
            return;
        if (visible) {
            LieOver();
            ShowWindow(GetHandle(), SW_SHOW);
            SetFocus(GetControl(ProgressTemplate::c_cancel));
            return;
        }
        // The system would give the keyboard to another program where the window below takes no input yet.
        HWND__* const below = ::GetWindow(GetHandle(), GW_OWNER);
        if (GetActiveWindow() == GetHandle() && below && IsWindowEnabled(below))
            SetActiveWindow(below);
        ShowWindow(GetHandle(), SW_HIDE);
    }
    void SetModal(bool modal)
    {
        m_disabled.clear();
        m_below = nullptr;
        if (!modal)
            return;
        m_below = GetOwnerWindow(); // which later is one of those that take no input
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM self) CALLBACK -> BOOL {
                GuardedCall([&] { reinterpret_cast<CWindow*>(self)->Disable(window); });
                return TRUE;
            },
            reinterpret_cast<LPARAM>(this));
    }
    void SetBusy(bool busy) { m_busy = busy; }

    SIZE Measure(const std::wstring& text, int width) const
    {
        HDC__* const context = GetDC(GetHandle());
        void* const before = SelectObject(context, m_font);
        RECT area{0, 0, width, 0};
        DrawTextW(context, text.c_str(), -1, &area, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
        SelectObject(context, before);
        ReleaseDC(GetHandle(), context);
        return {area.right, area.bottom};
    }
    // The average width of a character and its height, of which a dialog unit is a quarter and an eighth.
    SIZE GetUnits() const
    {
        constexpr int c_letters = 52;
        const SIZE size = Measure(L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz", 100'000);
        return {std::max<LONG>((size.cx + c_letters / 2) / c_letters, 1), std::max<LONG>(size.cy, 1)};
    }
    void Place(const SProgressLayout& layout)
    {
        const SIZE units = GetUnits();
        const auto width = [&](int value) { return MulDiv(value, units.cx, 4); };
        const auto height = [&](int value) { return MulDiv(value, units.cy, 8); };
        RECT whole{0, 0, width(layout.dialog.cx), height(layout.dialog.cy)};
        AdjustWindowRectEx(&whole, c_style, FALSE, WS_EX_DLGMODALFRAME);
        SetWindowPos(GetHandle(), nullptr, 0, 0, whole.right - whole.left, whole.bottom - whole.top,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        const auto place = [&](int number, const SRect& rect, int more) {
            SetWindowPos(GetControl(number), nullptr, width(rect.left) - more / 2, height(rect.top),
                         width(rect.GetWidth()) + more, height(rect.GetHeight()),
                         SWP_NOZORDER | SWP_NOACTIVATE);
        };
        place(ProgressTemplate::c_text, layout.text, 0);
        place(ProgressTemplate::c_bar, layout.bar, 0);
        place(ProgressTemplate::c_cancel, layout.cancel, GetMissing(width(layout.cancel.GetWidth())));
        InvalidateRect(GetHandle(), nullptr, TRUE);
    }

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override
    {
        HWND__* const window = GetHandle();
        CProgressDialogBase* const dialog = m_view.GetControl();
        const bool isEscape = message == WM_KEYDOWN && wide == VK_ESCAPE;
        const bool isButton = message == WM_COMMAND && LOWORD(wide) == ProgressTemplate::c_cancel;
        if (dialog && (message == WM_CLOSE || isEscape || isButton))
            GuardedCall([dialog] { dialog->OnCancel(); });
        else if (dialog && message == WM_HELP)
            GuardedCall([dialog] { dialog->OnHelpInfo(); });
        else if (dialog && message == WM_PAINT && !MayPaint(*dialog))
            ValidateRect(window, nullptr);
        else if (message == WM_ERASEBKGND || message == WM_CTLCOLORSTATIC)
            return Colour(message, wide);
        else if (message != WM_CLOSE)
            return DefWindowProcW(window, message, wide, longer);
        return 0;
    }

private:
    // The button, where Escape is to cancel in whatever loop runs.
    class CCancel final : public CSubclass
    {
    public:
        CCancel(CWindow& owner, HWND button)
            : CSubclass(button)
            , m_owner(owner)
        {
        }

    protected:
        LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override
        {
            if (message == WM_KEYDOWN && wide == VK_ESCAPE)
                return SendMessageW(m_owner.GetHandle(), message, wide, longer);
            return PassOn(message, wide, longer);
        }

    private:
        CWindow& m_owner;
    };

    HWND AddControl(const wchar_t* type, DWORD style, int number)
    {
        HWND__* const control =
            CreateWindowExW(0, type, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, GetHandle(),
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(number)), GetModule(), nullptr);
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(m_font), FALSE);
        return control;
    }
    void Disable(HWND window)
    {
        if (window != GetHandle() && IsWindowVisible(window) && IsWindowEnabled(window))
            m_disabled.push_back(std::make_unique<CDisabledWindow>(window, m_busy));
    }
    // Over the middle of the window below.
    void LieOver()
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
        const SRect around =
            below ? GetScreenRect(below) : SRect{work.left, work.top, work.right, work.bottom};
        const SRect own = GetScreenRect(GetHandle());
        const int left = around.left + (around.GetWidth() - own.GetWidth()) / 2;
        const int top = around.top + (around.GetHeight() - own.GetHeight()) / 2;
        SetWindowPos(GetHandle(), nullptr, std::max<int>(work.left, left), std::max<int>(work.top, top), 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    // What the text of the button needs more than the template has.
    int GetMissing(int width) const
    {
        wchar_t text[100] = {};
        GetWindowTextW(GetControl(ProgressTemplate::c_cancel), text, 100);
        const SIZE needed = Measure(text, 100'000);
        return std::max<int>(0, needed.cx + 2 * needed.cy - width);
    }
    static bool MayPaint(CProgressDialogBase& dialog)
    {
        bool may = true;
        GuardedCall([&] { may = dialog.OnPaint(); });
        return may;
    }
    // The ground of dialogs.
    LRESULT Colour(UINT message, WPARAM context) const
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

    CWinProgressWindow& m_view;
    bool m_hasParent;
    HWND m_below = nullptr; // the application's window when all were disabled
    HFONT m_font;
    bool m_busy = false;
    std::unique_ptr<CCancel> m_cancel;
    std::vector<std::unique_ptr<CDisabledWindow>> m_disabled;
};

CWinProgressWindow::CWinProgressWindow(HWND__* parent)
    : m_window(std::make_unique<CWindow>(*this, parent))
{
    SetLayout({});
}

CWinProgressWindow::~CWinProgressWindow() = default;

void CWinProgressWindow::Show(bool visible)
{
    m_window->Show(visible);
}

void CWinProgressWindow::SetModal(bool modal)
{
    m_window->SetModal(modal);
}

void CWinProgressWindow::SetBusy(bool busy)
{
    m_window->SetBusy(busy);
}

void CWinProgressWindow::SetCaption(const CStr& caption)
{
    SetWindowTextW(GetWindow(), ToWide(caption).c_str());
}

void CWinProgressWindow::SetText(int control, const CStr& text)
{
    SetWindowTextW(m_window->GetControl(control), ToWide(text).c_str());
}

void CWinProgressWindow::Enable(int control, bool enable)
{
    HWND__* const window = m_window->GetControl(control);
    // A control without input keeps the keyboard, and Escape with it.
    if (!enable && window && ::GetFocus() == window)
        ::SetFocus(GetWindow());
    EnableWindow(window, enable);
    if (enable && control == ProgressTemplate::c_cancel && ::GetFocus() == GetWindow())
        ::SetFocus(window);
}

void CWinProgressWindow::SetBarRange(int minimum, int maximum)
{
    SendMessageW(m_window->GetControl(ProgressTemplate::c_bar), PBM_SETRANGE32, static_cast<WPARAM>(minimum),
                 std::max(maximum, minimum + 1));
}

void CWinProgressWindow::SetBarPosition(int position)
{
    SendMessageW(m_window->GetControl(ProgressTemplate::c_bar), PBM_SETPOS, static_cast<WPARAM>(position), 0);
}

SSize CWinProgressWindow::MeasureText(const CStr& text, int width) const
{
    const SIZE units = m_window->GetUnits();
    SIZE size = m_window->Measure(ToWide(text), MulDiv(width, units.cx, 4));
    // The Cancel button below must stay on the screen.
    size.cy = std::min<LONG>(size.cy, GetSystemMetrics(SM_CYSCREEN) / 2);
    return {static_cast<int>((size.cx * 4 + units.cx - 1) / units.cx),
            static_cast<int>((size.cy * 8 + units.cy - 1) / units.cy)};
}

void CWinProgressWindow::SetLayout(const SProgressLayout& layout)
{
    m_window->Place(layout);
}

void CWinProgressWindow::SetIcon(const void* icon)
{
    SendMessageW(GetWindow(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
}

void CWinProgressWindow::BringParentToTop()
{
    if (HWND__* const below = ::GetWindow(GetWindow(), GW_OWNER))
        BringWindowToTop(below);
}

HWND__* CWinProgressWindow::GetWindow() const noexcept
{
    return m_window->GetHandle();
}

} // namespace CommonUI

#include "windows/edits/detail/WinStepSizePopup.h"

#include "windows/detail/CallGuard.h"
#include "windows/detail/ControlWindow.h"
#include "windows/detail/Theme.h"
#include "windows/detail/WinText.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

RECT ToRECT(const SRect& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

COLORREF GetGround()
{
    constexpr SColor c_ground = c_StepSizeBackground;
    return IsHighContrast() ? GetSysColor(COLOR_WINDOW)
                            : ToColorRef(c_ground.red, c_ground.green, c_ground.blue);
}

void Fill(HDC context, const RECT& rect, COLORREF color)
{
    HBRUSH__* const brush = CreateSolidBrush(color);
    FillRect(context, &rect, brush);
    DeleteObject(brush);
}

void Frame(HDC context, const RECT& rect, COLORREF color)
{
    HBRUSH__* const brush = CreateSolidBrush(color);
    FrameRect(context, &rect, brush);
    DeleteObject(brush);
}

HFONT MakeFont(int height)
{
    return CreateFontW(-std::max(height, 1), 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                       CLEARTYPE_QUALITY, 0, L"MS Shell Dlg 2");
}

// A text as large as it fits.
void WriteLarge(HDC context, RECT rect, const wchar_t* text)
{
    constexpr int c_tried = 100;
    HFONT__* font = MakeFont(c_tried);
    void* const before = SelectObject(context, font);
    SIZE size{};
    GetTextExtentPoint32W(context, text, lstrlenW(text), &size);
    const int byWidth = c_tried * (rect.right - rect.left - 4) / std::max<int>(size.cx, 1);
    HFONT__* const fitting = MakeFont(std::min<int>(byWidth, rect.bottom - rect.top - 1));
    SelectObject(context, fitting);
    DrawTextW(context, text, -1, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    SelectObject(context, before);
    DeleteObject(fitting);
    DeleteObject(font);
}

} // namespace

// The window that the spin button is in, while the pop-up is shown.
class CWinStepSizePopup::COwnerWatch final : public CSubclass
{
public:
    COwnerWatch(CWinStepSizePopup& popup, HWND owner)
        : CSubclass(owner)
        , m_popup(popup)
    {
    }

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override
    {
        const bool leaves = message == WM_ACTIVATE && LOWORD(wide) == WA_INACTIVE;
        const bool hides = message == WM_SHOWWINDOW && !wide;
        HWND__* const owner = GetHandle();
        if ((leaves || hides || message == WM_MOVE || message == WM_SIZE) && m_popup.GetControl())
            m_popup.GetControl()->Close(); // the end of this object
        return DefSubclassProc(owner, message, wide, longer);
    }

private:
    CWinStepSizePopup& m_popup;
};

CWinStepSizePopup::CWinStepSizePopup(HWND spin)
    : CControlWindow(GetAncestor(spin, GA_ROOT), 0, {}, WS_POPUP,
                     WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE)
    , m_spin(spin)
    , m_tip(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                            0, 0, 0, 0, GetHandle(), nullptr, GetModule(), nullptr))
{
}

CWinStepSizePopup::~CWinStepSizePopup() = default;

// Whether the pop-up, which is as wide as high when it is fully out, ends on the monitor.
bool CWinStepSizePopup::HasRoom(const SRect& screen) const
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    return !GetMonitorInfoW(MonitorFromWindow(m_spin, MONITOR_DEFAULTTONEAREST), &monitor) ||
           screen.left + screen.GetHeight() <= monitor.rcMonitor.right;
}

void CWinStepSizePopup::Place(const SRect& screen, const SRect& upper, const SRect& lower)
{
    const bool toTheLeft = !HasRoom(screen);
    const int left = toTheLeft ? CommonUI::GetScreenRect(m_spin).left - screen.GetWidth() : screen.left;
    // The halves are as wide as the pop-up will be. What slides out of the left edge shows their right ends.
    const int from = toTheLeft ? screen.GetWidth() - screen.GetHeight() : 0;
    const int to = from + screen.GetHeight();
    m_halves = {SRect{from, upper.top, to, upper.bottom}, SRect{from, lower.top, to, lower.bottom}};
    if (!m_watch)
        m_watch = std::make_unique<COwnerWatch>(*this, GetAncestor(m_spin, GA_ROOT));
    SetWindowPos(GetHandle(), HWND_TOPMOST, left, screen.top, screen.GetWidth(), screen.GetHeight(),
                 SWP_NOACTIVATE | SWP_SHOWWINDOW);
    InvalidateRect(GetHandle(), nullptr, FALSE);
}

void CWinStepSizePopup::Hide()
{
    m_watch.reset();
    m_hot.reset();
    m_pressed.reset();
    if (GetHandle())
        ShowWindow(GetHandle(), SW_HIDE);
}

void CWinStepSizePopup::SetToolTip(const CStr& text)
{
    std::wstring shown = ToWide(text);
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE; // which all systems know
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = GetHandle();
    tool.uId = reinterpret_cast<UINT_PTR>(GetHandle());
    tool.lpszText = shown.data();
    SendMessageW(m_tip, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    if (!shown.empty())
        SendMessageW(m_tip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void CWinStepSizePopup::DrawHalf(HDC context, CStepSizeBtn::EType type) const
{
    const bool isLarger = type == CStepSizeBtn::EType::Larger;
    const RECT rect = ToRECT(m_halves[static_cast<std::size_t>(type)]);
    const bool isPressed = m_pressed == type;
    if (isPressed)
        Fill(context, rect, GetSysColor(COLOR_HIGHLIGHT));
    else if (m_hot == type)
        Fill(context, rect, IsHighContrast() ? GetSysColor(COLOR_WINDOW) : ToColorRef(244, 244, 244));
    Frame(context, rect, IsHighContrast() ? GetSysColor(COLOR_WINDOWTEXT) : ToColorRef(150, 150, 150));
    const COLORREF plain = IsHighContrast() ? GetSysColor(COLOR_WINDOWTEXT) : ToColorRef(0, 0, 0);
    SetTextColor(context, isPressed ? GetSysColor(COLOR_HIGHLIGHTTEXT) : plain);
    WriteLarge(context, rect, isLarger ? L"\u00D710" : L"\u00F710");
}

void CWinStepSizePopup::Draw(HDC context) const
{
    RECT whole{};
    GetClientRect(GetHandle(), &whole);
    Fill(context, whole, GetGround());
    DrawHalf(context, CStepSizeBtn::EType::Larger);
    DrawHalf(context, CStepSizeBtn::EType::Smaller);
}

std::optional<CStepSizeBtn::EType> CWinStepSizePopup::FindHalf(SPoint point) const
{
    for (const auto type : {CStepSizeBtn::EType::Larger, CStepSizeBtn::EType::Smaller})
        if (m_halves[static_cast<std::size_t>(type)].Contains(point))
            return type;
    return std::nullopt;
}

// The pointer is over that half, or over none.
void CWinStepSizePopup::Point(std::optional<CStepSizeBtn::EType> half)
{
    CStepSizeCtrl* const control = GetControl();
    const auto before = std::exchange(m_hot, half);
    if (before == half || !control)
        return;
    InvalidateRect(GetHandle(), nullptr, FALSE);
    if (half)
        AwaitPointerLeft(GetHandle());
    GuardedCall([&] {
        if (before)
            control->GetButton(*before).OnPointerLeft();
        if (half)
            control->GetButton(*half).OnPointerEntered();
    });
}

void CWinStepSizePopup::Release(SPoint point)
{
    const auto pressed = std::exchange(m_pressed, std::nullopt);
    InvalidateRect(GetHandle(), nullptr, FALSE);
    if (CStepSizeCtrl* const control = GetControl(); control && pressed && FindHalf(point) == pressed)
        GuardedCall([&] { control->GetButton(*pressed).OnClicked(); });
}

LRESULT CWinStepSizePopup::OnMessage(UINT message, WPARAM wide, LPARAM longer)
{
    switch (message) {
    case WM_MOUSEACTIVATE:
        return MA_NOACTIVATE;
    case WM_ERASEBKGND:
        return TRUE;
    case WM_PAINT:
        Draw(CBufferedPaint(GetHandle()).GetContext());
        return 0;
    case WM_MOUSEMOVE:
        Point(FindHalf(PointOf(longer)));
        return 0;
    case WM_MOUSELEAVE:
        m_pressed.reset();
        Point(std::nullopt);
        return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        m_pressed = FindHalf(PointOf(longer));
        InvalidateRect(GetHandle(), nullptr, FALSE);
        return 0;
    case WM_LBUTTONUP:
        Release(PointOf(longer));
        return 0;
    default:
        return CControlWindow::OnMessage(message, wide, longer);
    }
}

} // namespace CommonUI

#include "windows/grid/detail/WinGridView.h"

#include "windows/detail/CallGuard.h"
#include "windows/detail/WinText.h"
#include "windows/grid/detail/WinGridPainter.h"

#include <algorithm>
#include <optional>
#include <system_error>
#include <utility>

namespace CommonUI
{

namespace
{

constexpr UINT_PTR c_repeat = 1;
constexpr UINT c_repeatTime = 50;     // milliseconds between two rows while the mouse is held outside
constexpr long long c_most = 1 << 30; // of what a scroll bar counts

constexpr struct {
    WPARAM code;
    EGridKey key;
} c_keys[] = {
    {VK_LEFT, EGridKey::Left},    {VK_RIGHT, EGridKey::Right},   {VK_UP, EGridKey::Up},
    {VK_DOWN, EGridKey::Down},    {VK_HOME, EGridKey::Home},     {VK_END, EGridKey::End},
    {VK_PRIOR, EGridKey::PageUp}, {VK_NEXT, EGridKey::PageDown}, {VK_SPACE, EGridKey::Space},
    {VK_RETURN, EGridKey::Enter}, {VK_F2, EGridKey::F2},
};

std::optional<SGridKey> ToGridKey(WPARAM code)
{
    const SGridModifiers modifiers{.shift = IsHeld(VK_SHIFT), .control = IsHeld(VK_CONTROL)};
    if (modifiers.control && (code == 'C' || code == VK_INSERT))
        return SGridKey{EGridKey::C, {.control = true}};
    if (modifiers.control && code == 'A')
        return SGridKey{EGridKey::A, {.control = true}};
    for (const auto& row : c_keys)
        if (row.code == code)
            return SGridKey{row.key, modifiers};
    return std::nullopt;
}

// The position that a message of a scroll bar asks for.
long long FindPosition(const SCROLLINFO& info, WORD request, long long line)
{
    switch (request) {
    case SB_LINEUP:
        return info.nPos - line;
    case SB_LINEDOWN:
        return info.nPos + line;
    case SB_PAGEUP:
        return info.nPos - static_cast<long long>(info.nPage);
    case SB_PAGEDOWN:
        return info.nPos + static_cast<long long>(info.nPage);
    case SB_TOP:
        return 0;
    case SB_BOTTOM:
        return info.nMax;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        return info.nTrackPos;
    default:
        return info.nPos;
    }
}

// Whether the message that a dialog asks about is the key.
bool IsEnter(LPARAM message)
{
    const auto* const asked = reinterpret_cast<const MSG*>(message);
    return asked && asked->message == WM_KEYDOWN && asked->wParam == VK_RETURN;
}

// As Enter does in a dialog.
void PressDefaultButton(HWND dialog)
{
    const auto answer = static_cast<DWORD>(SendMessageW(dialog, DM_GETDEFID, 0, 0));
    const WORD button = HIWORD(answer) == DC_HASDEFID ? LOWORD(answer) : static_cast<WORD>(IDOK);
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
}

// A line around everything, as themes draw it around fields.
void DrawEdge(HWND window)
{
    const SRect place = GetScreenRect(window);
    RECT edge{0, 0, place.GetWidth(), place.GetHeight()};
    HDC__* const context = GetWindowDC(window);
    FrameRect(context, &edge, GetSysColorBrush(COLOR_BTNSHADOW));
    InflateRect(&edge, -1, -1);
    FrameRect(context, &edge, GetSysColorBrush(COLOR_WINDOW));
    ReleaseDC(window, context);
}

int GetWheelLines(bool sideways)
{
    UINT lines = 3;
    SystemParametersInfoW(sideways ? SPI_GETWHEELSCROLLCHARS : SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    return static_cast<int>(std::min(lines, 100U)); // a page is asked for by a huge number
}

} // namespace

CWinGridView::CWinGridView(HWND parent, int identifier, const SRect& place)
    : CControlWindow(parent, identifier, place,
                     WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_HSCROLL | WS_VSCROLL | WS_CLIPSIBLINGS |
                         WS_CLIPCHILDREN,
                     WS_EX_CLIENTEDGE)
{
    const auto font = reinterpret_cast<HFONT>(SendMessageW(parent, WM_GETFONT, 0, 0));
    m_font = font ? font : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

CWinGridView::~CWinGridView() = default;

std::unique_ptr<CWinGridView> CWinGridView::Replace(HWND dialog, int identifier)
{
    HWND__* const control = GetDlgItem(dialog, identifier);
    if (!control)
        throw std::system_error(ERROR_INVALID_WINDOW_HANDLE, std::system_category(), "the place of a table");
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    auto view = std::make_unique<CWinGridView>(dialog, identifier,
                                               SRect{place.left, place.top, place.right, place.bottom});
    SetWindowPos(view->GetHandle(), control, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    DestroyWindow(control);
    return view;
}

void CWinGridView::Attach(CGridPane& grid)
{
    CloseEditor();
    grid.SetView(this);
    m_lineHeight = 0;
    UpdateLineHeight();
    grid.SetViewSize(GetSize());
    UpdateFocus();
}

SSize CWinGridView::GetSize() const
{
    RECT client{};
    GetClientRect(GetHandle(), &client);
    return {client.right, client.bottom};
}

void CWinGridView::SetFont(HFONT font)
{
    m_font = font ? font : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    if (m_editor)
        SendMessageW(m_editor->GetHandle(), WM_SETFONT, reinterpret_cast<WPARAM>(m_font), TRUE);
    UpdateLineHeight();
    InvalidateRect(GetHandle(), nullptr, FALSE);
}

// Columns grow and shrink with the font.
void CWinGridView::UpdateLineHeight()
{
    HDC__* const context = GetDC(GetHandle());
    void* const selected = SelectObject(context, m_font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(context, &metrics);
    SelectObject(context, selected);
    ReleaseDC(GetHandle(), context);
    const int before = std::exchange(m_lineHeight, std::max<int>(metrics.tmHeight, 1) + 2);
    CGridPane* const grid = GetControl();
    if (!grid || before == m_lineHeight)
        return;
    grid->SetLineHeight(m_lineHeight);
    for (std::size_t column = 0; before != 0 && column < grid->GetColumnCount(); ++column)
        grid->SetColumnWidth(column, grid->GetColumnWidth(column) * m_lineHeight / before);
}

int CWinGridView::GetTextWidth(std::u16string_view text) const
{
    const std::wstring shown = ToWide(text);
    HDC__* const context = GetDC(GetHandle());
    void* const selected = SelectObject(context, m_font);
    SIZE size{};
    GetTextExtentPoint32W(context, shown.c_str(), static_cast<int>(shown.size()), &size);
    SelectObject(context, selected);
    ReleaseDC(GetHandle(), context);
    return size.cx;
}

void CWinGridView::Invalidate(const SRect& rect)
{
    const RECT area{rect.left, rect.top, rect.right, rect.bottom};
    InvalidateRect(GetHandle(), &area, FALSE);
}

void CWinGridView::Paint()
{
    const CBufferedPaint paint(GetHandle());
    const RECT& clip = paint.GetClip();
    CWinGridPainter painter(paint.GetContext());
    painter.FillRest({clip.left, clip.top, clip.right, clip.bottom}, false);
    const CGridPane* const grid = GetControl();
    if (!grid)
        return;
    void* const before = SelectObject(paint.GetContext(), m_font);
    GuardedCall([&] { grid->Draw(painter, {clip.left, clip.top, clip.right, clip.bottom}); });
    painter.FillRest(
        {grid->GetExtent().width - grid->GetScrollLeft(), 0, GetSize().cx, grid->GetHeaderHeight()}, true);
    SelectObject(paint.GetContext(), before);
}

void CWinGridView::SetBar(int bar, long long range, int page, long long position) const
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = static_cast<int>(std::max(range - 1, 0LL));
    info.nPage = static_cast<UINT>(std::max(page, 1));
    info.nPos = static_cast<int>(position);
    SetScrollInfo(GetHandle(), bar, &info, TRUE);
}

void CWinGridView::UpdateScrollBars()
{
    const CGridPane* const grid = GetControl();
    if (!grid || !GetHandle())
        return;
    const CGridPane::SExtent extent = grid->GetExtent();
    // Two bars that are there, each because the other takes room, go together. A bar that comes or goes
    // changes the size of the view, which leads here again.
    const SRect whole = GetScreenRect(GetHandle());
    const SSize most{whole.GetWidth() - 2 * GetSystemMetrics(SM_CXEDGE),
                     whole.GetHeight() - 2 * GetSystemMetrics(SM_CYEDGE)};
    const bool fits = extent.width <= most.cx && extent.height <= most.cy;
    m_rowsScale = extent.height / c_most + 1;
    SetBar(SB_VERT, (extent.height + m_rowsScale - 1) / m_rowsScale,
           static_cast<int>((fits ? most.cy : GetSize().cy) / m_rowsScale),
           grid->GetScrollTop() / m_rowsScale);
    SetBar(SB_HORZ, extent.width, fits ? most.cx : GetSize().cx, grid->GetScrollLeft());
}

void CWinGridView::Scroll(int bar, WPARAM wide)
{
    CGridPane& grid = *GetControl();
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(GetHandle(), bar, &info);
    if (bar == SB_HORZ) {
        const long long left = FindPosition(info, LOWORD(wide), grid.GetRowHeight());
        grid.ScrollTo(static_cast<int>(std::clamp(left, 0LL, c_most)), grid.GetScrollTop());
        return;
    }
    const long long line = std::max(grid.GetRowHeight() / m_rowsScale, 1LL);
    grid.ScrollTo(grid.GetScrollLeft(), FindPosition(info, LOWORD(wide), line) * m_rowsScale);
}

void CWinGridView::TakeWheel(int delta, bool sideways)
{
    CGridPane& grid = *GetControl();
    const int turned = m_wheelRest + delta * GetWheelLines(sideways) * grid.GetRowHeight();
    const int pixels = turned / WHEEL_DELTA;
    m_wheelRest = turned % WHEEL_DELTA; // a fine wheel gathers its turns
    if (sideways)
        grid.ScrollTo(grid.GetScrollLeft() + pixels, grid.GetScrollTop());
    else
        grid.ScrollTo(grid.GetScrollLeft(), grid.GetScrollTop() - pixels);
}

bool CWinGridView::TakeKey(WPARAM code)
{
    CGridPane& grid = *GetControl();
    if (IsHeld(VK_CONTROL) && (code == VK_ADD || code == VK_OEM_PLUS)) {
        GuardedCall([&] { grid.OnFitColumns(); });
        return true;
    }
    const auto key = ToGridKey(code);
    // A callback that throws has used the key.
    bool used = key.has_value();
    GuardedCall([&] { used = key && grid.OnKey(*key); });
    if (!used && code == VK_RETURN)
        PressDefaultButton(GetParent(GetHandle()));
    return used;
}

// Alt and Shift are held.
bool CWinGridView::TakeColumnKey(WPARAM code)
{
    if (!IsHeld(VK_SHIFT) || (code != VK_LEFT && code != VK_RIGHT))
        return false;
    GuardedCall([grid = GetControl(), steps = code == VK_RIGHT ? 1 : -1] { grid->OnWiden(steps); });
    return true;
}

// The object may be gone afterwards.
void CWinGridView::SendMouse(unsigned int message, SPoint point)
{
    const SGridModifiers modifiers{.shift = IsHeld(VK_SHIFT), .control = IsHeld(VK_CONTROL)};
    GuardedCall([&, grid = GetControl()] {
        if (grid)
            grid->OnMouse(message, point, modifiers);
    });
}

void CWinGridView::Release(SPoint point, bool isCaptured)
{
    if (!std::exchange(m_pressed, false))
        return;
    KillTimer(GetHandle(), c_repeat);
    if (isCaptured)
        ReleaseCapture();
    SendMouse(GridMouse::c_leftUp, point);
}

// Who had the keyboard may end the dialog over it.
bool CWinGridView::TakeFocusAlive()
{
    const std::weak_ptr<void> life = m_life;
    TakeFocus();
    return !life.expired() && GetHandle();
}

bool CWinGridView::TakeRelease(SPoint point)
{
    const std::weak_ptr<void> life = m_life;
    Release(point, true);
    if (!life.expired() && m_editor)
        m_editor->DropDown();
    return true;
}

bool CWinGridView::TakeMouse(UINT message, LPARAM longer)
{
    const SPoint point = PointOf(longer);
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        if (!TakeFocusAlive())
            return true;
        m_pressed = true;
        m_pointer = point;
        SetCapture(GetHandle());
        SendMouse(message, point);
        return true;
    case WM_LBUTTONUP:
        return TakeRelease(point);
    case WM_RBUTTONDOWN:
        if (TakeFocusAlive())
            SendMouse(message, point);
        return true;
    default:
        break;
    }
    if (!m_pressed) // only what is dragged is the grid's
        return false;
    m_pointer = point;
    const SRect cells{0, GetControl()->GetBodyTop(), GetSize().cx, GetSize().cy};
    if (cells.Contains(point))
        KillTimer(GetHandle(), c_repeat);
    else
        SetTimer(GetHandle(), c_repeat, c_repeatTime, nullptr);
    SendMouse(GridMouse::c_move, point);
    return true;
}

bool CWinGridView::ShowCursor() const
{
    POINT point{};
    GetCursorPos(&point);
    ScreenToClient(GetHandle(), &point);
    constexpr WORD c_hand = 32649, c_text = 32513, c_resize = 32644, c_arrow = 32512;
    WORD shape = c_arrow;
    switch (GetControl()->OnSetCursor({point.x, point.y})) {
    case EGridCursor::Hand:
        shape = c_hand;
        break;
    case EGridCursor::Text:
        shape = c_text;
        break;
    case EGridCursor::Resize:
        shape = c_resize;
        break;
    default:
        break;
    }
    SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(shape)));
    return true;
}

// Asked for by the mouse, or by a key where the place is -1.
void CWinGridView::OpenMenu(LPARAM place)
{
    CGridPane& grid = *GetControl();
    const SPoint asked = PointOf(place);
    POINT point{asked.x, asked.y};
    if (place == -1) {
        const SRect focus = grid.GetCellRect(grid.GetSelection().GetFocus());
        const SSize size = GetSize();
        point = {std::clamp(focus.left, 0, size.cx), std::clamp(focus.bottom, 0, size.cy)};
        ClientToScreen(GetHandle(), &point);
    } else {
        // The menu is about what lies below it.
        POINT local = point;
        ScreenToClient(GetHandle(), &local);
        const SGridHit hit = grid.HitTest({local.x, local.y});
        const std::weak_ptr<void> life = m_life;
        if (hit.part == SGridHit::EPart::Cell && !grid.GetSelection().Contains(hit.cell))
            GuardedCall([&] { grid.SelectCell(hit.cell); });
        if (life.expired())
            return;
    }
    if (m_menu)
        GuardedCall([menu = m_menu, point] { menu({point.x, point.y}); });
}

// What is the grid's business. The object may be gone afterwards.
bool CWinGridView::TakeMessage(UINT message, WPARAM wide, LPARAM longer)
{
    switch (message) {
    case WM_SIZE:
        GetControl()->SetViewSize(GetSize());
        return true;
    case WM_KEYDOWN:
        return TakeKey(wide);
    case WM_CHAR:
        return TakeCharacter(static_cast<wchar_t>(wide));
    case WM_SYSKEYDOWN:
        return TakeColumnKey(wide);
    case WM_VSCROLL:
    case WM_HSCROLL:
        Scroll(message == WM_VSCROLL ? SB_VERT : SB_HORZ, wide);
        return true;
    case WM_MOUSEWHEEL:
        TakeWheel(IsHeld(VK_SHIFT) ? -GET_WHEEL_DELTA_WPARAM(wide) : GET_WHEEL_DELTA_WPARAM(wide),
                  IsHeld(VK_SHIFT));
        return true;
    case WM_MOUSEHWHEEL:
        TakeWheel(GET_WHEEL_DELTA_WPARAM(wide), true);
        return true;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
    case WM_MOUSEMOVE:
        return TakeMouse(message, longer);
    case WM_CAPTURECHANGED: // somebody else gets the release
        Release(m_pointer, false);
        return true;
    case WM_TIMER:
        SendMouse(GridMouse::c_move, m_pointer);
        return true;
    case WM_SETCURSOR:
        return LOWORD(longer) == HTCLIENT && ShowCursor();
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        UpdateFocus();
        return true;
    case WM_CONTEXTMENU:
        OpenMenu(longer);
        return true;
    default:
        return false;
    }
}

LRESULT CWinGridView::OnMessage(UINT message, WPARAM wide, LPARAM longer)
{
    HWND__* const window = GetHandle();
    switch (message) {
    case WM_PAINT:
        Paint();
        return 0;
    case WM_ERASEBKGND:
        return TRUE;
    case WM_NCPAINT:
        DefWindowProcW(window, message, wide, longer);
        DrawEdge(window);
        return 0;
    case WM_GETDLGCODE: // Tab and Escape are the dialog's
        return DLGC_WANTARROWS | DLGC_WANTCHARS | (m_takesEnter && IsEnter(longer) ? DLGC_WANTMESSAGE : 0);
    case WM_SETFONT:
        SetFont(reinterpret_cast<HFONT>(wide));
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(m_font);
    case WM_GETOBJECT:
        if (const LRESULT answer = m_automation.Answer(wide, longer))
            return answer;
        break;
    case WM_DESTROY:
        m_automation.End();
        break;
    default:
        break;
    }
    if (TakeEditorMessage(message, wide, longer))
        return 0;
    const bool used = GetControl() && TakeMessage(message, wide, longer);
    if (used)
        return message == WM_SETCURSOR ? TRUE : 0;
    return DefWindowProcW(window, message, wide, longer);
}

} // namespace CommonUI

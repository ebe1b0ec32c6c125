#include "windows/grid/detail/WinGridPainter.h"

#include "windows/detail/ControlWindow.h"
#include "windows/detail/WinText.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

SColor FromSystem(int index)
{
    const COLORREF color = GetSysColor(index);
    return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

COLORREF ToRef(SColor color)
{
    return ToColorRef(color.red, color.green, color.blue);
}

SColor Mix(SColor from, SColor to, double part)
{
    const auto mix = [part](int low, int high) {
        return static_cast<std::uint8_t>(low + static_cast<int>((high - low) * part));
    };
    return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue)};
}

// The colour of empty cells with a part of that of their text.
SColor Blend(double part)
{
    return Mix(FromSystem(COLOR_WINDOW), FromSystem(COLOR_WINDOWTEXT), part);
}

SColor GetGround(EGridBackground background)
{
    constexpr double c_header = 0.06;
    switch (background) {
    case EGridBackground::Header:
        return Blend(c_header);
    case EGridBackground::MarkedHeader:
        return Mix(Blend(c_header), FromSystem(COLOR_HIGHLIGHT), 0.35);
    case EGridBackground::SubHeader:
        return Blend(0.13);
    case EGridBackground::Selected:
        return FromSystem(COLOR_HIGHLIGHT);
    default:
        return FromSystem(COLOR_WINDOW);
    }
}

RECT ToRECT(const SRect& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

// A square of that size in the middle of a rectangle, or the largest that fits.
RECT Centred(const SRect& rect, int size)
{
    size = std::min({size, rect.GetWidth(), rect.GetHeight()});
    const int left = rect.left + (rect.GetWidth() - size) / 2;
    const int top = rect.top + (rect.GetHeight() - size) / 2;
    return {left, top, left + size, top + size};
}

} // namespace

CWinGridPainter::CWinGridPainter(HDC context)
    : m_context(context)
    , m_textColor(FromSystem(COLOR_WINDOWTEXT))
{
    SetBkMode(context, TRANSPARENT);
}

CWinGridPainter::~CWinGridPainter() = default;

SColor CWinGridPainter::GetStyleColor(EGridColor color) const
{
    switch (color) {
    case EGridColor::Disabled:
        return FromSystem(COLOR_GRAYTEXT);
    case EGridColor::Selected:
        return FromSystem(COLOR_HIGHLIGHTTEXT);
    default:
        return FromSystem(COLOR_WINDOWTEXT);
    }
}

void CWinGridPainter::Fill(const SRect& rect, SColor color)
{
    HBRUSH__* const brush = CreateSolidBrush(ToRef(color));
    const RECT area = ToRECT(rect);
    FillRect(m_context, &area, brush);
    DeleteObject(brush);
}

// At the right and at the bottom.
void CWinGridPainter::DrawLines(const SRect& rect)
{
    const SColor line = Blend(0.16);
    Fill({rect.left, rect.bottom - 1, rect.right, rect.bottom}, line);
    Fill({rect.right - 1, rect.top, rect.right, rect.bottom}, line);
}

void CWinGridPainter::FillBackground(const SRect& rect, EGridBackground background)
{
    Fill(rect, GetGround(background));
    DrawLines(rect);
}

void CWinGridPainter::FillRest(const SRect& rect, bool header)
{
    if (rect.IsEmpty())
        return;
    Fill(rect, GetGround(header ? EGridBackground::Header : EGridBackground::Plain));
    if (header)
        Fill({rect.left, rect.bottom - 1, rect.right, rect.bottom}, Blend(0.16));
}

void CWinGridPainter::WriteText(const SRect& rect, std::u16string_view text, EGridAlign align)
{
    const std::wstring shown = ToWide(text);
    RECT area = ToRECT(rect);
    const UINT side = align == EGridAlign::Left     ? DT_LEFT
                      : align == EGridAlign::Center ? DT_CENTER
                                                    : DT_RIGHT;
    ::SetTextColor(m_context, ToRef(m_textColor));
    DrawTextW(m_context, shown.c_str(), static_cast<int>(shown.size()), &area,
              side | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
}

void CWinGridPainter::DrawCheckBox(const SRect& rect, EGridCheck state, bool enabled)
{
    RECT box = Centred(rect, GetSystemMetrics(SM_CXMENUCHECK));
    const UINT kind = state == EGridCheck::Indeterminate ? DFCS_BUTTON3STATE : DFCS_BUTTONCHECK;
    DrawFrameControl(m_context, &box, DFC_BUTTON,
                     kind | (state == EGridCheck::Unchecked ? 0U : DFCS_CHECKED) |
                         (enabled ? 0U : DFCS_INACTIVE));
}

void CWinGridPainter::DrawArrow(const SRect& rect, UINT arrow, bool enabled)
{
    RECT area = ToRECT(rect);
    DrawFrameControl(m_context, &area, DFC_SCROLL, arrow | DFCS_FLAT | (enabled ? 0U : DFCS_INACTIVE));
}

void CWinGridPainter::DrawButton(const SRect& rect, const SGridButton& button)
{
    const int middle = rect.left + rect.GetWidth() / 2;
    switch (button.kind) {
    case SGridButton::EKind::Drop:
        return DrawArrow(rect, DFCS_SCROLLDOWN, button.enabled);
    case SGridButton::EKind::Spin:
        DrawArrow({rect.left, rect.top, middle, rect.bottom}, DFCS_SCROLLDOWN, button.enabled);
        return DrawArrow({middle, rect.top, rect.right, rect.bottom}, DFCS_SCROLLUP, button.enabled);
    default:
        break;
    }
    RECT area = ToRECT(rect);
    DrawFrameControl(m_context, &area, DFC_BUTTON, DFCS_BUTTONPUSH | (button.pressed ? DFCS_PUSHED : 0U));
    const bool isSetUp = button.kind == SGridButton::EKind::SetUp;
    const SColor before = m_textColor;
    m_textColor = FromSystem(button.enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT);
    WriteText(rect, isSetUp ? std::u16string_view(u"\u2026") : std::u16string_view(button.text),
              EGridAlign::Center);
    m_textColor = before;
}

void CWinGridPainter::DrawBox(const SRect& rect, SColor outline, SColor fill)
{
    Fill(rect, outline);
    Fill(rect.Shrunk(1, 1), fill);
}

void CWinGridPainter::DrawExpander(const SRect& rect, bool expanded)
{
    WriteText(rect, expanded ? u"\u2212" : u"+", EGridAlign::Center);
}

void CWinGridPainter::DrawFocus(const SRect& rect)
{
    // Two lines, one of which stands out from every ground.
    const auto frame = [this](const SRect& around, int color) {
        const RECT area = ToRECT(around);
        FrameRect(m_context, &area, GetSysColorBrush(color));
    };
    const SRect inner{rect.left, rect.top, rect.right - 1, rect.bottom - 1};
    frame(inner, COLOR_WINDOWTEXT);
    frame(inner.Shrunk(1, 1), COLOR_WINDOW);
}

} // namespace CommonUI

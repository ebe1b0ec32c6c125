#include "output/grid/TextGridPainter.h"

namespace CommonUI
{

namespace
{

constexpr SColor c_grey{128, 128, 128};
constexpr SColor c_white{255, 255, 255};

std::u16string_view NameOf(EGridBackground background)
{
    constexpr std::u16string_view c_names[] = {u"plain", u"selected", u"header", u"sub-header", u"marked"};
    return c_names[static_cast<int>(background)];
}

std::u16string_view NameOf(EGridAlign align)
{
    constexpr std::u16string_view c_names[] = {u"left", u"center", u"right"};
    return c_names[static_cast<int>(align)];
}

std::u16string_view NameOf(SGridButton::EKind kind)
{
    constexpr std::u16string_view c_names[] = {u"push", u"set-up", u"spin", u"drop"};
    return c_names[static_cast<int>(kind)];
}

CStr NameOf(SColor color)
{
    return CStr::Format(u"#%02x%02x%02x", color.red, color.green, color.blue);
}

// A word where something is out of the ordinary.
std::u16string_view Where(bool condition, std::u16string_view word)
{
    return condition ? word : std::u16string_view();
}

} // namespace

void CTextGridPainter::Add(std::u16string_view what, const SRect& rect, std::u16string_view rest)
{
    m_lines.push_back(
        CStr::Format(u"%s %d,%d,%d,%d%s", what, rect.left, rect.top, rect.right, rect.bottom, rest));
}

void CTextGridPainter::FillBackground(const SRect& rect, EGridBackground background)
{
    Add(u"background", rect, CStr::Format(u" %s", NameOf(background)));
}

void CTextGridPainter::WriteText(const SRect& rect, std::u16string_view text, EGridAlign align)
{
    CStr rest = CStr::Format(u" %s", NameOf(align));
    rest += Where(m_textColor == c_grey, u" disabled");
    rest += Where(m_textColor == c_white, u" selected");
    Add(u"text", rect, rest + CStr::Format(u" \"%s\"", text));
}

void CTextGridPainter::DrawCheckBox(const SRect& rect, EGridCheck state, bool enabled)
{
    Add(u"check", rect, CStr::Format(u" %d%s", state, Where(!enabled, u" disabled")));
}

void CTextGridPainter::DrawButton(const SRect& rect, const SGridButton& button)
{
    CStr rest = CStr::Format(u" %s", NameOf(button.kind));
    if (button.imageId != SGridButton::c_noImage)
        rest += CStr::Format(u" image %d", button.imageId);
    rest += Where(button.pressed, u" pressed");
    rest += Where(!button.enabled, u" disabled");
    if (!button.text.IsEmpty())
        rest += CStr::Format(u" \"%s\"", button.text);
    Add(u"button", rect, rest);
}

void CTextGridPainter::DrawBox(const SRect& rect, SColor outline, SColor fill)
{
    Add(u"box", rect, CStr::Format(u" %s %s", NameOf(outline), NameOf(fill)));
}

void CTextGridPainter::DrawExpander(const SRect& rect, bool expanded)
{
    Add(u"expander", rect, expanded ? u" open" : u" closed");
}

void CTextGridPainter::DrawFocus(const SRect& rect)
{
    Add(u"focus", rect, {});
}

SColor CTextGridPainter::GetStyleColor(EGridColor color) const
{
    constexpr SColor c_colors[] = {SColor{}, c_grey, c_white};
    return c_colors[static_cast<int>(color)];
}

CStr CTextGridPainter::GetLog() const
{
    CStr log;
    for (const CStr& line : m_lines)
        log += line + u'\n';
    return log;
}

} // namespace CommonUI

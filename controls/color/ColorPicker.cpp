#include "controls/color/ColorPicker.h"

namespace CommonUI
{

CRecentColors::CRecentColors()
    : CRecentList(c_limit)
{
}

void CRecentColors::Load(const CInifile& file, std::u16string_view key)
{
    std::vector<SPaint> paints;
    for (const CStr& text : file.ReadTexts(key)) {
        SPaint paint;
        if (ParsePaint(text, paint))
            paints.push_back(paint);
    }
    Set(paints);
}

void CRecentColors::Save(CInifile& file, std::u16string_view key) const
{
    std::vector<CStr> texts;
    for (const SPaint& paint : GetAll())
        texts.push_back(FormatPaint(paint));
    file.WriteTexts(key, texts);
}

CColorPicker::CColorPicker(CRecentColors* recent)
    : m_recent(recent ? recent : &m_own)
{
}

CColorPicker::~CColorPicker() = default;

SPaint CColorPicker::Restrict(const SPaint& paint) const
{
    return m_opacityAllowed ? paint : SPaint{paint.color};
}

void CColorPicker::SetPaint(const SPaint& paint)
{
    const SPaint restricted = Restrict(paint);
    if (restricted == m_paint)
        return;
    m_paint = restricted;
    m_changed.Invoke();
}

void CColorPicker::AllowOpacity(bool allow)
{
    m_opacityAllowed = allow;
    SetPaint(m_paint);
}

// False if the picker is gone.
bool CColorPicker::Change(const SPaint& paint)
{
    const SPaint restricted = Restrict(paint);
    if (restricted == m_paint)
        return true;
    const CWatch watch(*this);
    SetPaint(restricted);
    if (const auto closure = watch.IsGone() ? nullptr : m_slot.Share<void, const SPaint&>())
        closure->Invoke(restricted);
    return !watch.IsGone();
}

void CColorPicker::Choose(const SPaint& paint)
{
    m_recent->Add(Restrict(paint));
    Change(paint);
}

void CColorPicker::PickColor(const SColor& color)
{
    Choose({color, m_paint.opacity});
}

void CColorPicker::ChooseOpacity(int percent)
{
    Change(WithOpacityPercent(m_paint, percent));
}

bool CColorPicker::Enter(std::u16string_view text)
{
    SPaint paint;
    const bool isColor = ParsePaint(text, paint);
    if (isColor)
        Choose(paint);
    return isColor;
}

} // namespace CommonUI

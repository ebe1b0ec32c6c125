#include "output/grid/GridSetupItem.h"

#include "output/grid/detail/CheckText.h"
#include "output/grid/GridPane.h"

namespace CommonUI
{

CGridSetupItem::CGridSetupItem(bool showCheckbox)
    : m_showCheckbox(showCheckbox)
{
    SetFlag(HasButton);
}

CGridSetupItem::~CGridSetupItem() = default;

void CGridSetupItem::ShowCheckbox(bool show)
{
    m_showCheckbox = show;
    Redraw();
}

void CGridSetupItem::SetState(int state, bool redraw)
{
    m_state = state == 0 || state == 2 ? state : 1;
    if (redraw)
        Redraw();
}

SRect CGridSetupItem::GetCheckRect(const SRect& rect)
{
    SRect check = rect.Shrunk(CGridPane::c_margin, CGridPane::c_margin);
    check.right = check.left + check.GetHeight();
    return check;
}

SRect CGridSetupItem::GetTextRect(const SRect& rect) const
{
    SRect text = CGridItem::GetTextRect(rect);
    if (m_showCheckbox)
        text.left = GetCheckRect(rect).right + 2 * CGridPane::c_margin;
    return text;
}

CStr CGridSetupItem::GetSpokenText() const
{
    const CStr text = FormatItem();
    return m_showCheckbox ? SpeakCheck(text, static_cast<EGridCheck>(m_state)) : text;
}

void CGridSetupItem::OnDrawValue(CGridPainter& painter, const SRect& rect) const
{
    CGridItem::OnDrawValue(painter, rect);
    if (m_showCheckbox)
        painter.DrawCheckBox(GetCheckRect(rect), static_cast<EGridCheck>(m_state), IsEnabled());
}

bool CGridSetupItem::Toggle()
{
    if (!m_showCheckbox || !CanChange())
        return false;
    m_state = m_state == 0 ? 1 : 0;
    ReportChange();
    return true;
}

bool CGridSetupItem::OnClickValue(unsigned int message, SPoint point, const SRect& rect)
{
    const bool press = message == GridMouse::c_leftDown || message == GridMouse::c_rightDown;
    if (press && GetCheckRect(rect).Contains(point) && Toggle())
        return true;
    return CGridItem::OnClickValue(message, point, rect);
}

void CGridSetupItem::OnClickButton()
{
    InvokePressed(*this, m_slot, true);
}

bool CGridSetupItem::OnSpace()
{
    return Toggle();
}

bool CGridSetupItem::OnEnter()
{
    OnClickButton();
    return true;
}

bool CGridSetupItem::CreateInPlaceEdit(SGridEdit& /*edit*/) const
{
    return false;
}

} // namespace CommonUI

#include "output/grid/GridButtonItem.h"

#include "output/grid/GridPane.h"

namespace CommonUI
{

CGridButtonItem::CGridButtonItem(const char16_t* text, unsigned int id, unsigned int imageId)
    : CGridItem(text ? CStr(text) : CStr())
    , m_imageId(imageId)
{
    SetId(static_cast<int>(id));
}

CGridButtonItem::~CGridButtonItem() = default;

SRect CGridButtonItem::GetPushRect(const SRect& rect)
{
    return rect.Shrunk(CGridPane::c_margin, CGridPane::c_margin);
}

SRect CGridButtonItem::GetTextRect(const SRect& rect) const
{
    SRect text = CGridItem::GetTextRect(rect);
    if (m_imageId != SGridButton::c_noImage)
        text.left += GetPushRect(rect).GetHeight() + 2 * CGridPane::c_margin;
    return text;
}

void CGridButtonItem::OnDrawValue(CGridPainter& painter, const SRect& rect) const
{
    DrawBackground(painter, rect);
    painter.DrawButton(
        GetPushRect(rect),
        {.text = FormatItem(), .imageId = m_imageId, .pressed = IsButtonPressed(), .enabled = IsEnabled()});
}

bool CGridButtonItem::OnClickValue(unsigned int message, SPoint point, const SRect& rect)
{
    if (message != GridMouse::c_leftDown || !IsEnabled() || !GetPushRect(rect).Contains(point))
        return CGridItem::OnClickValue(message, point, rect);
    InvokePressed(*this, m_slot, false);
    return true;
}

bool CGridButtonItem::OnSpace()
{
    InvokePressed(*this, m_slot, false);
    return true;
}

bool CGridButtonItem::OnEnter()
{
    return OnSpace();
}

EGridCursor CGridButtonItem::OnSetCursor(SPoint point, const SRect& rect) const
{
    return IsEnabled() && GetPushRect(rect).Contains(point) ? EGridCursor::Hand : EGridCursor::Arrow;
}

bool CGridButtonItem::CreateInPlaceEdit(SGridEdit& /*edit*/) const
{
    return false;
}

} // namespace CommonUI

#include "output/grid/GridCheckItem.h"

#include "output/grid/detail/CheckText.h"
#include "output/grid/GridPane.h"
#include "output/grid/GridRow.h"

namespace CommonUI
{

namespace
{

constexpr int c_indeterminate = 2;

CGridValue ValueOf(int state)
{
    return state == c_indeterminate ? CGridValue(EGridValueType::Bool, c_indeterminate)
                                    : CGridValue(state != 0);
}

} // namespace

CGridCheckItem::CGridCheckItem(int state, unsigned long data)
    : CGridItem(ValueOf(state), data)
{
}

CGridCheckItem::~CGridCheckItem() = default;

void CGridCheckItem::SetAutoHide(bool autoHide)
{
    m_autoHide = autoHide;
    Redraw();
}

EGridCheck CGridCheckItem::GetCheck() const noexcept
{
    const long long state = GetValue().GetInteger();
    if (state == c_indeterminate)
        return EGridCheck::Indeterminate;
    return state != 0 ? EGridCheck::Checked : EGridCheck::Unchecked;
}

bool CGridCheckItem::IsHidden() const
{
    return m_autoHide && !(GetRow() && GetRow()->HasSubRows());
}

SRect CGridCheckItem::GetCheckRect(const SRect& rect)
{
    SRect check = rect.Shrunk(0, CGridPane::c_margin);
    check.left += (rect.GetWidth() - check.GetHeight()) / 2;
    check.right = check.left + check.GetHeight();
    return check;
}

CStr CGridCheckItem::FormatItem() const
{
    return {};
}

CStr CGridCheckItem::GetSpokenText() const
{
    return IsHidden() ? CStr() : SpeakCheck({}, GetCheck());
}

void CGridCheckItem::OnDrawValue(CGridPainter& painter, const SRect& rect) const
{
    if (IsHidden()) {
        DrawBackground(painter, rect);
        return;
    }
    const CTextColorScope scope(painter, GetColor());
    CGridItem::OnDrawValue(painter, rect);
    painter.DrawCheckBox(GetCheckRect(rect), GetCheck(), IsEnabled());
}

bool CGridCheckItem::Toggle()
{
    if (IsHidden() || !CanChange())
        return false;
    SetValue(GetCheck() == EGridCheck::Unchecked, false);
    ReportChange();
    return true;
}

bool CGridCheckItem::OnClickValue(unsigned int message, SPoint point, const SRect& rect)
{
    if (message == GridMouse::c_leftDown && GetCheckRect(rect).Contains(point) && Toggle())
        return true;
    return CGridItem::OnClickValue(message, point, rect);
}

bool CGridCheckItem::OnSpace()
{
    return Toggle();
}

bool CGridCheckItem::CreateInPlaceEdit(SGridEdit& /*edit*/) const
{
    return false;
}

} // namespace CommonUI

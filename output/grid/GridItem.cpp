#include "output/grid/GridItem.h"

#include "output/grid/GridCtrl.h"

#include <algorithm>

namespace CommonUI
{

CGridItem::CPressed::CPressed(CGridItem& item)
    : m_item(item.shared_from_this())
{
    m_item->SetPressed(true);
}

CGridItem::CPressed::~CPressed()
{
    m_item->SetPressed(false);
}

void CGridItem::CPressed::TakeFocus() const
{
    if (CGridCtrl* const grid = m_item->GetGrid(); grid && grid->GetView())
        grid->GetView()->TakeFocus();
}

CGridItem::CGridItem(const CGridValue& value, unsigned long data, const SGridEditRules& rules)
    : m_value(value)
    , m_data(data)
    , m_rules(rules)
{
}

CGridItem::~CGridItem() = default;

void CGridItem::SetValue(const CGridValue& value, bool redraw)
{
    m_value = value;
    if (redraw)
        Redraw();
}

void CGridItem::SetFlag(EFlag flag, bool set)
{
    m_flags = set ? m_flags | flag : m_flags & ~static_cast<unsigned int>(flag);
    Redraw();
}

void CGridItem::SetRange(int minimum, int maximum) noexcept
{
    m_minimum = std::min(minimum, maximum);
    m_maximum = std::max(minimum, maximum);
}

void CGridItem::SetPressed(bool pressed)
{
    m_pressed = pressed;
    Redraw();
}

CGridCtrl* CGridItem::GetGrid() const noexcept
{
    return m_row ? m_row->GetGrid() : nullptr;
}

bool CGridItem::CanChange() const noexcept
{
    const CGridCtrl* const grid = GetGrid();
    return grid && !grid->IsReadOnly() && !HasFlag(ReadOnly) && IsEnabled();
}

bool CGridItem::IsSelected() const
{
    const CGridCtrl* const grid = GetGrid();
    return grid && grid->IsSelected(*this);
}

void CGridItem::Redraw() const
{
    if (const CGridCtrl* const grid = GetGrid())
        grid->RedrawItem(*this);
}

void CGridItem::ReportChange()
{
    const std::shared_ptr<CGridItem> self = shared_from_this();
    if (CGridCtrl* const grid = GetGrid())
        grid->OnItemChanged(*this, m_id);
    SetChanged();
    Redraw();
}

CStr CGridItem::FormatItem() const
{
    return m_value.ToText();
}

EGridColor CGridItem::GetColor() const
{
    if (!IsEnabled())
        return EGridColor::Disabled;
    return IsSelected() ? EGridColor::Selected : EGridColor::Text;
}

SRect CGridItem::GetButtonRect(const SRect& rect) const
{
    if ((m_flags & (HasButton | HasSpin | HasOptions)) == 0)
        return {};
    // Arrows one above the other would be half as high as the cell, and hard to hit.
    const bool spin = (m_flags & (HasButton | HasSpin | HasOptions)) == HasSpin;
    const int width = (spin ? 2 : 1) * rect.GetHeight();
    return {std::max(rect.left, rect.right - width), rect.top, rect.right, rect.bottom};
}

SRect CGridItem::GetTextRect(const SRect& rect) const
{
    SRect text = rect.Shrunk(2 * CGridPane::c_margin, 0);
    text.right -= GetButtonRect(rect).GetWidth();
    return text;
}

void CGridItem::DrawBackground(CGridPainter& painter, const SRect& rect) const
{
    painter.FillBackground(rect, IsSelected() ? EGridBackground::Selected : EGridBackground::Plain);
}

void CGridItem::DrawContents(CGridPainter& painter, const SRect& rect) const
{
    const CStr text = FormatItem();
    if (const SRect place = GetTextRect(rect); !text.IsEmpty() && !place.IsEmpty()) {
        const CTextColorScope scope(painter, GetColor());
        const bool number = m_value.GetType() == EGridValueType::R8 || m_value.IsInteger();
        painter.WriteText(place, text, number ? EGridAlign::Right : EGridAlign::Left);
    }
    const SRect place = GetButtonRect(rect);
    if (place.IsEmpty())
        return;
    SGridButton button{.pressed = m_pressed, .enabled = IsEnabled()};
    button.kind = HasFlag(HasButton)    ? SGridButton::EKind::SetUp
                  : HasFlag(HasOptions) ? SGridButton::EKind::Drop
                                        : SGridButton::EKind::Spin;
    painter.DrawButton(place, button);
}

void CGridItem::OnDrawValue(CGridPainter& painter, const SRect& rect) const
{
    DrawBackground(painter, rect);
    DrawContents(painter, rect);
}

bool CGridItem::OnClickValue(unsigned int /*message*/, SPoint /*point*/, const SRect& /*rect*/)
{
    return false;
}

void CGridItem::OnClickButton()
{
}

bool CGridItem::OnSpace()
{
    return false;
}

bool CGridItem::OnEnter()
{
    return false;
}

EGridCursor CGridItem::OnSetCursor(SPoint point, const SRect& rect) const
{
    SGridEdit edit;
    const bool typed = CanChange() && GetTextRect(rect).Contains(point) && CreateInPlaceEdit(edit);
    return typed && edit.kind != SGridEdit::EKind::List ? EGridCursor::Text : EGridCursor::Arrow;
}

bool CGridItem::CreateInPlaceEdit(SGridEdit& edit) const
{
    edit.kind = HasFlag(HasOptions) ? SGridEdit::EKind::List
                : HasFlag(HasSpin)  ? SGridEdit::EKind::Spin
                                    : SGridEdit::EKind::Text;
    edit.text = m_value.ToText();
    if (edit.text.IsEmpty())
        edit.text = m_rules.initialText;
    edit.options = m_options;
    edit.minimum = m_minimum;
    edit.maximum = m_maximum;
    edit.rules = m_rules;
    return true;
}

bool CGridItem::OnEndEdit(const CStr& text)
{
    CGridValue value = m_value;
    if (!m_rules.Accepts(text) || !value.ReadText(text))
        return false;
    SetValue(value);
    return true;
}

} // namespace CommonUI

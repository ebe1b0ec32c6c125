#include "output/grid/GridCtrl.h"

#include <utility>

namespace CommonUI
{

bool CGridCtrl::BeginEdit(const CStr& typed)
{
    const std::shared_ptr<CGridItem> item = GetFocusItem();
    SGridEdit edit;
    if (!GetView() || !item || !item->CanChange() || !item->CreateInPlaceEdit(edit))
        return false;
    CancelEdit();
    EnsureVisible(GetSelection().GetFocus());
    edit.rect = GetItemRect(*item);
    edit.typed = typed;
    m_edited = item;
    m_editing = true;
    GetView()->OpenEditor(edit);
    return true;
}

void CGridCtrl::CancelEdit()
{
    if (std::exchange(m_editing, false) && GetView())
        GetView()->CloseEditor();
}

bool CGridCtrl::EndEdit(const CStr& text)
{
    const std::shared_ptr<CGridItem> item = m_editing ? m_edited.lock() : nullptr;
    CancelEdit();
    if (!item || item->GetGrid() != this || !item->CanChange())
        return false;
    const CGridValue before = item->GetValue();
    if (!item->OnEndEdit(text))
        return false;
    if (!(item->GetValue() == before))
        item->ReportChange();
    return true;
}

bool CGridCtrl::OnText(const CStr& text)
{
    return BeginEdit(text);
}

bool CGridCtrl::CanEdit(SGridCell cell) const
{
    SGridEdit edit;
    const std::shared_ptr<CGridItem> item = GetItem(cell);
    return item && item->CanChange() && item->CreateInPlaceEdit(edit);
}

bool CGridCtrl::EditNext(bool backward)
{
    const std::size_t columns = GetColumnCount();
    const std::size_t count = GetRowCount() * columns;
    const SGridCell focus = GetSelection().GetFocus();
    for (std::size_t place = focus.row * columns + focus.column; backward ? place-- > 0 : ++place < count;) {
        const SGridCell cell{place / columns, place % columns};
        if (!CanEdit(cell))
            continue;
        const std::weak_ptr<CGridItem> item = GetItem(cell);
        SelectCell(cell);
        // The selection callback may have destroyed the grid.
        const std::shared_ptr<CGridItem> still = item.lock();
        return still && still->GetGrid() == this && BeginEdit();
    }
    return false;
}

bool CGridCtrl::ClickExpander(SGridCell cell, SPoint point)
{
    CGridRow& row = *m_shown[cell.row];
    if (cell.column != 0 || !row.HasSubRows() || !GetExpanderRect(cell, GetCellRect(cell)).Contains(point))
        return false;
    row.SetExpanded(!row.IsExpanded());
    return true;
}

// @return whether the item has used the click; the grid may be gone then
bool CGridCtrl::ClickItem(unsigned int message, SPoint point, CGridItem& item)
{
    const SRect rect = GetItemRect(item);
    if (!item.IsEnabled() || !rect.Contains(point))
        return false;
    if (item.OnClickValue(message, point, rect))
        return true;
    if (message == GridMouse::c_leftDoubleClick)
        return BeginEdit();
    if (message != GridMouse::c_leftDown || !item.GetButtonRect(rect).Contains(point))
        return false;
    if (!item.HasFlag(CGridItem::HasButton))
        return BeginEdit();
    item.OnClickButton();
    return true;
}

void CGridCtrl::OnMouse(unsigned int message, SPoint point, SGridModifiers modifiers)
{
    const SGridHit hit = HitTest(point);
    if (message == GridMouse::c_move || message == GridMouse::c_leftUp) {
        CGridPane::OnMouse(message, point, modifiers);
        return;
    }
    EndDrag();
    const bool left = message == GridMouse::c_leftDown || message == GridMouse::c_leftDoubleClick;
    if (hit.part != SGridHit::EPart::Cell || (!left && message != GridMouse::c_rightDown)) {
        CGridPane::OnMouse(message, point, modifiers);
        return;
    }
    if (message == GridMouse::c_leftDown && ClickExpander(hit.cell, point))
        return;
    if (left)
        EditSelection().SelectCell(hit.cell, modifiers.shift);
    if (const std::shared_ptr<CGridItem> item = GetItem(hit.cell)) {
        ClickItem(message, point, *item);
        if (item->GetGrid() != this)
            return;
    }
    if (message == GridMouse::c_leftDown && !m_editing)
        PressAt(hit, modifiers.shift);
    else if (left)
        SelectAndShow(hit.part, hit.cell, modifiers.shift);
}

EGridCursor CGridCtrl::OnSetCursor(SPoint point) const
{
    const SGridHit hit = HitTest(point);
    const auto item = hit.part == SGridHit::EPart::Cell ? GetItem(hit.cell) : nullptr;
    return item ? item->OnSetCursor(point, GetItemRect(*item)) : CGridPane::OnSetCursor(point);
}

// @return whether the item has used the key; the grid may be gone then
bool CGridCtrl::UseKey(const SGridKey& key, CGridItem& item)
{
    if (!item.IsEnabled())
        return false;
    if (key.key == EGridKey::Space)
        return item.OnSpace() || (item.HasFlag(CGridItem::HasOptions) && BeginEdit());
    if (key.key == EGridKey::Enter && item.OnEnter())
        return true;
    return (key.key == EGridKey::Enter || key.key == EGridKey::F2) && BeginEdit();
}

// Right opens the row that has the focus in its first column, Left closes it.
bool CGridCtrl::Expand(const SGridKey& key)
{
    const SGridCell focus = GetSelection().GetFocus();
    const bool arrow = key.key == EGridKey::Left || key.key == EGridKey::Right;
    if (!arrow || key.modifiers.shift || key.modifiers.control || focus.column != 0 ||
        focus.row >= m_shown.size())
        return false;
    CGridRow& row = *m_shown[focus.row];
    const bool open = key.key == EGridKey::Right;
    if (!row.HasSubRows() || row.IsExpanded() == open)
        return false;
    row.SetExpanded(open);
    return true;
}

bool CGridCtrl::OnKey(const SGridKey& key)
{
    if (key.key == EGridKey::Escape && m_editing) {
        CancelEdit();
        return true;
    }
    if (const std::shared_ptr<CGridItem> item = GetFocusItem(); item && UseKey(key, *item))
        return true;
    return Expand(key) || CGridPane::OnKey(key);
}

} // namespace CommonUI

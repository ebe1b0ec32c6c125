#pragma once

#include "../../common/Str.h"
#include "../MultiClosure.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace CommonUI
{

/// An item of a list that the user puts in order.
struct SListItem {
    CStr key{};           ///< by which the program knows it; unique in the list
    CStr text{};          ///< that is shown
    bool checked = false; ///< its box

    friend bool operator==(const SListItem&, const SListItem&) = default;
};

/// The logic of a list whose order counts: parameters of a report, steps of a sequence. The user selects
/// items and moves them up and down, by commands or by dragging; what is selected stays selected where it
/// goes.
///
/// Indices are those of GetItems; selections are rising and name each item once. One item can be the current
/// one, to which the keyboard goes.
class COMMONUI_API CItemList
{
public:
    /// Indices of items.
    using CIndices = std::vector<std::size_t>;

    CItemList();
    ~CItemList();
    CItemList(const CItemList&) = delete;
    CItemList& operator=(const CItemList&) = delete;

    /// Replaces all items; items selected before are so again when their keys are there.
    void SetItems(std::vector<SListItem> items);
    /// In the order that the user has made.
    const std::vector<SListItem>& GetItems() const noexcept { return m_items; }
    /// Adds items behind the current one, or at the end, and selects them. Those whose keys are there already
    /// are left out.
    void Add(const std::vector<SListItem>& items);

    /// Indices beyond the list are left out.
    /// @param current that of the keyboard; empty for none
    void Select(std::span<const std::size_t> indices, std::optional<std::size_t> current);
    /// The selected items; empty for none.
    const CIndices& GetSelection() const noexcept { return m_selection; }
    /// The item that the keyboard goes to, selected or not; empty for none.
    std::optional<std::size_t> GetCurrent() const noexcept { return m_current; }

    /// Whether some selected item has an item that is not selected above or below it.
    bool CanMove(bool up) const;
    /// Moves every selected item one place, but for those that are at the end already, or stand against them.
    /// @return whether any has moved
    bool Move(bool up);
    /// Moves what is selected in front of an item, in one block, as dragging does. @param before the count of
    /// items for the end
    /// @return whether any has moved
    bool MoveTo(std::size_t before);
    /// Whether anything is selected.
    bool CanRemove() const noexcept { return !m_selection.empty(); }
    /// Removes what is selected and selects what has come into its place.
    void Remove();
    /// Checks all that is selected if the item is, as a click on one of their boxes does; otherwise the item
    /// alone.
    void Check(std::size_t index, bool checked);

    /// Called after items were moved, added, removed or checked, by the user or by the program.
    CMultiClosure0<void>& GetItemsChanged() noexcept { return m_itemsChanged; }
    /// Called after another selection or current item.
    CMultiClosure0<void>& GetSelectionChanged() noexcept { return m_selectionChanged; }

private:
    bool IsSelected(std::size_t index) const;
    bool Reorder(const CIndices& order);
    void Replace(std::vector<SListItem> items, const CIndices& selection, std::optional<std::size_t> current);

    std::vector<SListItem> m_items;
    CIndices m_selection;
    std::optional<std::size_t> m_current;
    CMultiClosure0<void> m_itemsChanged;
    CMultiClosure0<void> m_selectionChanged;
};

} // namespace CommonUI

#include "controls/lists/ItemList.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace CommonUI
{

namespace
{

std::optional<std::size_t> FindKey(const std::vector<SListItem>& items, const CStr& key)
{
    const auto found = std::ranges::find(items, key, &SListItem::key);
    return found == items.end() ? std::nullopt
                                : std::optional(static_cast<std::size_t>(found - items.begin()));
}

CItemList::CIndices MakeRange(std::size_t first, std::size_t count)
{
    CItemList::CIndices indices(count);
    std::iota(indices.begin(), indices.end(), first);
    return indices;
}

} // namespace

CItemList::CItemList() = default;

CItemList::~CItemList() = default;

bool CItemList::IsSelected(std::size_t index) const
{
    return std::ranges::binary_search(m_selection, index);
}

void CItemList::Replace(std::vector<SListItem> items, const CIndices& selection,
                        std::optional<std::size_t> current)
{
    const bool isOther = items != m_items;
    m_items = std::move(items);
    const bool isSelectionOther = m_selection != selection || m_current != current;
    m_selection = selection;
    m_current = current;
    if (isOther)
        m_itemsChanged.Invoke();
    if (isSelectionOther)
        m_selectionChanged.Invoke();
}

void CItemList::SetItems(std::vector<SListItem> items)
{
    CIndices selection;
    for (std::size_t i = 0; i < items.size(); ++i)
        if (const auto before = FindKey(m_items, items[i].key); before && IsSelected(*before))
            selection.push_back(i);
    const auto current = m_current ? FindKey(items, m_items[*m_current].key) : std::nullopt;
    Replace(std::move(items), selection, current);
}

void CItemList::Add(const std::vector<SListItem>& items)
{
    std::vector<SListItem> added;
    for (const SListItem& item : items)
        if (!FindKey(m_items, item.key) && !FindKey(added, item.key))
            added.push_back(item);
    if (added.empty())
        return;
    const std::size_t first = m_current ? *m_current + 1 : m_items.size();
    std::vector<SListItem> all(m_items);
    all.insert(all.begin() + static_cast<std::ptrdiff_t>(first), added.begin(), added.end());
    Replace(std::move(all), MakeRange(first, added.size()), first + added.size() - 1);
}

void CItemList::Select(std::span<const std::size_t> indices, std::optional<std::size_t> current)
{
    CIndices selection;
    for (const std::size_t index : indices)
        if (index < m_items.size())
            selection.push_back(index);
    std::ranges::sort(selection);
    const auto repeated = std::ranges::unique(selection);
    selection.erase(repeated.begin(), repeated.end());
    Replace(m_items, selection, current && *current < m_items.size() ? current : std::nullopt);
}

bool CItemList::CanMove(bool up) const
{
    // A selection that does not lie at its end in one block has room.
    const std::size_t count = m_selection.size();
    return m_selection != MakeRange(up ? 0 : m_items.size() - count, count);
}

// @param order the index of the item that comes to each place
bool CItemList::Reorder(const CIndices& order)
{
    std::vector<SListItem> items;
    CIndices selection;
    std::optional<std::size_t> current;
    for (const std::size_t from : order) {
        if (IsSelected(from))
            selection.push_back(items.size());
        if (from == m_current)
            current = items.size();
        items.push_back(m_items[from]);
    }
    const bool isOther = order != MakeRange(0, order.size());
    if (isOther)
        Replace(std::move(items), selection, current);
    return isOther;
}

bool CItemList::Move(bool up)
{
    CIndices order = MakeRange(0, m_items.size());
    const auto pass = [&](auto begin, auto end) {
        // The item that is behind the selected ones comes in front of them, one after the other.
        for (auto place = begin; place != end && place + 1 != end; ++place)
            if (!IsSelected(*place) && IsSelected(*(place + 1)))
                std::iter_swap(place, place + 1);
    };
    if (up)
        pass(order.begin(), order.end());
    else
        pass(order.rbegin(), order.rend());
    return Reorder(order);
}

bool CItemList::MoveTo(std::size_t before)
{
    CIndices order;
    const auto append = [&](std::size_t first, std::size_t end, bool selected) {
        for (std::size_t i = first; i < end; ++i)
            if (IsSelected(i) == selected)
                order.push_back(i);
    };
    before = std::min(before, m_items.size());
    append(0, before, false);
    append(0, m_items.size(), true);
    append(before, m_items.size(), false);
    return Reorder(order);
}

void CItemList::Remove()
{
    if (m_selection.empty())
        return;
    std::vector<SListItem> left;
    for (std::size_t i = 0; i < m_items.size(); ++i)
        if (!IsSelected(i))
            left.push_back(m_items[i]);
    std::optional<std::size_t> next;
    if (!left.empty())
        next = std::min(m_selection.front(), left.size() - 1);
    Replace(std::move(left), next ? CIndices{*next} : CIndices(), next);
}

void CItemList::Check(std::size_t index, bool checked)
{
    if (index >= m_items.size())
        return;
    std::vector<SListItem> items(m_items);
    items[index].checked = checked;
    if (IsSelected(index))
        for (const std::size_t selected : m_selection)
            items[selected].checked = checked;
    Replace(std::move(items), CIndices(m_selection), m_current);
}

} // namespace CommonUI

#include "controls/tabs/Tabs.h"

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

// Moves one element of a vector to another place.
template<class T>
void MoveElement(std::vector<T>& values, std::size_t from, std::size_t to)
{
    const auto at = [&](std::size_t index) { return values.begin() + static_cast<std::ptrdiff_t>(index); };
    if (from < to)
        std::rotate(at(from), at(from) + 1, at(to) + 1);
    else
        std::rotate(at(to), at(from), at(from) + 1);
}

} // namespace

CTabs::CTabs() = default;

CTabs::~CTabs() = default;

std::optional<std::size_t> CTabs::Find(std::u16string_view key) const
{
    const auto found = std::ranges::find_if(m_tabs, [&](const STab& tab) { return tab.key == key; });
    return found == m_tabs.end() ? std::nullopt
                                 : std::optional(static_cast<std::size_t>(found - m_tabs.begin()));
}

// After tabs have changed.
void CTabs::Tell(const CStr& currentBefore)
{
    const CWatch watch(*this);
    m_tabsChanged.Invoke();
    if (!watch.IsGone() && m_current != currentBefore)
        m_currentChanged.Invoke();
}

void CTabs::Add(const STab& tab)
{
    const CStr before = m_current;
    if (const auto known = Find(tab.key)) {
        m_tabs[*known] = tab;
    } else {
        m_tabs.push_back(tab);
        m_used.push_back(tab.key);
    }
    if (m_tabs.size() == 1)
        m_current = tab.key;
    Tell(before);
}

void CTabs::SetTitle(std::u16string_view key, const CStr& title)
{
    const auto index = Find(key);
    if (!index || m_tabs[*index].title == title)
        return;
    m_tabs[*index].title = title;
    m_tabsChanged.Invoke();
}

std::optional<std::size_t> CTabs::GetCurrent() const
{
    return Find(m_current);
}

void CTabs::Use(const CStr& key)
{
    const auto found = std::ranges::find_if(m_used, [&](const CStr& used) { return used == key; });
    if (found != m_used.end())
        std::rotate(m_used.begin(), found, found + 1);
    m_switch = 0;
}

void CTabs::BringToFront(const CStr& key)
{
    if (m_current == key)
        return;
    m_current = key;
    m_currentChanged.Invoke();
}

void CTabs::SetCurrent(std::size_t index)
{
    if (index >= m_tabs.size())
        return;
    const CStr key = m_tabs[index].key;
    Use(key);
    BringToFront(key);
}

void CTabs::Move(std::size_t from, std::size_t to)
{
    if (m_tabs.empty())
        return;
    from = std::min(from, m_tabs.size() - 1);
    to = std::min(to, m_tabs.size() - 1);
    if (from == to)
        return;
    MoveElement(m_tabs, from, to);
    m_tabsChanged.Invoke();
}

void CTabs::MoveCurrent(bool right)
{
    const auto current = GetCurrent();
    if (current && (right || *current > 0))
        Move(*current, right ? *current + 1 : *current - 1);
}

std::vector<CStr> CTabs::GetOrder() const
{
    std::vector<CStr> keys;
    std::ranges::transform(m_tabs, std::back_inserter(keys), &STab::key);
    return keys;
}

void CTabs::SetOrder(const std::vector<CStr>& keys)
{
    const std::vector<STab> before(m_tabs);
    const auto placeOf = [&](const STab& tab) { return std::find(keys.begin(), keys.end(), tab.key); };
    std::ranges::stable_sort(m_tabs, {}, placeOf);
    if (m_tabs != before)
        m_tabsChanged.Invoke();
}

bool CTabs::MayClose(const STab& tab) const
{
    const CStr key = tab.key; // the question may change the tabs
    const auto closure = m_mayClose.Share<bool, const CStr&>();
    return tab.closable && (!closure || closure->Invoke(key));
}

bool CTabs::Close(std::size_t index)
{
    if (index >= m_tabs.size())
        return false;
    const CStr key = m_tabs[index].key;
    const CWatch watch(*this);
    const bool mayClose = MayClose(m_tabs[index]);
    if (watch.IsGone() || !mayClose || !Find(key))
        return false;
    Remove(key);
    return true;
}

std::size_t CTabs::CloseOthers(std::size_t index)
{
    const CStr kept = index < m_tabs.size() ? m_tabs[index].key : CStr();
    const CWatch watch(*this);
    std::size_t closed = 0;
    for (const CStr& key : GetOrder()) {
        if (watch.IsGone())
            break;
        if (const auto found = key == kept ? std::nullopt : Find(key))
            closed += Close(*found) ? 1 : 0;
    }
    return closed;
}

void CTabs::Remove(std::u16string_view key)
{
    const auto index = Find(key);
    if (!index)
        return;
    const CStr before = m_current;
    const CStr removed = m_tabs[*index].key;
    m_tabs.erase(m_tabs.begin() + static_cast<std::ptrdiff_t>(*index));
    std::erase(m_used, removed);
    m_switch = 0;
    if (m_current == removed)
        m_current = m_used.empty() ? CStr() : m_used.front();
    Tell(before);
}

void CTabs::SwitchToNext(bool backward)
{
    if (m_used.empty())
        return;
    m_switch = (m_switch + (backward ? m_used.size() - 1 : 1)) % m_used.size();
    BringToFront(m_used[m_switch]);
}

void CTabs::EndSwitching()
{
    if (!m_current.IsEmpty())
        Use(m_current);
}

} // namespace CommonUI

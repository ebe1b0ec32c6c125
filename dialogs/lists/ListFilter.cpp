#include "dialogs/lists/ListFilter.h"

#include "controls/lists/SearchWords.h"

#include <numeric>

namespace CommonUI
{

void CListFilter::SetEntries(const std::vector<CStr>& entries)
{
    m_entries.clear();
    m_entries.reserve(entries.size());
    for (const CStr& entry : entries)
        m_entries.push_back(ToSmall(entry.View()));
    m_text.Clear();
    m_found.resize(entries.size());
    std::iota(m_found.begin(), m_found.end(), std::size_t{0});
}

bool CListFilter::SetText(const CStr& text)
{
    const CSearchWords words(text);
    const std::vector<std::size_t> before = m_found;
    // What lacks a word lacks each longer one, too.
    if (!text.StartsWith(m_text)) {
        m_found.resize(m_entries.size());
        std::iota(m_found.begin(), m_found.end(), std::size_t{0});
    }
    std::erase_if(m_found, [&](std::size_t entry) { return !words.AreIn(m_entries[entry]); });
    m_text = text;
    return m_found != before;
}

} // namespace CommonUI

#include "dialogs/lists/ListFilter.h"

#include "common/SmallLetter.h"

#include <algorithm>
#include <numeric>

namespace CommonUI
{

namespace
{

std::vector<CStr> GetWords(const CStr& text)
{
    std::vector<CStr> words = ToSmall(text.View()).Split(u" ");
    std::erase_if(words, [](const CStr& word) { return word.IsEmpty(); });
    return words;
}

} // namespace

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

bool CListFilter::Has(std::size_t entry, const std::vector<CStr>& words) const
{
    return std::all_of(words.begin(), words.end(),
                       [&](const CStr& word) { return m_entries[entry].Contains(word); });
}

bool CListFilter::SetText(const CStr& text)
{
    const std::vector<CStr> words = GetWords(text);
    const std::vector<std::size_t> before = m_found;
    // What lacks a word lacks each longer one, too.
    if (!text.StartsWith(m_text)) {
        m_found.resize(m_entries.size());
        std::iota(m_found.begin(), m_found.end(), std::size_t{0});
    }
    std::erase_if(m_found, [&](std::size_t entry) { return !Has(entry, words); });
    m_text = text;
    return m_found != before;
}

} // namespace CommonUI

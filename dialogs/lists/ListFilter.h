#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <cstddef>
#include <vector>

namespace CommonUI
{

/// Finds the entries of a long list that have all words of a text somewhere, whatever their capitals.
/// Typing on looks at what was found before only: a list of 100000 entries follows every key.
class COMMONUI_API CListFilter
{
public:
    /// Replaces the entries; all are found.
    void SetEntries(const std::vector<CStr>& entries);
    /// Looks for the words of a text, which blanks part; all entries have none.
    /// @return whether others are found than before
    bool SetText(const CStr& text);
    /// What was looked for last; empty when the entries are new.
    const CStr& GetText() const noexcept { return m_text; }
    /// The numbers of the entries found, in the order of the list.
    const std::vector<std::size_t>& GetFound() const noexcept { return m_found; }

private:
    std::vector<CStr> m_entries; // in small letters
    std::vector<std::size_t> m_found;
    CStr m_text;
};

} // namespace CommonUI

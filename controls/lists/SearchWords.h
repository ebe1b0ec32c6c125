#pragma once

#include "../../common/SmallLetter.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace CommonUI
{

/// The words that somebody looks for in a list: all have to be found, in large and small letters alike.
class CSearchWords
{
public:
    CSearchWords() = default;
    /// @param text words, which blanks part
    explicit CSearchWords(std::u16string_view text)
        : m_words(ToSmall(text).Split(u" "))
    {
        std::erase_if(m_words, [](const CStr& word) { return word.IsEmpty(); });
    }

    /// Whether there are none, so that every text has all of them.
    bool IsEmpty() const noexcept { return m_words.empty(); }
    /// Whether a text in small letters has all of them somewhere; any has none.
    bool AreIn(std::u16string_view searched) const
    {
        return AreIn(searched, [](std::u16string_view text, std::u16string_view word) {
            return text.find(word) != text.npos;
        });
    }
    /// @param has whether a text in small letters has a word
    template<class FHas>
    bool AreIn(std::u16string_view searched, FHas has) const
    {
        return std::ranges::all_of(m_words, [&](const CStr& word) { return has(searched, word.View()); });
    }

private:
    std::vector<CStr> m_words; // in small letters
};

} // namespace CommonUI

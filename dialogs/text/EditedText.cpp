#include "dialogs/text/EditedText.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

constexpr std::u16string_view c_ends = u"\n\r\x2029\xFDD0\xFDD1";

// How many units end a line at a place; 0 where none ends.
std::size_t GetEndLength(std::u16string_view text, std::size_t place)
{
    // Most units are letters and blanks.
    if (text[place] > u'\r' && text[place] < c_ends[2])
        return 0;
    if (text.substr(place, 2) == u"\r\n")
        return 2;
    return c_ends.find(text[place]) == std::u16string_view::npos ? 0 : 1;
}

CStr MakePlain(std::u16string_view text)
{
    CStr plain;
    char16_t* const units = plain.SetLength(text.size());
    char16_t* to = units;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t end = GetEndLength(text, i);
        *to++ = end > 0 ? u'\n' : text[i];
        i += std::max<std::size_t>(1, end);
    }
    plain.SetLength(static_cast<std::size_t>(to - units));
    return plain;
}

// How many units of the text stand for the first ones of its plain form.
std::size_t ToPlace(std::u16string_view text, std::size_t plainCount)
{
    std::size_t place = 0;
    for (; plainCount > 0; --plainCount)
        place += std::max<std::size_t>(1, GetEndLength(text, place));
    return place;
}

std::size_t CountEqualAtEnds(std::u16string_view one, std::u16string_view other, std::size_t most)
{
    std::size_t count = 0;
    while (count < most && one[one.size() - 1 - count] == other[other.size() - 1 - count])
        ++count;
    return count;
}

} // namespace

CEditedText::CEditedText(const CStr& text)
    : m_text(text)
    , m_plain(MakePlain(text))
{
}

CStr CEditedText::Restore(std::u16string_view edited) const
{
    const std::u16string_view plain = m_plain;
    const std::u16string_view text = m_text;
    const std::size_t shorter = std::min(plain.size(), edited.size());
    const auto differing =
        std::mismatch(plain.begin(), plain.begin() + static_cast<std::ptrdiff_t>(shorter), edited.begin());
    const auto before = static_cast<std::size_t>(differing.first - plain.begin());
    const std::size_t behind = CountEqualAtEnds(plain, edited, shorter - before);
    const std::u16string_view changed = edited.substr(before, edited.size() - before - behind);
    return CStr(text.substr(0, ToPlace(text, before))) + CStr(changed).Replace(u"\n", GetUsualEnd()) +
           text.substr(ToPlace(text, plain.size() - behind));
}

std::u16string_view CEditedText::GetUsualEnd() const
{
    const std::u16string_view text = m_text;
    std::size_t both = 0;
    for (std::size_t at = text.find(u"\r\n"); at != std::u16string_view::npos;
         at = text.find(u"\r\n", at + 2))
        ++both;
    const auto count = [&](char16_t unit) {
        return static_cast<std::size_t>(std::count(text.begin(), text.end(), unit)) - both;
    };
    const std::size_t feeds = count(u'\n');
    const std::size_t returns = count(u'\r');
    if (both > 0 && both >= std::max(feeds, returns))
        return u"\r\n";
    return returns > feeds ? u"\r" : u"\n";
}

} // namespace CommonUI

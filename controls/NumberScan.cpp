#include "controls/detail/NumberScan.h"

#include "common/NumberText.h"
#include "common/Str.h"

#include <cstddef>
#include <limits>

namespace CommonUI
{

namespace
{

std::size_t CountDigits(std::u16string_view text, std::size_t from)
{
    const std::size_t end = text.find_first_not_of(u"0123456789", from);
    return (end == std::u16string_view::npos ? text.size() : end) - from;
}

std::size_t CountSign(std::u16string_view text, std::size_t from)
{
    return from < text.size() && (text[from] == u'+' || text[from] == u'-') ? 1 : 0;
}

bool StartsWithWord(std::u16string_view text, std::u16string_view word)
{
    if (text.size() < word.size())
        return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        const char16_t unit = text[i];
        if ((unit >= u'A' && unit <= u'Z' ? unit + (u'a' - u'A') : unit) != word[i])
            return false;
    }
    return true;
}

// How much of the text may belong to a real number at its start.
std::size_t GetRealLength(std::u16string_view text)
{
    const std::size_t start = CountSign(text, 0);
    const std::u16string_view word = text.substr(start);
    if (StartsWithWord(word, u"inf") || StartsWithWord(word, u"nan"))
        return start + 3;
    std::size_t end = start + CountDigits(text, start);
    if (end < text.size() && text[end] == u'.')
        end += 1 + CountDigits(text, end + 1);
    if (end < text.size() && (text[end] == u'e' || text[end] == u'E')) {
        const std::size_t digits = end + 1 + CountSign(text, end + 1);
        if (const std::size_t count = CountDigits(text, digits); count > 0)
            end = digits + count;
    }
    return end;
}

} // namespace

bool ScanInteger(std::u16string_view text, long long& value)
{
    text = TrimView(text);
    const std::size_t sign = CountSign(text, 0);
    const std::size_t digits = CountDigits(text, sign);
    if (digits == 0)
        return false;
    if (!ParseInteger(text.substr(0, sign + digits), value)) {
        using CLimits = std::numeric_limits<long long>;
        value = text.starts_with(u'-') ? CLimits::min() : CLimits::max();
    }
    return true;
}

bool ScanReal(std::u16string_view text, double& value)
{
    text = TrimView(text);
    return ParseDouble(text.substr(0, GetRealLength(text)), value);
}

} // namespace CommonUI

#include "common/FormatDirective.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

constexpr std::u16string_view c_numericLetters = u"diuxXofFeEgG";

void ReadFlags(std::u16string_view& rest, SNumberFormat& format)
{
    for (; !rest.empty(); rest.remove_prefix(1)) {
        switch (rest.front()) {
        case u'-':
            format.leftAlign = true;
            break;
        case u'+':
            format.plusSign = true;
            break;
        case u' ':
            format.blankSign = true;
            break;
        case u'0':
            format.zeroPad = true;
            break;
        case u'#':
            format.alternate = true;
            break;
        default:
            return;
        }
    }
}

bool Skip(std::u16string_view& rest, std::u16string_view text)
{
    if (!rest.starts_with(text))
        return false;
    rest.remove_prefix(text.size());
    return true;
}

/// A width or precision: zero where no digits stand.
int ReadLimitedNumber(std::u16string_view& rest)
{
    int number = 0;
    for (; !rest.empty() && rest.front() >= u'0' && rest.front() <= u'9'; rest.remove_prefix(1))
        number = std::min(number * 10 + (rest.front() - u'0'), c_formatLimit);
    return number;
}

void SkipLengthModifiers(std::u16string_view& rest)
{
    if (Skip(rest, u"I64") || Skip(rest, u"I32"))
        return;
    const std::size_t end = rest.find_first_not_of(u"hlzjtL");
    rest.remove_prefix(std::min(end, rest.size()));
}

} // namespace

bool ReadFormatDirective(std::u16string_view text, SFormatDirective& directive)
{
    std::u16string_view rest = text.substr(1);
    SFormatDirective found;
    ReadFlags(rest, found.format);
    found.widthFromArgument = Skip(rest, u"*");
    if (!found.widthFromArgument)
        found.format.width = ReadLimitedNumber(rest);
    if (Skip(rest, u".")) {
        found.precisionFromArgument = Skip(rest, u"*");
        if (!found.precisionFromArgument)
            found.format.precision = ReadLimitedNumber(rest);
    }
    SkipLengthModifiers(rest);
    constexpr std::u16string_view c_otherLetters = u"cs%";
    if (rest.empty() ||
        (c_numericLetters.find(rest.front()) == rest.npos && c_otherLetters.find(rest.front()) == rest.npos))
        return false;
    const char16_t letter = rest.front() == u'i' ? u'd' : rest.front();
    found.format.conversion = static_cast<char>(letter);
    found.length = text.size() - rest.size() + 1;
    directive = found;
    return true;
}

bool ParseNumberFormat(std::u16string_view text, SNumberFormat& format)
{
    SFormatDirective directive;
    if (!text.starts_with(u'%') || !ReadFormatDirective(text, directive) || directive.length != text.size())
        return false;
    if (c_numericLetters.find(text.back()) == text.npos || directive.widthFromArgument ||
        directive.precisionFromArgument)
        return false;
    format = directive.format;
    return true;
}

} // namespace CommonUI

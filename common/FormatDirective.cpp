#include "common/detail/FormatDirective.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

bool IsNumericLetter(char16_t letter)
{
    switch (letter) {
    case u'd':
    case u'i':
    case u'u':
    case u'x':
    case u'X':
    case u'o':
    case u'f':
    case u'F':
    case u'e':
    case u'E':
    case u'g':
    case u'G':
        return true;
    default:
        return false;
    }
}

bool IsLengthModifier(char16_t unit)
{
    return unit == u'l' || unit == u'h' || unit == u'z' || unit == u'j' || unit == u't' || unit == u'L';
}

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

// A width or precision: zero where no digits stand.
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
    while (!rest.empty() && IsLengthModifier(rest.front()))
        rest.remove_prefix(1);
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
    if (rest.empty())
        return false;
    const char16_t letter = rest.front();
    if (!IsNumericLetter(letter) && letter != u's' && letter != u'c' && letter != u'%')
        return false;
    found.format.conversion = letter == u'i' ? 'd' : static_cast<char>(letter);
    found.length = text.size() - rest.size() + 1;
    directive = found;
    return true;
}

bool ParseNumberFormat(std::u16string_view text, SNumberFormat& format)
{
    SFormatDirective directive;
    if (!text.starts_with(u'%') || !ReadFormatDirective(text, directive) || directive.length != text.size())
        return false;
    if (!IsNumericLetter(text.back()) || directive.widthFromArgument || directive.precisionFromArgument)
        return false;
    format = directive.format;
    return true;
}

} // namespace CommonUI

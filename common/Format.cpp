#include "common/Format.h"

#include "common/detail/FormatDirective.h"
#include "common/NumberText.h"
#include "common/Str.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace CommonUI
{

namespace
{

using EKind = CFormatArg::EKind;

// The bits of an integer argument in the size of its own type.
unsigned long long OwnBits(const CFormatArg& arg)
{
    if (arg.GetKind() == EKind::Unsigned)
        return arg.GetUnsigned();
    const auto bits = static_cast<unsigned long long>(arg.GetInt());
    return arg.GetBytes() >= sizeof bits ? bits : bits & ((1ULL << (8 * arg.GetBytes())) - 1);
}

bool IsUnsignedConversion(char conversion)
{
    return conversion == 'u' || conversion == 'x' || conversion == 'X' || conversion == 'o';
}

// The value of an argument for "*", within the limits of a width; zero for a text.
int StarValue(const CFormatArg& arg)
{
    constexpr long long c_limit = c_formatLimit;
    switch (arg.GetKind()) {
    case EKind::Int:
        return static_cast<int>(std::clamp(arg.GetInt(), -c_limit, c_limit));
    case EKind::Unsigned:
        return static_cast<int>(std::min<unsigned long long>(arg.GetUnsigned(), c_limit));
    case EKind::Real:
        return std::isnan(arg.GetReal())
                   ? 0
                   : static_cast<int>(std::clamp<double>(arg.GetReal(), -c_limit, c_limit));
    default:
        return 0;
    }
}

// The first `count` code units, or one less where that would cut a surrogate pair.
std::u16string_view Truncated(std::u16string_view text, std::size_t count)
{
    if (count >= text.size())
        return text;
    const bool cutsPair =
        count > 0 && (text[count - 1] & 0xFC00) == 0xD800 && (text[count] & 0xFC00) == 0xDC00;
    return text.substr(0, cutsPair ? count - 1 : count);
}

class CFormatter
{
public:
    CFormatter(const CFormatArg* args, std::size_t count)
        : m_args(args)
        , m_count(count)
    {
    }

    CStr Run(std::u16string_view format)
    {
        while (!format.empty()) {
            const std::size_t plain = std::min(format.find(u'%'), format.size());
            if (plain != 0)
                m_result += format.substr(0, plain);
            format.remove_prefix(plain);
            if (format.empty())
                break;
            SFormatDirective directive;
            if (!ReadFormatDirective(format, directive)) {
                m_result += u'%';
                format.remove_prefix(1);
                continue;
            }
            if (!PutDirective(directive))
                m_result += format.substr(0, directive.length);
            format.remove_prefix(directive.length);
        }
        return std::move(m_result);
    }

private:
    // @return false when an argument is missing
    bool PutDirective(const SFormatDirective& directive)
    {
        SNumberFormat format = directive.format;
        if (format.conversion == '%') {
            m_result += u'%';
            return true;
        }
        const std::size_t needed =
            1u + (directive.widthFromArgument ? 1u : 0u) + (directive.precisionFromArgument ? 1u : 0u);
        if (m_count - m_next < needed) {
            m_next = m_count;
            return false;
        }
        if (directive.widthFromArgument) {
            const int width = StarValue(m_args[m_next++]);
            format.width = std::abs(width);
            format.leftAlign = format.leftAlign || width < 0;
        }
        if (directive.precisionFromArgument)
            format.precision = StarValue(m_args[m_next++]);
        PutArgument(m_args[m_next++], format);
        return true;
    }

    void PutArgument(const CFormatArg& arg, const SNumberFormat& format)
    {
        const bool numeric = format.conversion != 's' && format.conversion != 'c';
        switch (arg.GetKind()) {
        case EKind::Int:
        case EKind::Unsigned:
            return PutInteger(arg, format);
        case EKind::Real:
            return numeric ? PutNumber(arg.GetReal(), format)
                           : PutPadded(ShortestText(arg.GetReal()).View(), format);
        case EKind::Utf8:
            return PutText(CStr::FromUtf8(arg.GetUtf8()).View(), format);
        default:
            return PutText(arg.GetText(), format);
        }
    }

    void PutInteger(const CFormatArg& arg, const SNumberFormat& format)
    {
        if (format.conversion == 'c' || (format.conversion == 's' && arg.IsCharacter())) {
            const auto unit = static_cast<char16_t>(OwnBits(arg));
            PutPadded({&unit, 1}, format);
        } else if (format.conversion == 's') {
            PutInteger(arg, {.conversion = 'd', .width = format.width, .leftAlign = format.leftAlign});
        } else if (arg.GetKind() == EKind::Unsigned || IsUnsignedConversion(format.conversion)) {
            PutNumber(OwnBits(arg), format);
        } else {
            PutNumber(arg.GetInt(), format);
        }
    }

    template<class T>
    void PutNumber(T value, const SNumberFormat& format)
    {
        m_result.AppendAscii(CNumberText(value, format).View());
    }

    void PutText(std::u16string_view text, const SNumberFormat& format)
    {
        const bool cut = format.conversion == 's' && format.precision >= 0;
        PutPadded(cut ? Truncated(text, static_cast<std::size_t>(format.precision)) : text, format);
    }

    void PutPadded(std::u16string_view text, const SNumberFormat& format)
    {
        const auto width = static_cast<std::size_t>(format.width);
        const CStr blanks(width > text.size() ? width - text.size() : 0, u' ');
        if (!format.leftAlign)
            m_result += blanks;
        m_result += text;
        if (format.leftAlign)
            m_result += blanks;
    }

    const CFormatArg* m_args;
    std::size_t m_count;
    std::size_t m_next = 0;
    CStr m_result;
};

} // namespace

CStr FormatText(std::u16string_view format, const CFormatArg* args, std::size_t count)
{
    return CFormatter(args, count).Run(format);
}

} // namespace CommonUI

#pragma once

#include <charconv>

#if defined(_LIBCPP_VERSION)
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>
#endif

namespace CommonUI
{

#if defined(_LIBCPP_VERSION)
namespace Detail
{

/// Takes a number as std::from_chars does from the front of a text.
class CNumberScan
{
public:
    explicit CNumberScan(std::string_view text)
        : m_text(text)
    {
    }
    /// How many characters belong to the number; 0 where none stands there.
    std::size_t Scan(std::chars_format format)
    {
        Skip("-", 1);
        if (SkipWord("inf"))
            SkipWord("inity");
        else if (SkipWord("nan"))
            SkipPayload();
        else {
            const std::size_t whole = Skip(c_digits);
            const std::size_t fraction = Skip(".", 1) ? Skip(c_digits) : 0;
            if (whole + fraction == 0)
                return 0;
            m_isDecimal = true;
            if (format != std::chars_format::fixed)
                SkipExponent();
        }
        return m_place;
    }
    /// Whether a number that is read as zero is one.
    bool IsZero() const
    {
        const std::string_view number = m_text.substr(0, m_place); // much more may follow
        return number.substr(0, number.find_first_of("eE")).find_first_of("123456789") == number.npos;
    }
    bool IsDecimal() const noexcept { return m_isDecimal; }

private:
    static constexpr std::string_view c_digits = "0123456789";

    std::size_t Skip(std::string_view characters, std::size_t most = std::string_view::npos)
    {
        const std::size_t start = m_place;
        while (m_place < m_text.size() && m_place - start < most &&
               characters.find(m_text[m_place]) != std::string_view::npos)
            ++m_place;
        return m_place - start;
    }
    bool SkipWord(std::string_view lower)
    {
        const std::string_view found = m_text.substr(m_place, lower.size());
        if (found.size() < lower.size())
            return false;
        for (std::size_t i = 0; i < lower.size(); ++i)
            if ((found[i] | 0x20) != lower[i])
                return false;
        m_place += lower.size();
        return true;
    }
    void SkipPayload()
    {
        const std::size_t start = m_place;
        if (Skip("(", 1)) {
            Skip("0123456789_abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ");
            if (!Skip(")", 1))
                m_place = start;
        }
    }
    void SkipExponent()
    {
        const std::size_t start = m_place;
        if (Skip("eE", 1)) {
            Skip("+-", 1);
            if (!Skip(c_digits))
                m_place = start;
        }
    }

    std::string_view m_text;
    std::size_t m_place = 0;
    bool m_isDecimal = false;
};

inline std::from_chars_result ReadDouble(const char* first, const char* last, double& value,
                                         std::chars_format format = std::chars_format::general)
{
    static const locale_t c_locale = newlocale(LC_ALL_MASK, "C", nullptr);
    CNumberScan scan(std::string_view(first, static_cast<std::size_t>(last - first)));
    const std::size_t length = scan.Scan(format);
    if (length == 0)
        return {first, std::errc::invalid_argument};
    const double found = strtod_l(std::string(first, length).c_str(), nullptr, c_locale);
    if (scan.IsDecimal() && (std::isinf(found) || (found == 0 && !scan.IsZero())))
        return {first + length, std::errc::result_out_of_range};
    value = found;
    return {first + length, std::errc()};
}

} // namespace Detail
#endif

/// std::from_chars, also for `double` on the standard library of clang 16, which has it for integers only:
/// there in the formats "general" and "fixed". The base of an integer, or the format, may follow the value.
/// Any thread.
template<class T, class... TForms>
std::from_chars_result FromChars(const char* first, const char* last, T& value, TForms... forms)
{
#if defined(_LIBCPP_VERSION)
    if constexpr (std::is_same_v<T, double>)
        return Detail::ReadDouble(first, last, value, forms...);
    else
#endif
        return std::from_chars(first, last, value, forms...);
}

} // namespace CommonUI

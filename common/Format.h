#pragma once

#include "../export/Export.h"

#include <concepts>
#include <cstddef>
#include <string_view>
#include <type_traits>

namespace CommonUI
{

class CStr;

/// One argument of CStr::Format with its kind, so that a conversion never reads what is not there. It refers
/// to the text it was made from, which must live as long.
class CFormatArg
{
public:
    /// What an argument can be.
    enum class EKind {
        None,
        Int,
        Unsigned,
        Real,
        Text, ///< UTF-16
        Utf8  ///< narrow text, taken as UTF-8
    };

    constexpr CFormatArg() noexcept
        : m_int(0)
    {
    }
    /// An integer, a character or a bool by its value.
    template<std::integral T>
    constexpr CFormatArg(T value) noexcept
        : m_kind(std::is_signed_v<T> ? EKind::Int : EKind::Unsigned)
        , m_bytes(sizeof(T))
        , m_character(std::is_same_v<T, char16_t> || std::is_same_v<T, char>)
    {
        if constexpr (std::is_signed_v<T>)
            m_int = value;
        else
            m_unsigned = value;
    }
    /// An enumerator by its number.
    template<class T>
    requires std::is_enum_v<T>
    constexpr CFormatArg(T value) noexcept
        : CFormatArg(static_cast<std::underlying_type_t<T>>(value))
    {
    }
    /// A real number.
    constexpr CFormatArg(double value) noexcept
        : m_kind(EKind::Real)
        , m_bytes(sizeof(double))
        , m_real(value)
    {
    }
    /// A text of UTF-16.
    constexpr CFormatArg(std::u16string_view value) noexcept
        : m_kind(EKind::Text)
        , m_text(value)
    {
    }
    /// A text of UTF-16 that ends with a zero; null is shown as "(null)".
    constexpr CFormatArg(const char16_t* value) noexcept
        : CFormatArg(value ? std::u16string_view(value) : std::u16string_view(u"(null)"))
    {
    }
    /// A text of UTF-8.
    constexpr CFormatArg(std::string_view value) noexcept
        : m_kind(EKind::Utf8)
        , m_utf8(value)
    {
    }
    /// A text of UTF-8 that ends with a zero; null is shown as "(null)".
    constexpr CFormatArg(const char* value) noexcept
        : CFormatArg(value ? std::string_view(value) : std::string_view("(null)"))
    {
    }
    /// A text object such as a CStr.
    template<class T>
    requires(std::is_class_v<T>&& std::convertible_to<const T&, std::u16string_view>) constexpr CFormatArg(
        const T& value) noexcept
        : CFormatArg(static_cast<std::u16string_view>(value))
    {
    }

    /// Which of the five functions at the end has the argument; None where there is none.
    EKind GetKind() const noexcept { return m_kind; }
    /// Whether the argument was a character (`char` or `char16_t`), which "%s" shows as itself.
    bool IsCharacter() const noexcept { return m_character; }
    /// The size of the argument's type in bytes: "%u" and "%x" of a negative number show it modulo 2^(8 *
    /// bytes).
    std::size_t GetBytes() const noexcept { return m_bytes; }
    /// Of an Int.
    long long GetInt() const noexcept { return m_int; }
    /// Of an Unsigned.
    unsigned long long GetUnsigned() const noexcept { return m_unsigned; }
    /// Of a Real.
    double GetReal() const noexcept { return m_real; }
    /// Of a Text.
    std::u16string_view GetText() const noexcept { return m_text; }
    /// Of a Utf8, as it was given.
    std::string_view GetUtf8() const noexcept { return m_utf8; }

private:
    EKind m_kind = EKind::None;
    std::size_t m_bytes = 0;
    bool m_character = false;
    union {
        long long m_int;
        unsigned long long m_unsigned;
        double m_real;
        std::u16string_view m_text;
        std::string_view m_utf8;
    };
};

/// Formats by printf's rules in the "C" locale, whatever locale the process runs under.
///
/// Conversions: %d %i %u %x %X %o %c %s %f %F %e %E %g %G %%, each with the flags "-+ #0", a width and a
/// precision (either may be "*", which takes an argument). Both count code units and are limited to
/// c_formatLimit. Length modifiers (h, l, ll, z, j, t, L, I32, I64) are read and mean nothing, because every
/// argument knows its own type; "%lf" and "%ls" therefore work as in C.
///
/// %s of a character and %c of any integer give the code unit of that number. The precision of %s cuts the
/// text, never between the halves of a surrogate pair.
///
/// A conversion that does not fit its argument never reads what is not there: an integer conversion truncates
/// a real number toward zero, a real conversion takes an integer's value, %c and %s write a number in its
/// plain form (decimal, or as ShortestText does), a numeric conversion writes a text as it is, uncut but
/// padded to the width; a text for "*" counts as zero. A conversion without an argument, or with an unknown
/// letter (among them %n and %p), stands in the result as it stands in the format. Surplus arguments are
/// ignored.
COMMONDLL_API CStr FormatText(std::u16string_view format, const CFormatArg* args, std::size_t count);

} // namespace CommonUI

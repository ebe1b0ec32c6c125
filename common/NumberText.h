#pragma once

#include "../export/Export.h"
#include "Str.h"

#include <concepts>
#include <cstddef>
#include <memory>
#include <string_view>
#include <type_traits>

namespace CommonUI
{

class CDecimalDigits;

/// How one number becomes text: a single conversion of printf, taken apart.
struct SNumberFormat {
    char conversion = 'f';  ///< one of d u x X o f F e E g G
    int width = 0;          ///< the least number of characters; not negative
    int precision = -1;     ///< as printf takes it for the conversion; negative means that none is given
    bool leftAlign = false; ///< '-': blanks fill the width on the right
    bool plusSign = false;  ///< '+': a number that is not negative has a plus sign
    bool blankSign = false; ///< ' ': a number that is not negative has a blank for a sign
    bool zeroPad = false;   ///< '0': zeros after the sign fill the width
    bool alternate = false; ///< '#': always a decimal point, no zeros dropped; 0x or 0 before a number
};

/// The greatest width and the greatest precision that a format text can ask for; what is greater counts as
/// this much, so that no format from outside exhausts the memory.
constexpr int c_formatLimit = 65535;

/// Reads a format text that consists of exactly one numeric conversion, such as u"%6.3f": flags, width,
/// precision, length modifiers (h l ll z j t L I32 I64, which mean nothing), and a letter of diuxXofFeEgG.
/// Use it on every format that a user or a file supplies.
/// @return false, with `format` unchanged, for any other text: text around the conversion, a second one, "*"
COMMONDLL_API bool ParseNumberFormat(std::u16string_view text, SNumberFormat& format);

/// The text of one number in a format: the same characters as a C library's printf in the "C" locale,
/// whatever the locale of the process, for every value and format.
///
/// The last digit is rounded half to even on the exact binary value. Infinity and not-a-number give "inf" and
/// "nan" with their sign, in capitals under F, E and G. A real conversion of an integer takes its value as a
/// double. An integer conversion of a real number drops the fraction; a number beyond 64 bits keeps all its
/// decimal digits, and what is not finite stays "inf" or "nan". A conversion letter that SNumberFormat does
/// not name is a programming error (EInternal).
///
/// The text lies in the object itself unless width and precision are together beyond about 40.
class CNumberText
{
public:
    /// The text of a real number.
    CNumberText(double value, const SNumberFormat& format) { SetReal(value, format); }
    /// A negative `value` under u, x, X or o counts modulo 2^64.
    template<std::integral T>
    CNumberText(T value, const SNumberFormat& format)
    {
        if constexpr (std::is_signed_v<T>)
            SetSigned(value, format);
        else
            SetUnsigned(value, format);
    }
    CNumberText(const CNumberText&) = delete;
    CNumberText& operator=(const CNumberText&) = delete;

    /// The characters, ASCII only; valid as long as the object.
    std::string_view View() const noexcept { return {m_begin, static_cast<std::size_t>(m_end - m_begin)}; }

private:
    // The longest double in %f has 309 digits before the point.
    static constexpr std::size_t c_internalSize = 384;

    COMMONDLL_API void SetReal(double value, const SNumberFormat& format);
    COMMONDLL_API void SetSigned(long long value, const SNumberFormat& format);
    COMMONDLL_API void SetUnsigned(unsigned long long value, const SNumberFormat& format);
    void SetNotFinite(double value, const SNumberFormat& format);
    void SetFixed(double magnitude, const SNumberFormat& format, int decimals);
    void SetScientific(double magnitude, const SNumberFormat& format, int decimals);
    void SetGeneral(double magnitude, const SNumberFormat& format, int significant);
    void SetTruncated(double value, const SNumberFormat& format);
    void SetInteger(unsigned long long magnitude, std::string_view sign, const SNumberFormat& format);

    void Begin(const SNumberFormat& format, std::size_t length, std::size_t margin);
    void PutDigits(CDecimalDigits digits, int decimals, bool point);
    void AppendZeros(int count);
    void DropZeros();
    void AppendExponent(int exponent, bool capital);
    void PutBefore(std::size_t count, char character);
    void Complete(std::string_view prefix, const SNumberFormat& format, bool padZeros);

    char* m_begin; // the text grows from its last digit to the left
    char* m_end;
    std::unique_ptr<char[]> m_heap;
    char m_internal[c_internalSize];
};

/// Reads a real number, whatever the locale: an optional sign, decimal digits with an optional point, an
/// optional exponent (1.8823e-008), or "inf", "infinity", "nan", "nan(...)" in any case. White space around
/// it is ignored. A number too great for a double gives infinity, one too small gives zero, both with its
/// sign.
/// @return false, with `value` unchanged, when the text is anything else
COMMONDLL_API bool ParseDouble(std::u16string_view text, double& value);

/// Reads a decimal integer with an optional sign. White space around it is ignored.
/// @return false, with `value` unchanged, when the text is anything else or the number does not fit
COMMONDLL_API bool ParseInteger(std::u16string_view text, long long& value);

/// The shortest text from which ParseDouble reads the same number again: "0.1", "1e+23", "inf", "-inf". Every
/// not-a-number is "nan".
COMMONDLL_API CStr ShortestText(double value);

} // namespace CommonUI

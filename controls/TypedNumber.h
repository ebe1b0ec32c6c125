#pragma once

#include "../common/Str.h"
#include "../export/Export.h"

#include <optional>

namespace CommonUI
{

/// How a numeric edit reads what the user has typed.
enum class EScanning {
    Prefix, ///< the number in front, as scanf reads it; anything may follow
    Whole   ///< all of the text, as ReadTypedReal and ReadTypedInteger do
};

/// Reads a number as people write it. The whole text has to be a number, or a number and a unit.
///
/// Point and comma are decimal signs alike: "1.000" and "1,000" are 1. Where both appear, or one of them more
/// than once, the last of them is the decimal sign if it appears once, and the other one groups thousands, as
/// blanks do. What is grouped has one to three digits in front, the first not 0, and then threes, with the
/// same sign between all of them. Minus may be U+2212, and blanks no-break, thin or as wide as a digit.
/// @param unit what the number is shown in; empty for none. Another unit of the same kind, a power of it or a
///     quotient converts: u"800 µm" is 0.8 in u"mm".
/// @return nothing for any other text. A number too great for a double is infinite.
COMMONUI_API std::optional<double> ReadTypedReal(std::u16string_view text, std::u16string_view unit);

/// The same for a whole number without unit. It has no decimal sign, of which nobody could tell whether it
/// groups, but may have an exponent.
COMMONUI_API std::optional<double> ReadTypedInteger(std::u16string_view text);

} // namespace CommonUI

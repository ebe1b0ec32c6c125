#pragma once

#include <string_view>

namespace CommonUI
{

/// Reads what scanf reads for "%d": white space, a sign, decimal digits; anything may follow. A number beyond
/// 64 bits becomes the greatest or the least.
/// @return whether there was a number; false leaves `value` unchanged
bool ScanInteger(std::u16string_view text, long long& value);

/// Reads what scanf reads for "%f": white space and a decimal number, "inf", "infinity" or "nan" in any case;
/// anything may follow. An exponent without digits is not part of the number.
/// @return whether there was a number; false leaves `value` unchanged
bool ScanReal(std::u16string_view text, double& value);

} // namespace CommonUI

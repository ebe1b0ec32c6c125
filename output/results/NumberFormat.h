#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"
#include "../../model/Parameter.h"

namespace CommonUI
{

/// The printf format of a parameter's number format: "%.5lf" for five decimals, "%.5lG" for five significant
/// digits, "%d" for integers and "%lf" for a kind that does not exist. To turn a value into text use
/// FormatParameterValue, which knows that "%d" does not fit a real number.
COMMONUI_API CStr GetFormatString(const CParameter::SFormatSpecifier& format);

/// The text of a value in a parameter's number format. An integer format rounds to the nearest integer, half
/// away from zero. Empty for a NaN, "INF" or "-INF" for an infinity; zero has no sign. Counts are taken from
/// 0 to 99.
/// @param value the value as shown: at the parameter's unit factor
COMMONUI_API CStr FormatParameterValue(double value, const CParameter::SFormatSpecifier& format);

/// A number format in words: "4 Decimals".
COMMONUI_API CStr GenerateNumberFormatText(const CParameter::SFormatSpecifier& format);

/// The text of a result with about `digits` significant digits: fixed point or exponent form by the decade of
/// the value, in widths that line up a column of similar values. Fixed-point texts keep the leading blanks of
/// their width; exponent forms have neither blanks nor leading zeros in the exponent ("1E-6").
///
/// Zero has as many decimals as digits are asked for, from 3 to 8, and otherwise one: "0.0".
/// Empty for a NaN; "INF" from 1.7e35 upward, "-INF" from -1.7e37 downward.
/// @param digits 0 to 8; negative numbers count as 6, larger ones as 8
/// @param integer whether a whole number of magnitude below 32767 is written without decimals
COMMONUI_API CStr FormatResultValue(double value, int digits, bool integer);

} // namespace CommonUI

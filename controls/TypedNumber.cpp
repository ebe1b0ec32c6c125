#include "controls/TypedNumber.h"

#include "common/NumberText.h"
#include "common/Unit.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace CommonUI
{

namespace
{

constexpr std::u16string_view c_digits = u"0123456789";
constexpr std::u16string_view c_decimalSigns = u".,";

bool Contains(std::u16string_view text, char16_t unit)
{
    return text.find(unit) != std::u16string_view::npos;
}

std::size_t CountSign(std::u16string_view text, std::size_t from)
{
    return from < text.size() && Contains(u"+-", text[from]) ? 1 : 0;
}

// One spelling for what looks alike. A tab stays: it stands between the cells of a table.
std::u16string Simplify(std::u16string_view text)
{
    std::u16string result(text);
    for (char16_t& unit : result) {
        if (Contains(u"\u00A0\u2007\u2009\u202F", unit))
            unit = u' ';
        else if (unit == u'\u2212')
            unit = u'-';
        else if (unit == u'\u03BC')
            unit = u'\u00B5';
    }
    return std::u16string(TrimView(result));
}

// What stands in front of the decimal sign, without the signs between thousands.
std::optional<std::u16string> JoinGroups(std::u16string_view whole)
{
    const std::size_t first = whole.find_first_not_of(c_digits);
    std::u16string digits(whole.substr(0, first));
    if (first == std::u16string_view::npos)
        return digits;
    const char16_t separator = whole[first];
    if (!Contains(u" .,", separator) || first == 0 || first > 3 || whole[0] == u'0')
        return std::nullopt;
    constexpr std::size_t c_group = 3;
    for (whole.remove_prefix(first); !whole.empty(); whole.remove_prefix(1 + c_group)) {
        const std::u16string_view group = whole.substr(1, c_group);
        if (whole[0] != separator || group.size() < c_group)
            return std::nullopt;
        digits += group;
    }
    return digits;
}

// A sign that appears more than once is none.
std::size_t FindDecimalSign(std::u16string_view mantissa)
{
    const std::size_t last = mantissa.find_last_of(c_decimalSigns);
    const bool isRepeated = last < mantissa.size() && mantissa.find(mantissa[last]) != last;
    return isRepeated ? std::u16string_view::npos : last;
}

std::optional<double> ReadNumber(std::u16string_view text, bool mayHaveFraction)
{
    const std::size_t sign = CountSign(text, 0);
    const std::size_t end = std::min(text.find_first_of(u"eE"), text.size());
    const std::u16string_view mantissa = text.substr(sign, end - sign);
    const std::size_t mark = FindDecimalSign(mantissa);
    const bool hasMark = mark != std::u16string_view::npos;
    const std::u16string_view fraction = hasMark ? mantissa.substr(mark + 1) : std::u16string_view();
    const auto whole = JoinGroups(mantissa.substr(0, mark));
    if (!whole || (hasMark && !mayHaveFraction) || whole->size() + fraction.size() == 0)
        return std::nullopt;
    std::u16string plain(text.substr(0, sign));
    plain += *whole;
    plain += u'.';
    plain += fraction;
    plain += text.substr(end);
    double value = 0;
    // It refuses what is no digit.
    return ParseDouble(plain, value) ? std::optional(value) : std::nullopt;
}

// Where the unit begins.
std::size_t GetNumberLength(std::u16string_view text)
{
    const std::size_t sign = CountSign(text, 0);
    std::size_t end = std::min(text.find_first_not_of(u"0123456789., ", sign), text.size());
    if (end < text.size() && Contains(u"eE", text[end])) {
        const std::size_t digits = end + 1 + CountSign(text, end + 1);
        const std::size_t behind = std::min(text.find_first_not_of(c_digits, digits), text.size());
        end = behind > digits ? behind : end;
    }
    return end;
}

// 2 of "mm²", which leaves "mm".
int TakePower(std::u16string_view& unit)
{
    int power = 1;
    for (const auto& [sign, value] : {std::pair(u'\u00B2', 2), {u'\u00B3', 3}, {u'2', 2}, {u'3', 3}})
        power = unit.ends_with(sign) ? value : power;
    if (power > 1)
        unit.remove_suffix(1);
    if (power > 1 && unit.ends_with(u'^'))
        unit.remove_suffix(1);
    return power;
}

// How many of its own units a typed one is, of those without a quotient.
std::optional<double> GetSimpleFactor(std::u16string_view typed, std::u16string_view own)
{
    const int power = TakePower(typed);
    if (TakePower(own) != power)
        return std::nullopt;
    const CUnit ownUnit = CUnit::FromText(own);
    CUnit unit;
    // Among lengths "A" is no ampere.
    if (!ownUnit.IsSameKind(CUnit(CUnit::EUnitFactor::Unity)) || !CUnit::ParseLength(typed, unit))
        unit = CUnit::FromText(typed);
    if (!unit.IsSameKind(ownUnit))
        return std::nullopt;
    return std::pow(unit.GetFactorValue() / ownUnit.GetFactorValue(), power);
}

std::optional<double> GetFactor(std::u16string_view typed, std::u16string_view own)
{
    const std::size_t slash = typed.find(u'/');
    const std::size_t ownSlash = own.find(u'/');
    const auto above = GetSimpleFactor(typed.substr(0, slash), own.substr(0, ownSlash));
    const bool isQuotient = slash != std::u16string_view::npos;
    if (!above || isQuotient != (ownSlash != std::u16string_view::npos))
        return std::nullopt;
    if (!isQuotient)
        return above;
    const auto below = GetSimpleFactor(typed.substr(slash + 1), own.substr(ownSlash + 1));
    return below ? std::optional(*above / *below) : std::nullopt;
}

} // namespace

std::optional<double> ReadTypedReal(std::u16string_view text, std::u16string_view unit)
{
    const std::u16string typed = Simplify(text);
    const std::u16string own = Simplify(unit);
    const std::u16string_view view = typed;
    if (const auto number = ReadNumber(view, true))
        return number;
    // Its own text is no unit of any kind for some fields.
    if (view.ends_with(own))
        if (const auto number = ReadNumber(TrimView(view.substr(0, view.size() - own.size())), true))
            return number;
    const std::size_t length = GetNumberLength(view);
    const auto number = ReadNumber(TrimView(view.substr(0, length)), true);
    const auto factor = number ? GetFactor(TrimView(view.substr(length)), own) : std::nullopt;
    return factor ? std::optional(*number * *factor) : std::nullopt;
}

std::optional<double> ReadTypedInteger(std::u16string_view text)
{
    const auto number = ReadNumber(Simplify(text), false);
    return number && std::trunc(*number) == *number ? number : std::nullopt;
}

} // namespace CommonUI

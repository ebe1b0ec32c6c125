#include "common/Unit.h"

#include "export/FromChars.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <span>

namespace CommonUI
{

namespace
{

using EUnitFactor = CUnit::EUnitFactor;

constexpr std::u16string_view c_metre = u"m";

constexpr SEnumRow c_factorNames[] = {
    {.value = 0, .iniName = u"Pico", .textId = 9601},  {.value = 1, .iniName = u"Aangstroem", .textId = 9602},
    {.value = 2, .iniName = u"Nano", .textId = 9603},  {.value = 3, .iniName = u"MicroInch", .textId = 9604},
    {.value = 4, .iniName = u"Micro", .textId = 9605}, {.value = 5, .iniName = u"MilliInch", .textId = 9606},
    {.value = 6, .iniName = u"Milli", .textId = 9607}, {.value = 7, .iniName = u"Centi", .textId = 9608},
    {.value = 8, .iniName = u"Inch", .textId = 9609},  {.value = 9, .iniName = u"Unity", .textId = 9610},
    {.value = 10, .iniName = u"Kilo", .textId = 9611}, {.value = 11, .iniName = u"Mega", .textId = 9612},
    {.value = 12, .iniName = u"Giga", .textId = 9613}, {.value = 13, .iniName = u"Undefined", .textId = 9614},
};

// How a factor is written: as a whole symbol for lengths, as a prefix for every other kind. Factors without
// a metric prefix are never offered for other kinds; their number keeps the text true if one is set all the
// same.
struct SFactorRow {
    double value;
    std::u16string_view length;
    std::u16string_view prefix;
};

constexpr SFactorRow c_factors[] = {
    {1e-12, u"pm", u"p"},         {1e-10, u"Å", u"1E-10"},
    {1e-9, u"nm", u"n"},          {2.54e-8, u"µin", u"2.54E-8"},
    {1e-6, u"µm", u"µ"},          {2.54e-5, u"mil", u"2.54E-5"},
    {1e-3, u"mm", u"m"},          {1e-2, u"cm", u"c"},
    {2.54e-2, u"in", u"2.54E-2"}, {1.0, u"m", u""},
    {1e3, u"km", u"k"},           {1e6, u"Mm", u"M"},
    {1e9, u"Gm", u"G"},           {1.0, u"m", u""},
};

// Further spellings that are understood but never written.
struct SSpelling {
    std::u16string_view text;
    EUnitFactor factor;
};

constexpr SSpelling c_spellings[] = {
    {u"A", EUnitFactor::Aangstroem},
    {u"\u212B", EUnitFactor::Aangstroem},
    {u"Angstrom", EUnitFactor::Aangstroem},
    {u"Ångström", EUnitFactor::Aangstroem},
    {u"um", EUnitFactor::Micro},
    {u"\u03BCm", EUnitFactor::Micro},
    {u"uin", EUnitFactor::MicroInch},
    {u"\u03BCin", EUnitFactor::MicroInch},
    {u"microinch", EUnitFactor::MicroInch},
    {u"µinch", EUnitFactor::MicroInch},
    {u"thou", EUnitFactor::MilliInch},
    {u"inch", EUnitFactor::Inch},
    {u"\"", EUnitFactor::Inch},
};

// Symbols that take a metric prefix. Others, such as "min" or "px", are kinds of their own as they stand.
constexpr std::u16string_view c_prefixable[] = {u"V",  u"A", u"N", u"Hz",  u"s",
                                                u"Pa", u"J", u"W", u"rad", u"Ohm"};

constexpr EUnitFactor c_metric[] = {EUnitFactor::Pico,  EUnitFactor::Nano,  EUnitFactor::Micro,
                                    EUnitFactor::Milli, EUnitFactor::Unity, EUnitFactor::Kilo,
                                    EUnitFactor::Mega,  EUnitFactor::Giga};
constexpr EUnitFactor c_inches[] = {EUnitFactor::MicroInch, EUnitFactor::MilliInch, EUnitFactor::Inch};

const SFactorRow& RowOf(EUnitFactor factor) noexcept
{
    const auto index = static_cast<std::size_t>(factor);
    return c_factors[index < std::size(c_factors) ? index : static_cast<std::size_t>(EUnitFactor::Undefined)];
}

bool IsOfInches(EUnitFactor factor)
{
    return std::ranges::find(c_inches, factor) != std::end(c_inches);
}

// The factor of a metric prefix, or Undefined. The prefix may be written with "u" or the Greek mu for micro.
EUnitFactor FactorOfPrefix(char16_t prefix)
{
    if (prefix == u'u' || prefix == u'\u03BC')
        return EUnitFactor::Micro;
    if (prefix == u'c')
        return EUnitFactor::Centi;
    for (const EUnitFactor factor : c_metric) {
        if (RowOf(factor).prefix == std::u16string_view(&prefix, 1))
            return factor;
    }
    return EUnitFactor::Undefined;
}

// The value as its shown digits say it, rounded like the text itself.
double RoundAsShown(double value, CUnit::SShownDigits shown)
{
    // Longer than any double in fixed notation with up to 17 decimals.
    std::array<char, 350> text;
    char* const end = text.data() + text.size();
    const auto written =
        shown.decimals >= 0
            ? std::to_chars(text.data(), end, value, std::chars_format::fixed, std::min(shown.decimals, 17))
            : std::to_chars(text.data(), end, value, std::chars_format::scientific,
                            std::clamp(shown.significant, 1, 17) - 1);
    double rounded = value;
    FromChars(text.data(), written.ptr, rounded);
    return rounded;
}

} // namespace

CUnit::CUnit(EUnitFactor factor, const CStr& symbol)
    : m_factor(factor)
    , m_symbol(symbol)
{
}

bool CUnit::ParseLength(const CStr& text, CUnit& unit)
{
    const std::u16string_view trimmed = TrimView(text);
    for (std::size_t i = 0; i < static_cast<std::size_t>(EUnitFactor::Undefined); ++i) {
        if (c_factors[i].length == trimmed) {
            unit = CUnit(static_cast<EUnitFactor>(i));
            return true;
        }
    }
    const auto found = std::ranges::find(c_spellings, trimmed, &SSpelling::text);
    if (found == std::end(c_spellings))
        return false;
    unit = CUnit(found->factor);
    return true;
}

CUnit CUnit::FromText(const CStr& text)
{
    const std::u16string_view trimmed = TrimView(text);
    CUnit unit;
    // "A" is ampere here: no length is written so.
    if (std::ranges::find(c_prefixable, trimmed) == std::end(c_prefixable) && ParseLength(text, unit))
        return unit;
    if (trimmed.size() > 1 && std::ranges::find(c_prefixable, trimmed.substr(1)) != std::end(c_prefixable)) {
        if (const EUnitFactor factor = FactorOfPrefix(trimmed[0]); factor != EUnitFactor::Undefined)
            return CUnit(factor, trimmed.substr(1));
    }
    return CUnit(EUnitFactor::Unity, trimmed);
}

double CUnit::GetFactorValue(EUnitFactor factor) noexcept
{
    return RowOf(factor).value;
}

bool CUnit::IsMetricPrefix(EUnitFactor factor) noexcept
{
    return std::ranges::find(c_metric, factor) != std::end(c_metric);
}

CStr CUnit::GetText() const
{
    if (IsEmpty())
        return {};
    const SFactorRow& row = RowOf(m_factor);
    if (m_symbol == c_metre)
        return row.length;
    if (row.prefix.size() > 1)
        return u"(" + CStr(row.prefix) + u" " + m_symbol + u")";
    return CStr(row.prefix) + m_symbol;
}

CUnit::EUnitFactor CUnit::SuitableFactor(double value, int power, SShownDigits shown) const
{
    if (value == 0 || !std::isfinite(value) || power < 1)
        return m_factor;
    const auto factors = IsOfInches(m_factor) ? std::span<const EUnitFactor>(c_inches) : std::span(c_metric);
    const auto scaled = [&](std::size_t i) {
        return std::abs(value) / std::pow(GetFactorValue(factors[i]), power);
    };
    std::size_t best = factors.size() - 1;
    while (best > 0 && scaled(best) < 1)
        --best;
    if (best + 1 < factors.size()) {
        const double step =
            std::pow(GetFactorValue(factors[best + 1]) / GetFactorValue(factors[best]), power);
        // The quotient of two factors is not exact; what is shown is.
        if (RoundAsShown(scaled(best), shown) >= RoundAsShown(step, SShownDigits{12}))
            ++best;
    }
    return factors[best];
}

const CEnum<CUnit::EUnitFactor>& CUnit::GetUnitFactorEnum()
{
    return GetEnumOfRows<EUnitFactor, c_factorNames, EUnitFactor::Unity>();
}

} // namespace CommonUI

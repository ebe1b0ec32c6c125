#include "controls/TypedNumber.h"

#include <gtest/gtest.h>

#include <limits>

using namespace CommonUI;

namespace
{

CStr Describe(std::u16string_view text, std::u16string_view unit)
{
    return CStr(text) + u" in " + CStr(unit);
}

} // namespace

TEST(TypedNumber, IsUnderstoodAsPeopleWriteIt)
{
    constexpr double c_infinity = std::numeric_limits<double>::infinity();
    const std::tuple<const char16_t*, const char16_t*, double> cases[] = {
        {u" 0,8\n", u"", 0.8},
        {u"1.000", u"", 1},
        {u"+1,000", u"", 1},
        {u"1 000", u"", 1000},
        {u"\u221212\u00A0345\u2007678.5", u"", -12345678.5},
        {u"1\u2009000\u202F000,", u"", 1e6},
        {u"1.234.567", u"", 1234567},
        {u"1,234.5", u"", 1234.5},
        {u"-123.456.789,5E\u22121", u"", -12345678.95},
        {u".5e3", u"", 500},
        {u"-1e400", u"", -c_infinity},
        {u"0.80 mm", u"mm", 0.8},
        {u"800 \u00B5m", u"mm", 0.8},
        {u"1 200,5\u202F\u03BCm", u"\u00B5m", 1200.5},
        {u"5um", u"\u03BCm", 5},
        {u"2 in", u"mm", 50.8},
        {u"5 A", u"nm", 0.5},
        {u"5 mA", u"A", 0.005},
        {u"1e-6 m\u00B2", u"mm^2", 1},
        {u"5 eV/mm", u"eV/m", 5000},
        {u"3 mm/s2", u"m/s\u00B2", 0.003},
        {u"12,5\u03BCbar", u"\u00B5bar", 12.5},
        {u"1,25, as measured", u", as measured", 1.25}};
    for (const auto& [text, unit, value] : cases)
        EXPECT_DOUBLE_EQ(ReadTypedReal(text, unit).value_or(c_infinity), value)
            << Describe(text, unit).ToUtf8();
}

TEST(TypedNumber, IsRefusedWhereItWouldBeReadInPart)
{
    for (const char16_t* text :
         {u"",       u"mm",         u"-",         u"--5",         u"- 5",         u".",
          u"1e",     u"1 e5",       u"12abc",     u"1  000",      u"10 00",       u"1000 000",
          u"0 123",  u"1 000 00",   u"1.234 567", u"1 234.567,8", u"1,234.567.8", u"1.234,567,890",
          u"1\t000", u"1,2,3",      u"1.5 2.5",   u"inf",         u"nan",         u"0x10",
          u"5 V",    u"5 mm\u00B2", u"5 mm/s",    u"5 mm mm",     u"5 1"})
        EXPECT_FALSE(ReadTypedReal(text, u"mm")) << CStr(text).ToUtf8();
    for (const auto& [text, unit] :
         {std::pair(u"5 mm", u""), {u"5 A", u"V"}, {u"5 N", u"N/m"}, {u"5 V/m", u"N/m"}, {u"5 N/s", u"N/m"}})
        EXPECT_FALSE(ReadTypedReal(text, unit)) << Describe(text, unit).ToUtf8();
}

TEST(TypedNumber, OfWholeNumbersHasNoDecimalSign)
{
    for (const auto& [text, value] :
         {std::pair(u"-1 000", -1000), {u"1.000.000", 1000000}, {u"15e2", 1500}, {u"\u22127 ", -7}})
        EXPECT_EQ(ReadTypedInteger(text), value) << CStr(text).ToUtf8();
    for (const char16_t* text : {u"1.000", u"1,000", u"2.", u"15e-1", u"5 mm"})
        EXPECT_FALSE(ReadTypedInteger(text)) << CStr(text).ToUtf8();
}

#include "common/Unit.h"
#include "common/Range.h"
#include "tests/TestData.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace CommonUI;
using EFactor = CUnit::EUnitFactor;
using enum CUnit::EUnitFactor;

// A line of the record for each factor: number, key, value, the unit of a length and of a voltage.
TEST(Unit, FactorsHaveTheirValuesKeysAndTexts)
{
    constexpr EFactor c_order[] = {Pico,  Aangstroem, Nano,  MicroInch, Micro, MilliInch, Milli,
                                   Centi, Inch,       Unity, Kilo,      Mega,  Giga,      Undefined};
    const auto& factors = CUnit::GetUnitFactorEnum();
    const std::vector<std::string> rows = ReadTestLines("unit-factors.txt");
    ASSERT_EQ(rows.size(), std::size(c_order));
    ASSERT_EQ(factors.GetCount(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE(rows[i]);
        const EFactor factor = c_order[i];
        const std::vector<std::string> cells = SplitText(rows[i], '|');
        const int number = static_cast<int>(factor);
        const double value = CUnit::GetFactorValue(factor);
        const CStr key = CStr::FromUtf8(cells[1]);
        EXPECT_EQ(std::pair(number, value), std::pair(std::stoi(cells[0]), std::stod(cells[2])));
        EXPECT_EQ(std::pair(factors.GetIniName(number), factors.GetValue(key)), std::pair(key, factor));
        EXPECT_FALSE(factors.GetFriendlyString(number).IsEmpty());
        EXPECT_EQ(CUnit(factor).GetText().ToUtf8(), cells[3]);
        EXPECT_EQ(CUnit(factor, u"V").GetText().ToUtf8(), cells[4]);
        EXPECT_EQ(CUnit::FromText(CUnit(factor).GetText()).GetFactorValue(), value);
        const CStr ampere = CUnit(factor, u"A").GetText();
        EXPECT_TRUE(ampere.StartsWith(u"(") || CUnit::FromText(ampere).GetText() == ampere);
    }
    EXPECT_EQ(CUnit::GetUnitFactorEnum().GetValue(u"nano"), Unity);
    EXPECT_EQ(CUnit::GetFactorValue(static_cast<EFactor>(99)), 1);
}

TEST(Unit, ReadsTexts)
{
    const std::tuple<const char16_t*, EFactor, const char16_t*> cases[] = {
        {u"", Unity, u""},    {u"uV", Micro, u"V"},          {u"A", Unity, u"A"},  {u" nm ", Nano, u"m"},
        {u"Mm", Mega, u"m"},  {u"NM", Unity, u"NM"},         {u"°", Unity, u"°"},  {u"min", Unity, u"min"},
        {u"%", Unity, u"%"},  {u"\u03BCm", Micro, u"m"},     {u"um", Micro, u"m"}, {u"uin", MicroInch, u"m"},
        {u"mm", Milli, u"m"}, {u"\u212B", Aangstroem, u"m"}, {u"mV", Milli, u"V"}};
    for (const auto& [text, factor, symbol] : cases) {
        const CUnit unit = CUnit::FromText(text);
        EXPECT_TRUE(unit.GetFactor() == factor && unit.GetSymbol() == symbol) << CStr(text).ToUtf8();
    }
    CUnit unit(Kilo);
    EXPECT_TRUE(CUnit::ParseLength(u"A", unit));
    EXPECT_EQ(unit, CUnit(Aangstroem));
    unit = CUnit(Kilo);
    EXPECT_FALSE(CUnit::ParseLength(u"mV", unit));
    EXPECT_EQ(unit, CUnit(Kilo));
    EXPECT_TRUE(CUnit(Nano).IsSameKind(CUnit(Inch)) && !CUnit(Nano).IsSameKind(CUnit(Nano, u"V")));
}

TEST(Unit, SuitableFactorIsChosenAfterRounding)
{
    constexpr double c_infinity = std::numeric_limits<double>::infinity();
    constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();
    constexpr CUnit::SShownDigits c_one{.decimals = 1};
    constexpr CUnit::SShownDigits c_five{};
    const std::tuple<double, int, EFactor, CUnit::SShownDigits, EFactor> cases[] = {
        {35.2e-9, 1, Unity, c_five, Nano},     {-35.2e-9, 1, Unity, c_five, Nano},
        {999.99e-9, 1, Unity, c_five, Nano},   {999.996e-9, 1, Unity, c_five, Micro},
        {999.94e-9, 1, Unity, c_one, Nano},    {999.96e-9, 1, Unity, c_one, Micro},
        {1e-6, 1, Unity, c_five, Micro},       {1e-12, 2, Unity, c_five, Micro},
        {1e-18, 3, Unity, c_five, Micro},      {2.5e-13, 2, Unity, c_five, Nano},
        {1e-15, 1, Unity, c_five, Pico},       {1e15, 1, Unity, c_five, Giga},
        {1e-6, 1, Inch, c_five, MicroInch},    {1, 1, MicroInch, c_five, Inch},
        {0, 1, Milli, c_five, Milli},          {5e-9, 0, Milli, c_five, Milli},
        {c_infinity, 1, Milli, c_five, Milli}, {c_nan, 1, Milli, c_five, Milli}};
    for (const auto& [value, power, unit, shown, expected] : cases)
        EXPECT_EQ(CUnit(unit).SuitableFactor(value, power, shown), expected) << value << " power " << power;
}

TEST(Range, HoldsItsBoundsAndNoNaN)
{
    constexpr CRange<float> c_range(1, 3);
    EXPECT_TRUE(c_range.Contains(1) && c_range.Contains(3));
    EXPECT_FALSE(c_range.Contains(3.5F) || c_range.Contains(std::nanf("")));
    EXPECT_TRUE(CRange<float>(3, 1).IsEmpty() && c_range.Intersection({4, 5}).IsEmpty());
    EXPECT_TRUE(c_range.Clamp(9) == 3 && CRange<float>::Ordered(3, 1) == c_range);
    EXPECT_EQ(c_range.Including(0), CRange<float>(0, 3));
}

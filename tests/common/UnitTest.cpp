#include "common/Unit.h"
#include "common/Range.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace CommonUI;
using EFactor = CUnit::EUnitFactor;
using enum CUnit::EUnitFactor;

namespace
{

struct SFactorCase {
    EFactor factor;
    const char16_t* key;
    double value;
    const char16_t* length;
    const char16_t* volt;
};

constexpr SFactorCase c_factorCases[] = {
    {Pico, u"Pico", 1e-12, u"pm", u"pV"},
    {Aangstroem, u"Aangstroem", 1e-10, u"Å", u"(1E-10 V)"},
    {Nano, u"Nano", 1e-9, u"nm", u"nV"},
    {MicroInch, u"MicroInch", 2.54e-8, u"µin", u"(2.54E-8 V)"},
    {Micro, u"Micro", 1e-6, u"µm", u"µV"},
    {MilliInch, u"MilliInch", 2.54e-5, u"mil", u"(2.54E-5 V)"},
    {Milli, u"Milli", 1e-3, u"mm", u"mV"},
    {Centi, u"Centi", 1e-2, u"cm", u"cV"},
    {Inch, u"Inch", 2.54e-2, u"in", u"(2.54E-2 V)"},
    {Unity, u"Unity", 1, u"m", u"V"},
    {Kilo, u"Kilo", 1e3, u"km", u"kV"},
    {Mega, u"Mega", 1e6, u"Mm", u"MV"},
    {Giga, u"Giga", 1e9, u"Gm", u"GV"},
    {Undefined, u"Undefined", 1, u"m", u"V"},
};

} // namespace

TEST(Unit, FactorsHaveTheirValuesKeysAndTexts)
{
    ASSERT_EQ(CUnit::GetUnitFactorEnum().GetCount(), std::size(c_factorCases));
    for (const SFactorCase& row : c_factorCases) {
        SCOPED_TRACE(CStr(row.key).ToUtf8());
        EXPECT_EQ(CUnit::GetFactorValue(row.factor), row.value);
        EXPECT_EQ(CUnit::GetUnitFactorEnum().GetIniName(static_cast<int>(row.factor)), row.key);
        EXPECT_EQ(CUnit::GetUnitFactorEnum().GetValue(row.key), row.factor);
        EXPECT_FALSE(CUnit::GetUnitFactorEnum().GetFriendlyString(static_cast<int>(row.factor)).IsEmpty());
        EXPECT_EQ(CUnit(row.factor).GetText(), row.length);
        EXPECT_EQ(CUnit(row.factor, u"V").GetText(), row.volt);
        EXPECT_EQ(CUnit::FromText(row.length).GetFactorValue(), row.value);
        if (!CStr(row.volt).StartsWith(u"(")) {
            const CStr ampere = CStr(row.volt).Replace(u"V", u"A");
            EXPECT_EQ(CUnit::FromText(ampere).GetText(), ampere);
        }
    }
    EXPECT_EQ(CUnit::GetUnitFactorEnum().GetValue(u"nano"), Unity);
    EXPECT_EQ(CUnit::GetFactorValue(static_cast<EFactor>(99)), 1);
}

TEST(Unit, ReadsTexts)
{
    const struct {
        const char16_t* text;
        EFactor factor;
        const char16_t* symbol;
    } cases[] = {{u"um", Micro, u"m"},          {u"\u03BCm", Micro, u"m"},
                 {u" nm ", Nano, u"m"},         {u"A", Unity, u"A"},
                 {u"\u212B", Aangstroem, u"m"}, {u"mm", Milli, u"m"},
                 {u"Mm", Mega, u"m"},           {u"uin", MicroInch, u"m"},
                 {u"mV", Milli, u"V"},          {u"uV", Micro, u"V"},
                 {u"min", Unity, u"min"},       {u"°", Unity, u"°"},
                 {u"%", Unity, u"%"},           {u"", Unity, u""},
                 {u"NM", Unity, u"NM"}};
    for (const auto& row : cases) {
        const CUnit unit = CUnit::FromText(row.text);
        EXPECT_EQ(unit.GetFactor(), row.factor) << CStr(row.text).ToUtf8();
        EXPECT_EQ(unit.GetSymbol(), row.symbol) << CStr(row.text).ToUtf8();
    }
    CUnit unit(Kilo);
    EXPECT_TRUE(CUnit::ParseLength(u"A", unit));
    EXPECT_EQ(unit, CUnit(Aangstroem));
    unit = CUnit(Kilo);
    EXPECT_FALSE(CUnit::ParseLength(u"mV", unit));
    EXPECT_EQ(unit, CUnit(Kilo));
    EXPECT_TRUE(CUnit(Nano).IsSameKind(CUnit(Inch)));
    EXPECT_FALSE(CUnit(Nano).IsSameKind(CUnit(Nano, u"V")));
}

TEST(Unit, SuitableFactorIsChosenAfterRounding)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr CUnit::SShownDigits one{.decimals = 1};
    constexpr CUnit::SShownDigits five{};
    const struct {
        double value;
        int power;
        EFactor unit;
        CUnit::SShownDigits shown;
        EFactor expected;
    } cases[] = {{35.2e-9, 1, Unity, five, Nano},   {-35.2e-9, 1, Unity, five, Nano},
                 {999.99e-9, 1, Unity, five, Nano}, {999.996e-9, 1, Unity, five, Micro},
                 {999.94e-9, 1, Unity, one, Nano},  {999.96e-9, 1, Unity, one, Micro},
                 {1e-6, 1, Unity, five, Micro},     {1e-12, 2, Unity, five, Micro},
                 {1e-18, 3, Unity, five, Micro},    {2.5e-13, 2, Unity, five, Nano},
                 {1e-15, 1, Unity, five, Pico},     {1e15, 1, Unity, five, Giga},
                 {1e-6, 1, Inch, five, MicroInch},  {1, 1, MicroInch, five, Inch},
                 {0, 1, Milli, five, Milli},        {5e-9, 0, Milli, five, Milli},
                 {infinity, 1, Milli, five, Milli}, {nan, 1, Milli, five, Milli}};
    for (const auto& row : cases)
        EXPECT_EQ(CUnit(row.unit).SuitableFactor(row.value, row.power, row.shown), row.expected)
            << row.value << " power " << row.power;
}

TEST(Range, HoldsItsBoundsAndNoNaN)
{
    constexpr CRange<float> range(1, 3);
    EXPECT_TRUE(range.Contains(1) && range.Contains(3));
    EXPECT_FALSE(range.Contains(3.5F) || range.Contains(std::nanf("")));
    EXPECT_EQ(range.Clamp(9), 3);
    EXPECT_EQ(CRange<float>::Ordered(3, 1), range);
    EXPECT_TRUE(CRange<float>(3, 1).IsEmpty());
    EXPECT_TRUE(range.Intersection({4, 5}).IsEmpty());
    EXPECT_EQ(range.Including(0), CRange<float>(0, 3));
}

#include "common/Unit.h"
#include "common/Range.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace CommonUI;
using EFactor = CUnit::EUnitFactor;

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
    {EFactor::Pico, u"Pico", 1e-12, u"pm", u"pV"},
    {EFactor::Aangstroem, u"Aangstroem", 1e-10, u"Å", u"(1E-10 V)"},
    {EFactor::Nano, u"Nano", 1e-9, u"nm", u"nV"},
    {EFactor::MicroInch, u"MicroInch", 2.54e-8, u"µin", u"(2.54E-8 V)"},
    {EFactor::Micro, u"Micro", 1e-6, u"µm", u"µV"},
    {EFactor::MilliInch, u"MilliInch", 2.54e-5, u"mil", u"(2.54E-5 V)"},
    {EFactor::Milli, u"Milli", 1e-3, u"mm", u"mV"},
    {EFactor::Centi, u"Centi", 1e-2, u"cm", u"cV"},
    {EFactor::Inch, u"Inch", 2.54e-2, u"in", u"(2.54E-2 V)"},
    {EFactor::Unity, u"Unity", 1, u"m", u"V"},
    {EFactor::Kilo, u"Kilo", 1e3, u"km", u"kV"},
    {EFactor::Mega, u"Mega", 1e6, u"Mm", u"MV"},
    {EFactor::Giga, u"Giga", 1e9, u"Gm", u"GV"},
    {EFactor::Undefined, u"Undefined", 1, u"m", u"V"},
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
    EXPECT_EQ(CUnit::GetUnitFactorEnum().GetValue(u"nano"), EFactor::Unity);
    EXPECT_EQ(CUnit::GetFactorValue(static_cast<EFactor>(99)), 1);
}

TEST(Unit, ReadsTexts)
{
    const struct {
        const char16_t* text;
        EFactor factor;
        const char16_t* symbol;
    } cases[] = {
        {u"um", EFactor::Micro, u"m"},          {u"\u03BCm", EFactor::Micro, u"m"},
        {u" nm ", EFactor::Nano, u"m"},         {u"A", EFactor::Unity, u"A"},
        {u"\u212B", EFactor::Aangstroem, u"m"}, {u"mm", EFactor::Milli, u"m"},
        {u"Mm", EFactor::Mega, u"m"},           {u"uin", EFactor::MicroInch, u"m"},
        {u"mV", EFactor::Milli, u"V"},          {u"uV", EFactor::Micro, u"V"},
        {u"min", EFactor::Unity, u"min"},       {u"°", EFactor::Unity, u"°"},
        {u"%", EFactor::Unity, u"%"},           {u"", EFactor::Unity, u""},
        {u"NM", EFactor::Unity, u"NM"},
    };
    for (const auto& row : cases) {
        const CUnit unit = CUnit::FromText(row.text);
        EXPECT_EQ(unit.GetFactor(), row.factor) << CStr(row.text).ToUtf8();
        EXPECT_EQ(unit.GetSymbol(), row.symbol) << CStr(row.text).ToUtf8();
    }
    CUnit unit(EFactor::Kilo);
    EXPECT_TRUE(CUnit::ParseLength(u"A", unit));
    EXPECT_EQ(unit, CUnit(EFactor::Aangstroem));
    unit = CUnit(EFactor::Kilo);
    EXPECT_FALSE(CUnit::ParseLength(u"mV", unit));
    EXPECT_EQ(unit, CUnit(EFactor::Kilo));
    EXPECT_TRUE(CUnit(EFactor::Nano).IsSameKind(CUnit(EFactor::Inch)));
    EXPECT_FALSE(CUnit(EFactor::Nano).IsSameKind(CUnit(EFactor::Nano, u"V")));
}

TEST(Unit, SuitableFactorIsChosenAfterRounding)
{
    constexpr CUnit::SShownDigits oneDecimal{.decimals = 1};
    constexpr CUnit::SShownDigits fiveDigits{};
    const struct {
        double value;
        int power;
        EFactor unit;
        CUnit::SShownDigits shown;
        EFactor expected;
    } cases[] = {
        {35.2e-9, 1, EFactor::Unity, fiveDigits, EFactor::Nano},
        {-35.2e-9, 1, EFactor::Unity, fiveDigits, EFactor::Nano},
        {999.99e-9, 1, EFactor::Unity, fiveDigits, EFactor::Nano},
        {999.996e-9, 1, EFactor::Unity, fiveDigits, EFactor::Micro},
        {999.94e-9, 1, EFactor::Unity, oneDecimal, EFactor::Nano},
        {999.96e-9, 1, EFactor::Unity, oneDecimal, EFactor::Micro},
        {960e-9, 1, EFactor::Unity, oneDecimal, EFactor::Nano},
        {1e-6, 1, EFactor::Unity, fiveDigits, EFactor::Micro},
        {1e-12, 2, EFactor::Unity, fiveDigits, EFactor::Micro},
        {1e-18, 3, EFactor::Unity, fiveDigits, EFactor::Micro},
        {2.5e-13, 2, EFactor::Unity, fiveDigits, EFactor::Nano},
        {1e-15, 1, EFactor::Unity, fiveDigits, EFactor::Pico},
        {1e15, 1, EFactor::Unity, fiveDigits, EFactor::Giga},
        {1e-6, 1, EFactor::Inch, fiveDigits, EFactor::MicroInch},
        {1, 1, EFactor::MicroInch, fiveDigits, EFactor::Inch},
        {0, 1, EFactor::Milli, fiveDigits, EFactor::Milli},
        {5e-9, 0, EFactor::Milli, fiveDigits, EFactor::Milli},
        {std::numeric_limits<double>::infinity(), 1, EFactor::Milli, fiveDigits, EFactor::Milli},
        {std::nan(""), 1, EFactor::Milli, fiveDigits, EFactor::Milli},
    };
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

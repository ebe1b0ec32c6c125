#include "model/Parameter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

using namespace CommonUI;
using EDimension = CParameter::EDimension;
using EFactor = CUnit::EUnitFactor;

namespace
{

CParameter MakeParameter(EDimension dimension = EDimension::None, bool on = true)
{
    return CParameter(5, u"Key", u"Name", u"", 2, on, dimension);
}

const CUnit c_metre(EFactor::Unity);
const CUnit c_volt(EFactor::Unity, u"V");
const SBase3D<CUnit> c_lengths{c_metre, CUnit(EFactor::Nano), c_metre};

} // namespace

TEST(Parameter, ApplicationsKnowItsConstants)
{
    EXPECT_EQ(std::bit_cast<std::uint64_t>(CParameter::c_NoLimit), 0x7FF7FFFFFFFFFFF0u);
    EXPECT_EQ(MakeParameter().GetAxisMode(), 1);
}

TEST(Parameter, DimensionsScaleAndShowTheirUnit)
{
    const struct {
        EDimension dimension;
        int power;
        double factorAtNano;
        const char16_t* text;
    } cases[] = {
        {EDimension::None, 0, 1, u""},
        {EDimension::Length, 1, 1e9, u"nm"},
        {EDimension::LengthX, 1, 1e9, u"nm"},
        {EDimension::LengthY, 1, 1e9, u"nm"},
        {EDimension::LengthZ, 1, 1e9, u"nm"},
        {EDimension::Area, 2, 1e18, u"nm²"},
        {EDimension::Volume, 3, 1e27, u"nm³"},
        {EDimension::InverseLength, 0, 1e-9, u"1/nm"},
        {EDimension::InverseArea, 0, 1e-18, u"1/nm²"},
        {EDimension::Angle, 1, 1, u"°"},
        {EDimension::Percent, 0, 1, u"%"},
        {static_cast<EDimension>(11), 0, 1, u""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(static_cast<int>(row.dimension));
        const CParameter parameter = MakeParameter(row.dimension);
        EXPECT_EQ(parameter.DimensionToPower(), row.power);
        EXPECT_NEAR(parameter.CalcFactor() / row.factorAtNano, 1, 1e-15);
        EXPECT_EQ(parameter.GetScaledUnitStr(c_metre), row.text);
        EXPECT_EQ(parameter.GetScaledUnitStr(c_lengths), row.text);
    }
}

TEST(Parameter, UnitsOfAxesMustAgreeWhereADimensionNeedsIt)
{
    struct SCase {
        EDimension dimension;
        const char16_t* x;
        const char16_t* y;
        const char16_t* z;
        const char16_t* text;
        const char16_t* unit;
        int power;
    };
    const SCase cases[] = {
        {EDimension::Length, u"m", u"V", u"m", u"", u"", 0},
        {EDimension::Length, u"m", u"m", u"V", u"nm", u"m", 1},
        {EDimension::LengthX, u"V", u"m", u"m", u"nV", u"V", 1},
        {EDimension::LengthY, u"m", u"V", u"m", u"nV", u"V", 1},
        {EDimension::LengthZ, u"m", u"m", u"V", u"nV", u"V", 1},
        {EDimension::Area, u"m", u"V", u"m", u"", u"", 0},
        {EDimension::Area, u"m", u"m", u"V", u"nm²", u"m", 2},
        {EDimension::Volume, u"m", u"m", u"V", u"", u"", 0},
        {EDimension::Volume, u"m", u"m", u"m", u"nm³", u"m", 3},
        {EDimension::InverseLength, u"V", u"m", u"m", u"1/nV", u"", 0},
        {EDimension::InverseArea, u"m", u"V", u"m", u"", u"", 0},
        {EDimension::Angle, u"m", u"V", u"m", u"°", u"°", 1},
        {EDimension::Percent, u"m", u"V", u"m", u"%", u"", 0},
        {EDimension::None, u"m", u"m", u"m", u"", u"", 0},
    };
    for (const SCase& row : cases) {
        SCOPED_TRACE(static_cast<int>(row.dimension));
        const auto unitOf = [](const char16_t* symbol) { return CUnit(EFactor::Unity, symbol); };
        const SBase3D<CUnit> units{unitOf(row.x), unitOf(row.y), unitOf(row.z)};
        EXPECT_EQ(MakeParameter(row.dimension).GetScaledUnitStr(units), row.text);
        CUnit unit(EFactor::Giga);
        int power = 9;
        CParameter::GetUnitAndPower(row.dimension, units, unit, power);
        EXPECT_EQ(unit.GetSymbol(), row.unit);
        EXPECT_EQ(power, row.power);
    }
}

TEST(Parameter, SetupFactorSuitsTheValueInTheParametersFormat)
{
    CParameter length = MakeParameter(EDimension::LengthZ);
    EXPECT_NEAR(length.SetupFactor(c_lengths, 3.5e-8), 1e9, 1e-6);
    EXPECT_EQ(length.GetUnitFactor(), EFactor::Nano);
    length.SetFloatFormat({CParameter::EFormatSpecifier::FormatDecimals, 1});
    length.SetupFactor(c_lengths, 999.96e-9);
    EXPECT_EQ(length.GetUnitFactor(), EFactor::Micro);
    CParameter area = MakeParameter(EDimension::Area);
    EXPECT_NEAR(area.SetupFactor(c_lengths, 2e-10), 1e12, 1);
    CParameter angle = MakeParameter(EDimension::Angle);
    EXPECT_EQ(angle.SetupFactor(c_lengths, 1e-9), 1);
    EXPECT_EQ(angle.GetUnitFactor(), EFactor::Undefined);
}

TEST(Parameter, ScalingsAreOfferedWhereAUnitCanBeChosen)
{
    const auto scalings = CParameter::GetScalingsList(EDimension::Area, c_lengths);
    ASSERT_EQ(scalings.size(), 7u);
    EXPECT_EQ(scalings[3], CParameter::CScaling(EFactor::Micro, u"µm²"));
    const auto inches = CParameter::GetUSMetricScalingsList(EDimension::InverseLength, c_lengths);
    ASSERT_EQ(inches.size(), 3u);
    EXPECT_EQ(inches[1], CParameter::CScaling(EFactor::MilliInch, u"1/mil"));
    for (const EDimension dimension : {EDimension::None, EDimension::Angle, EDimension::Percent})
        EXPECT_TRUE(CParameter::GetScalingsList(dimension, c_lengths).empty());
    const SBase3D<CUnit> mixed{c_metre, c_volt, c_volt};
    EXPECT_TRUE(CParameter::GetScalingsList(EDimension::Area, mixed).empty());
    CStr offered;
    for (const auto& scaling : CParameter::GetScalingsList(EDimension::LengthZ, mixed))
        offered += scaling.second + u" ";
    EXPECT_EQ(offered, u"pV nV µV mV V ");
    EXPECT_TRUE(CParameter::GetUSMetricScalingsList(EDimension::LengthZ, mixed).empty());
}

TEST(Parameter, TemplatesAndTheirInstances)
{
    CParameter parent = MakeParameter(EDimension::Percent);
    parent.SetLimits(0, 100);
    parent.SetHistogramSetup(1, {.classCount = 7});
    parent.SetAxisTicks({1, 2});
    CParameter variable(1, u"p", u"Percentile", u"", 0, true);
    variable.SetVariableValue(95);
    parent.AddVariable(variable);
    EXPECT_FALSE(parent.IsOn());
    EXPECT_EQ(variable.GetParentValue(), 5);

    parent.SetOn(true);
    CParameter instance(144, parent);
    EXPECT_EQ(instance.GetValue(), 144);
    EXPECT_EQ(instance.GetParentValue(), 5);
    EXPECT_EQ(instance.GetBaseValue(), 5);
    EXPECT_TRUE(instance.IsOn()) << "an instance keeps the parent's switch";
    EXPECT_EQ(instance.GetFriendlyString(), u"Name");
    EXPECT_EQ(instance.GetStandard(), 2);
    EXPECT_EQ(instance.GetUpperLimit(), 100);
    EXPECT_EQ(instance.GetHistogramSetup(1).classCount, 20);
    EXPECT_TRUE(instance.GetAxisTicks().empty());
    ASSERT_EQ(instance.GetVariableCount(), 1u);
    EXPECT_EQ(instance.GetVariable(0).GetParentValue(), 144);
    EXPECT_EQ(instance.GetVariable(0).GetVariableValue(), 95);
    instance.GetVariable(0).SetVariableValue(10);
    EXPECT_EQ(parent.GetVariable(0).GetVariableValue(), 95);
}

TEST(Parameter, IsEqualComparesChoicesNotTexts)
{
    CParameter base = MakeParameter(EDimension::Length);
    CParameter variable(1, u"p", u"p", u"", 0, true);
    base.AddVariable(variable);
    EXPECT_TRUE(CParameter::IsEqual(base, base));
    const std::function<void(CParameter&)> differences[] = {
        [](CParameter& p) { p.SetOn(!p.IsOn()); },
        [](CParameter& p) { p.SetUnitFactor(EFactor::Milli); },
        [](CParameter& p) { p.SetDimension(EDimension::Area); },
        [](CParameter& p) {
            p.SetFloatFormat({CParameter::EFormatSpecifier::FormatDecimals, 5});
        },
        [](CParameter& p) {
            p.SetFloatFormat({CParameter::EFormatSpecifier::FormatDigits, 4});
        },
        [](CParameter& p) { p.SetLimits(0, CParameter::c_NoLimit); },
        [](CParameter& p) { p.SetLimits(CParameter::c_NoLimit, 0); },
        [](CParameter& p) { p.SetVariableValue(1); },
        [](CParameter& p) { p.SetAxisTicks({1}); },
        [](CParameter& p) { p.SetAxisTickKind(1); },
        [](CParameter& p) { p.SetHistogramSetup(2, {.lowerOn = true}); },
        [](CParameter& p) { p.GetVariable(0).SetVariableValue(3); },
        [](CParameter& p) { p.GetVariable(0).SetVariableValue(std::nan("")); },
    };
    for (const auto& change : differences) {
        CParameter other = base;
        change(other);
        EXPECT_FALSE(CParameter::IsEqual(base, other)) << &change - differences;
        EXPECT_FALSE(CParameter::IsEqual(other, base)) << &change - differences;
    }
    CParameter other = base;
    other.SetIniName(u"Other");
    other.SetStandard(4);
    other.SetParentValue(9);
    other.SetAxisMode(3);
    EXPECT_TRUE(CParameter::IsEqual(base, other));
    other.SetVariableValue(std::nan(""));
    CParameter nan = other;
    EXPECT_TRUE(CParameter::IsEqual(nan, other));
    nan.GetVariable(0).SetVariableValue(std::nan(""));
    EXPECT_FALSE(CParameter::IsEqual(nan, nan)) << "a variable's NaN agrees with nothing";
    EXPECT_FALSE(CParameter::IsEqual(base, MakeParameter(EDimension::Length, false)))
        << "the variable is missing";
}

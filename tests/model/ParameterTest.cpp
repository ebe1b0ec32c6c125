#include "model/Parameter.h"

#include "tests/TestData.h"

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
constexpr CParameter::SFormatSpecifier c_decimals{CParameter::EFormatSpecifier::FormatDecimals, 5};
constexpr CParameter::SFormatSpecifier c_fourDigits{CParameter::EFormatSpecifier::FormatDigits, 4};
const SBase3D<CUnit> c_lengths{c_metre, CUnit(EFactor::Nano), c_metre};

} // namespace

// A line of the record: number of the dimension, its power, its factor at the default unit, the units of the
// axes, and what they make of it: the text of the scaled unit, symbol and power of the unit.
TEST(Parameter, DimensionsScaleAndShowTheUnitsOfTheAxes)
{
    for (const std::string& row : ReadTestLines("parameter-units.txt")) {
        SCOPED_TRACE(row);
        const std::vector<std::string> cells = SplitText(row, '|');
        const std::vector<std::string> axes = SplitText(cells[3], ' ');
        const auto unitOf = [&](std::size_t axis) { return CUnit::FromText(CStr::FromUtf8(axes[axis])); };
        const SBase3D<CUnit> units{unitOf(0), unitOf(1), unitOf(2)};
        const CParameter parameter = MakeParameter(EDimension{std::stoi(cells[0])});
        EXPECT_EQ(parameter.DimensionToPower(), std::stoi(cells[1]));
        EXPECT_NEAR(parameter.CalcFactor() / std::stod(cells[2]), 1, 1e-15);
        EXPECT_EQ(parameter.GetScaledUnitStr(units).ToUtf8(), cells[4]);
        if (units.y == CUnit(EFactor::Nano)) {
            EXPECT_EQ(parameter.GetScaledUnitStr(c_metre).ToUtf8(), cells[4]);
        }
        CUnit unit(EFactor::Giga);
        int power = 9;
        CParameter::GetUnitAndPower(parameter.GetDimension(), units, unit, power);
        EXPECT_EQ(unit.GetSymbol().ToUtf8(), cells[5]);
        EXPECT_EQ(power, std::stoi(cells[6]));
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
    EXPECT_EQ(instance.GetAxisMode(), 1);
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
        [](CParameter& p) { p.SetFloatFormat(c_decimals); },
        [](CParameter& p) { p.SetFloatFormat(c_fourDigits); },
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

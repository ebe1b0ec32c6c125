#include "model/Parameter.h"

#include "model/detail/SameNumber.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <tuple>

namespace CommonUI
{

namespace
{

using EDimension = CParameter::EDimension;
using EUnitFactor = CUnit::EUnitFactor;

bool SameSetup(const CParameter::SHistogramSetup& a, const CParameter::SHistogramSetup& b)
{
    return SameNumber(a.range.GetLower(), b.range.GetLower()) &&
           SameNumber(a.range.GetUpper(), b.range.GetUpper()) && a.lowerOn == b.lowerOn &&
           a.upperOn == b.upperOn && a.classCount == b.classCount && a.kind == b.kind;
}

// The unit of those axes that a dimension needs; the empty unit where they are of different kinds or none is
// needed.
CUnit UnitOfAxes(EDimension dimension, const CUnit& x, const CUnit& y, const CUnit& z)
{
    switch (dimension) {
    case EDimension::Length:
    case EDimension::Area:
    case EDimension::InverseArea:
        return x.IsSameKind(y) ? x : CUnit();
    case EDimension::LengthX:
    case EDimension::InverseLength:
        return x;
    case EDimension::LengthY:
        return y;
    case EDimension::LengthZ:
        return z;
    case EDimension::Volume:
        return x.IsSameKind(y) && x.IsSameKind(z) ? x : CUnit();
    default:
        return CUnit();
    }
}

// The text of a dimension in a unit that already has its factor.
CStr UnitText(EDimension dimension, const CUnit& unit)
{
    if (dimension == EDimension::Angle)
        return u"°";
    if (dimension == EDimension::Percent)
        return u"%";
    CStr text = unit.GetText();
    if (text.IsEmpty())
        return text;
    switch (dimension) {
    case EDimension::Length:
    case EDimension::LengthX:
    case EDimension::LengthY:
    case EDimension::LengthZ:
        return text;
    case EDimension::Area:
        return text + u"²";
    case EDimension::Volume:
        return text + u"³";
    case EDimension::InverseLength:
        return u"1/" + text;
    case EDimension::InverseArea:
        return u"1/" + text + u"²";
    default:
        return {};
    }
}

std::vector<CParameter::CScaling> ScalingsOf(std::span<const EUnitFactor> factors, EDimension dimension,
                                             const SBase3D<CUnit>& units)
{
    const CUnit unit = UnitOfAxes(dimension, units.x, units.y, units.z);
    std::vector<CParameter::CScaling> scalings;
    if (unit.IsEmpty())
        return scalings;
    const bool isLength = unit.IsSameKind(CUnit(EUnitFactor::Unity));
    for (const EUnitFactor factor : factors) {
        if (isLength || CUnit::IsMetricPrefix(factor))
            scalings.emplace_back(factor, UnitText(dimension, unit.WithFactor(factor)));
    }
    return scalings;
}

CUnit::SShownDigits ShownDigitsOf(const CParameter::SFormatSpecifier& format)
{
    switch (format.type) {
    case CParameter::EFormatSpecifier::FormatDecimals:
        return {.decimals = format.count};
    case CParameter::EFormatSpecifier::FormatInteger:
        return {.decimals = 0};
    default:
        return {.significant = format.count};
    }
}

constexpr SEnumRow c_formatSpecifiers[] = {
    {.value = 0, .iniName = u"FormatDecimals", .textId = 7821, .shortTextId = 7822},
    {.value = 1, .iniName = u"FormatDigits", .textId = 7823, .shortTextId = 7824},
    {.value = 2, .iniName = u"FormatInteger", .textId = 7963, .shortTextId = 7964},
};

} // namespace

CParameter::CParameter(int value, const CStr& iniName, const CStr& friendly, const CStr& shortFriendly,
                       int standard, bool on)
    : CParameter(value, iniName, friendly, shortFriendly, standard, on, EDimension::None)
{
}

CParameter::CParameter(int value, const CStr& iniName, const CStr& friendly, const CStr& shortFriendly,
                       int standard, bool on, EDimension dimension)
    : CEnumValue<int>(value, iniName, friendly, shortFriendly, standard)
    , m_on(on)
    , m_dimension(dimension)
{
}

CParameter::CParameter(int value, const CParameter& parent)
    : CEnumValue<int>(value, parent)
    , m_parentValue(parent.GetValue())
    , m_on(parent.m_on)
    , m_lowerLimit(parent.m_lowerLimit)
    , m_upperLimit(parent.m_upperLimit)
    , m_unitFactor(parent.m_unitFactor)
    , m_dimension(parent.m_dimension)
    , m_floatFormat(parent.m_floatFormat)
    , m_variableValue(parent.m_variableValue)
{
    for (CParameter variable : parent.m_variables)
        AddVariable(variable);
}

void CParameter::SetLimits(double lower, double upper) noexcept
{
    m_lowerLimit = lower;
    m_upperLimit = upper;
}

void CParameter::AddVariable(CParameter& variable)
{
    if (!HasParent())
        m_on = false;
    variable.SetParentValue(GetValue());
    m_variables.push_back(variable);
}

int CParameter::DimensionToPower(EDimension dimension) noexcept
{
    constexpr int c_powers[] = {0, 1, 1, 1, 1, 2, 3, 0, 0, 1, 0};
    const auto index = static_cast<std::size_t>(dimension);
    return index < std::size(c_powers) ? c_powers[index] : 0;
}

double CParameter::CalcFactor(EDimension dimension, CUnit::EUnitFactor unitFactor) noexcept
{
    const double scale = 1 / CUnit::GetFactorValue(unitFactor);
    switch (dimension) {
    case EDimension::Length:
    case EDimension::LengthX:
    case EDimension::LengthY:
    case EDimension::LengthZ:
        return scale;
    case EDimension::Area:
        return scale * scale;
    case EDimension::Volume:
        return scale * scale * scale;
    case EDimension::InverseLength:
        return 1 / scale;
    case EDimension::InverseArea:
        return 1 / (scale * scale);
    default:
        return 1;
    }
}

void CParameter::GetUnitAndPower(EDimension dimension, const SBase3D<CUnit>& units, CUnit& unit, int& power)
{
    unit = CUnit();
    power = 0;
    if (dimension == EDimension::Angle)
        unit = CUnit(EUnitFactor::Undefined, u"°");
    else if (dimension != EDimension::InverseLength && dimension != EDimension::InverseArea)
        unit = UnitOfAxes(dimension, units.x, units.y, units.z);
    if (!unit.IsEmpty())
        power = DimensionToPower(dimension);
}

CStr CParameter::GetScaledUnitStr(const CUnit& unit) const
{
    return UnitText(m_dimension, unit.WithFactor(m_unitFactor));
}

CStr CParameter::GetScaledUnitStr(const CUnit& x, const CUnit& y, const CUnit& z) const
{
    const CUnit unit = UnitOfAxes(m_dimension, x, y, z);
    const bool needsNone = m_dimension == EDimension::Angle || m_dimension == EDimension::Percent;
    return unit.IsEmpty() && !needsNone ? CStr() : GetScaledUnitStr(unit);
}

double CParameter::SetupFactor(const SBase3D<CUnit>& units, double value)
{
    if (m_dimension == EDimension::Angle) {
        m_unitFactor = EUnitFactor::Undefined;
        return CUnit::GetFactorValue(m_unitFactor);
    }
    CUnit unit;
    int power = 0;
    GetUnitAndPower(m_dimension, units, unit, power);
    m_unitFactor = unit.SuitableFactor(value, power, ShownDigitsOf(m_floatFormat));
    return CalcFactor();
}

std::vector<CParameter::CScaling> CParameter::GetScalingsList(EDimension dimension,
                                                              const SBase3D<CUnit>& units)
{
    static constexpr EUnitFactor c_offered[] = {
        EUnitFactor::Pico,  EUnitFactor::Aangstroem, EUnitFactor::Nano, EUnitFactor::Micro,
        EUnitFactor::Milli, EUnitFactor::Centi,      EUnitFactor::Unity};
    return ScalingsOf(c_offered, dimension, units);
}

std::vector<CParameter::CScaling> CParameter::GetUSMetricScalingsList(EDimension dimension,
                                                                      const SBase3D<CUnit>& units)
{
    static constexpr EUnitFactor c_offered[] = {EUnitFactor::MicroInch, EUnitFactor::MilliInch,
                                                EUnitFactor::Inch};
    const CUnit unit = UnitOfAxes(dimension, units.x, units.y, units.z);
    if (!unit.IsSameKind(CUnit(EUnitFactor::Unity)))
        return {};
    return ScalingsOf(c_offered, dimension, units);
}

bool CParameter::IsEqual(const CParameter& a, const CParameter& b)
{
    const bool same = a.m_floatFormat == b.m_floatFormat && a.m_dimension == b.m_dimension &&
                      a.m_unitFactor == b.m_unitFactor && a.m_on == b.m_on && a.GetValue() == b.GetValue() &&
                      SameNumber(a.m_lowerLimit, b.m_lowerLimit) &&
                      SameNumber(a.m_upperLimit, b.m_upperLimit) &&
                      SameNumber(a.m_variableValue, b.m_variableValue) && a.m_axisTicks == b.m_axisTicks &&
                      a.m_axisTickKind == b.m_axisTickKind && a.m_histograms == b.m_histograms;
    if (!same)
        return false;
    // The count of `a` alone rules: parameters of one catalogue entry have equally many variables.
    for (std::size_t i = 0; i < a.m_variables.size(); ++i) {
        if (i >= b.m_variables.size() ||
            !(a.m_variables[i].m_variableValue == b.m_variables[i].m_variableValue))
            return false;
    }
    return true;
}

bool CParameter::IsSame(const CParameter& a, const CParameter& b)
{
    const auto identity = [](const CParameter& p) {
        return std::tuple(p.GetValue(), p.m_parentValue, p.GetStandard(), p.m_on, p.m_unitFactor,
                          p.m_dimension, p.m_axisTickKind, p.m_axisMode);
    };
    const auto texts = [](const CParameter& p) {
        return std::tuple(p.GetIniName(), p.GetFriendlyString(), p.GetShortFriendlyString());
    };
    return identity(a) == identity(b) && texts(a) == texts(b) && a.m_floatFormat == b.m_floatFormat &&
           SameNumber(a.m_lowerLimit, b.m_lowerLimit) && SameNumber(a.m_upperLimit, b.m_upperLimit) &&
           SameNumber(a.m_variableValue, b.m_variableValue) &&
           SameNumber(a.m_axisRange.GetLower(), b.m_axisRange.GetLower()) &&
           SameNumber(a.m_axisRange.GetUpper(), b.m_axisRange.GetUpper()) &&
           std::ranges::equal(a.m_axisTicks, b.m_axisTicks, SameNumber) &&
           std::ranges::equal(a.m_histograms, b.m_histograms, SameSetup) &&
           std::ranges::equal(a.m_variables, b.m_variables, IsSame);
}

const CEnum<CParameter::EFormatSpecifier>& GetFormatSpecifierEnum()
{
    return GetEnumOfRows<CParameter::EFormatSpecifier, c_formatSpecifiers>();
}

} // namespace CommonUI

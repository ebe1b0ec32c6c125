#include "measurement/Columns.h"

#include "common/NumberText.h"
#include "model/Enumerations.h"
#include "output/results/NumberFormat.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace CommonUI::Measurement
{

namespace
{

// All three axes are measured in metres.
SBase3D<CUnit> Units()
{
    const CUnit metre(CUnit::EUnitFactor::Unity);
    return {metre, metre, metre};
}

double LargestMagnitude(const std::vector<double>& values)
{
    double largest = 0;
    for (const double value : values) {
        if (std::isfinite(value))
            largest = std::max(largest, std::abs(value));
    }
    return largest;
}

} // namespace

CStr SColumn::GetUnitText() const
{
    return parameter.GetScaledUnitStr(Units());
}

CStr SColumn::GetText(double value) const
{
    return FormatParameterValue(value * parameter.CalcFactor(), parameter.GetFloatFormat());
}

CStr SColumn::GetBaseUnitText() const
{
    CParameter atUnity = parameter;
    atUnity.SetUnitFactor(CUnit::EUnitFactor::Unity);
    return atUnity.GetScaledUnitStr(Units());
}

CStr SColumn::GetKey() const
{
    return Measurement::GetKey(parameter);
}

CStr GetKey(const CParameter& parameter)
{
    CStr key = parameter.GetIniName();
    if (!parameter.HasParent() || parameter.GetVariableCount() == 0)
        return key;
    CStr variables;
    for (const CParameter& variable : parameter.GetVariables())
        variables += (variables.IsEmpty() ? CStr() : CStr(u",")) + ShortestText(variable.GetVariableValue());
    return key + u"(" + variables + u")";
}

CStr GetStatisticUnitText(const SColumn& column, const CParameter& statistic)
{
    switch (static_cast<EStatistics>(statistic.GetValue())) {
    case EStatistics::Count:
        return {};
    case EStatistics::SdPercent:
        return u"%";
    default:
        return column.GetBaseUnitText();
    }
}

CStr GetStatisticKey(const CParameter& statistic)
{
    if (statistic != static_cast<int>(EStatistics::Fractile))
        return statistic.GetIniName();
    return statistic.GetIniName() + u"(" + ShortestText(statistic.GetVariableValue()) + u")";
}

SColumn MakeColumn(const CParameter& parameter, std::vector<double> values, bool automaticUnits)
{
    SColumn column{parameter, std::move(values)};
    if (automaticUnits)
        column.parameter.SetupFactor(Units(), LargestMagnitude(column.values));
    return column;
}

std::vector<SColumn> MakeColumns(const std::vector<CParameter>& parameters, const FValuesOf& valuesOf,
                                 bool automaticUnits)
{
    std::vector<SColumn> columns;
    for (const CParameter& parameter : parameters) {
        std::vector<double> values = valuesOf(parameter);
        if (!values.empty())
            columns.push_back(MakeColumn(parameter, std::move(values), automaticUnits));
    }
    return columns;
}

} // namespace CommonUI::Measurement

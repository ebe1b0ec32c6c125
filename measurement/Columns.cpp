#include "measurement/Columns.h"

#include "output/results/NumberFormat.h"

#include <algorithm>
#include <cmath>

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

std::vector<SColumn> MakeColumns(const std::vector<CParameter>& parameters, const FValuesOf& valuesOf,
                                 bool automaticUnits)
{
    std::vector<SColumn> columns;
    for (const CParameter& parameter : parameters) {
        SColumn column{parameter, valuesOf(parameter)};
        if (column.values.empty())
            continue;
        if (automaticUnits)
            column.parameter.SetupFactor(Units(), LargestMagnitude(column.values));
        columns.push_back(std::move(column));
    }
    return columns;
}

} // namespace CommonUI::Measurement

#include "programs/surface_report/Columns.h"

#include "model/MeasureParameters.h"
#include "model/RoughnessCatalogue.h"
#include "output/results/NumberFormat.h"

#include <algorithm>
#include <cmath>

namespace SurfaceReport
{

using namespace CommonUI;

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

bool HasKey(const std::vector<SColumn>& columns, const CStr& key)
{
    return std::ranges::find(columns, key, [](const SColumn& column) {
               return column.parameter.GetIniName();
           }) != columns.end();
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

std::vector<SColumn> MakeColumns(const std::vector<CParameter>& parameters, const CValuesOf& valuesOf,
                                 const SOptions& options, bool automaticUnits)
{
    std::vector<SColumn> columns;
    for (const CParameter& parameter : parameters) {
        if (!parameter.IsOn())
            continue;
        SColumn column{parameter, valuesOf(parameter)};
        if (column.values.empty())
            continue;
        if (options.unit)
            column.parameter.SetUnitFactor(*options.unit);
        else if (automaticUnits)
            column.parameter.SetupFactor(Units(), LargestMagnitude(column.values));
        columns.push_back(std::move(column));
    }
    return columns;
}

void CheckKeys(const SOptions& options, const std::vector<const std::vector<SColumn>*>& columns)
{
    for (const std::string& key : options.parameters) {
        const CStr name = CStr::FromUtf8(key);
        if (std::ranges::any_of(columns, [&name](const auto* table) { return HasKey(*table, name); }))
            continue;
        const auto& roughness = GetRoughnessParametersEnum();
        const auto& grains = GetMeasureParametersEnum();
        if (roughness.FindIniName(name) == roughness.end() && grains.FindIniName(name) == grains.end())
            throw EUsage("--parameters: there is no parameter \"" + key + "\"");
        throw EUsage("--parameters: \"" + key + "\" is not among the parameters that are computed");
    }
}

} // namespace SurfaceReport

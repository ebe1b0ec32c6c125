#include "examples/surface_report/Columns.h"

#include "model/RoughnessCatalogue.h"
#include "output/NumberFormat.h"

#include <algorithm>
#include <cmath>

namespace SurfaceReport
{

using namespace CommonUI;
using SurfaceAnalysis::SLineValues;
using SurfaceAnalysis::SValue;

namespace
{

/// All three axes are measured in metres.
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

SColumn MakeColumn(int id, std::vector<double> values, const SOptions& options)
{
    SColumn column{MakeRoughnessParameter(static_cast<ERoughnessParameters>(id)), std::move(values)};
    if (options.unit)
        column.parameter.SetUnitFactor(*options.unit);
    else
        column.parameter.SetupFactor(Units(), LargestMagnitude(column.values));
    return column;
}

bool IsWanted(const CStr& key, const SOptions& options)
{
    return options.parameters.empty() ||
           std::ranges::find(options.parameters, key.ToUtf8()) != options.parameters.end();
}

void CheckKeys(const SOptions& options, const SColumns& columns)
{
    for (const std::string& key : options.parameters) {
        const CStr name = CStr::FromUtf8(key);
        const auto hasKey = [&name](const SColumn& column) { return column.parameter.GetIniName() == name; };
        if (std::ranges::any_of(columns.surface, hasKey) || std::ranges::any_of(columns.profiles, hasKey))
            continue;
        const auto& catalogue = GetRoughnessParametersEnum();
        if (catalogue.FindIniName(name) == catalogue.end())
            throw EUsage("--parameters: there is no parameter \"" + key + "\"");
        throw EUsage("--parameters: \"" + key + "\" is not among the parameters that are computed");
    }
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

SColumns SelectColumns(std::span<const SValue> surface, std::span<const SLineValues> profiles,
                       const SOptions& options)
{
    SColumns columns;
    for (const auto& entry : GetRoughnessParametersEnum()) {
        const CStr name = entry.GetIniName();
        const std::string key = name.ToUtf8();
        if (!IsWanted(name, options))
            continue;
        if (const auto found = std::ranges::find(surface, key, &SValue::key); found != surface.end())
            columns.surface.push_back(MakeColumn(entry, {found->value}, options));
        if (const auto found = std::ranges::find(profiles, key, &SLineValues::key); found != profiles.end())
            columns.profiles.push_back(MakeColumn(entry, found->values, options));
    }
    CheckKeys(options, columns);
    return columns;
}

} // namespace SurfaceReport

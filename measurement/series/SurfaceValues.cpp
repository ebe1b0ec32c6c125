#include "measurement/series/SurfaceValues.h"

#include "analysis/surface/Value.h"
#include "common/StringTable.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Measurement
{

namespace
{

constexpr int c_noRows = 12222;

// Calls `take` with each column and the index of its parameter.
void ForEachColumn(const std::vector<SColumn>& columns, const std::vector<CParameter>& parameters,
                   const auto& take)
{
    for (std::size_t i = 0, next = 0; i < parameters.size() && next < columns.size(); ++i)
        if (columns[next].parameter.GetValue() == parameters[i].GetValue())
            take(next++, i);
}

} // namespace

SSurfaceValues TakeSurfaceValues(const std::vector<SColumn>& columns,
                                 const std::vector<CParameter>& parameters)
{
    SSurfaceValues found{.values = std::vector(parameters.size(), Analysis::c_undefined)};
    ForEachColumn(columns, parameters, [&](std::size_t column, std::size_t i) {
        const std::vector<double>& values = columns[column].values;
        found.values[i] = values.back();
        for (const auto& [index, state] : columns[column].exceptions)
            if (index + 1 == values.size() && !state.reason.IsEmpty())
                found.reasons[i] = state.reason.ToUtf8();
    });
    return found;
}

SSurfaceValues TakeMeans(const SResults& results, const std::vector<CParameter>& parameters)
{
    SSurfaceValues found{.values = std::vector(parameters.size(), Analysis::c_undefined)};
    ForEachColumn(results.columns, parameters, [&](std::size_t column, std::size_t i) {
        const auto& statistics = results.columns[column].statistics;
        const auto mean = std::ranges::find(statistics, "Mean", &Analysis::SValue::key);
        if (mean != statistics.end())
            found.values[i] = mean->value;
        if (!std::isnan(found.values[i]))
            return;
        const CStr reason =
            results.rowCount > 0 ? results.GetState(column, 0, found.values[i]).reason : GetString(c_noRows);
        if (!reason.IsEmpty())
            found.reasons[i] = reason.ToUtf8();
    });
    return found;
}

} // namespace CommonUI::Measurement

#pragma once

#include "common/Version.h"
#include "measurement/ReportTables.h"
#include "measurement/Results.h"
#include "model/Parameter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

namespace CommonUI::Measurement
{

/// Why a value is missing of which nobody knows more.
constexpr std::string_view c_noReason = "there is no value";
constexpr std::string_view c_notLookedUp = "not looked up, as there are more than 10000 rows";

inline std::string OrNoReason(const std::string& reason)
{
    return reason.empty() ? std::string(c_noReason) : reason;
}

/// Why there is no such value; empty for a value.
inline std::string WhyNoValue(double value)
{
    return std::isinf(value) ? "the value is infinite" : "";
}

/// Why a value of the surface is missing; empty where it is there.
inline std::string ReasonOfSurface(const SColumn& column, std::size_t index)
{
    if (!std::isnan(column.values[index]))
        return WhyNoValue(column.values[index]);
    const auto found = std::ranges::find(column.exceptions, index, &SIndexedState::index);
    return OrNoReason(found == column.exceptions.end() ? std::string() : found->state.reason.ToUtf8());
}

/// Why a value of a row is missing; empty where it is there.
inline std::string ReasonOfRow(const SResults& results, std::size_t column, std::size_t row, double value)
{
    if (!std::isnan(value))
        return WhyNoValue(value);
    const bool isAbsent = results.columns[column].absent.state != EValueState::Value;
    if (results.rowCount > CReportTables::c_mostRows && !isAbsent)
        return std::string(c_notLookedUp);
    return OrNoReason(results.GetState(column, row, value).reason.ToUtf8());
}

/// Why a statistic is missing; empty where it is there.
inline std::string ReasonOfStatistic(const SResults& results, std::size_t column,
                                     const Analysis::SValue& statistic)
{
    if (!std::isnan(statistic.value))
        return WhyNoValue(statistic.value);
    if (results.columns[column].statistics.front().value > 0)
        return OrNoReason(std::string(statistic.reason));
    return ReasonOfRow(results, column, 0, statistic.value);
}

/// What the rows are, as a table's name: "profile", "particle", "pore".
inline std::string RowTable(const SResults& results)
{
    std::string name = results.rowName.ToUtf8();
    std::ranges::transform(name, name.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return name;
}

inline std::string_view LevellingKey(Analysis::ELevelling levelling)
{
    switch (levelling) {
    case Analysis::ELevelling::Mean:
        return "mean";
    case Analysis::ELevelling::Plane:
        return "plane";
    default:
        return "none";
    }
}

/// Calls visit(parameter, statistic) for the statistics of a column that are shown.
template<class FVisit>
void ForEachStatistic(const SResults& results, const SColumn& column, FVisit visit)
{
    for (const CParameter& parameter : results.statistics) {
        const auto found =
            std::ranges::find(column.statistics, parameter.GetIniName().ToUtf8(), &Analysis::SValue::key);
        if (parameter.IsOn() && found != column.statistics.end())
            visit(parameter, *found);
    }
}

/// Calls visit(index, values) for each column of the rows, as many of which are computed at a time as there
/// is room for.
template<class FVisit>
void ForEachColumn(const SResults& results, FVisit visit)
{
    const std::size_t count = results.columns.size();
    const std::size_t atOnce = std::max<std::size_t>(results.columnsAtOnce, 1);
    for (std::size_t first = 0; first < count; first += atOnce) {
        const std::size_t last = std::min(count, first + atOnce);
        const CPartValues values = results.GetValues({first, last, 0, results.rowCount});
        for (std::size_t i = first; i < last; ++i)
            visit(i, values[i - first]);
    }
}

} // namespace CommonUI::Measurement

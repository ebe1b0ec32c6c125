#include "measurement/ResultSets.h"

#include "common/ControlCharacters.h"
#include "measurement/detail/Translate.h"
#include "measurement/ReportTables.h"
#include "model/Enumerations.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace CommonUI::Measurement
{

namespace
{

CStr OneLine(const CStr& text)
{
    return ReplaceControls(text, u' ');
}

// Where the values come from, on one line.
CStr DescribeOrigin(const SOrigin& origin)
{
    CStr text = OneLine(CStr::FromUtf8(origin.fileName));
    const auto add = [&text](const CStr& further) { text += (text.IsEmpty() ? CStr() : u", ") + further; };
    if (!origin.date.empty())
        add(OneLine(CStr::FromUtf8(origin.date)));
    if (origin.points > 0)
        add(Translate(CStr::Format(u"%zu \u00D7 %zu points", origin.points, origin.lines)));
    if (origin.levelling != Analysis::ELevelling::None)
        add(Translate(DescribeLevelling(origin.levelling)));
    for (const CStr& step : origin.steps)
        add(OneLine(step));
    return text;
}

// Whether what stands beside a label comes from the user's files, and stays as it is.
bool IsOfFile(const CStr& label)
{
    return label == u"File" || label == u"Channel" || label == u"Date" || label.Left(5) == u"Step ";
}

SResultSet MakeSet(const SResults& results, const CStr& name)
{
    SResultSet set{.name = name,
                   .title = OneLine(results.title),
                   .provenance = DescribeOrigin(results.origin),
                   .quantities = {}};
    for (const auto& [label, text] : results.summary)
        if (!text.IsEmpty()) // a surface that was computed has no file
            set.summary.emplace_back(Translate(label),
                                     IsOfFile(label) ? OneLine(text) : Translate(OneLine(text)));
    return set;
}

void SetRowHeader(const CStr& english, SResultSet& set)
{
    set.rowHeader = Translate(english);
    set.exactRowHeader = english;
}

// The standard stands with the symbol: an unfiltered Ra is not that of ISO 4287.
SResultQuantity MakeQuantity(const SColumn& column, bool isSurface)
{
    const CParameter& parameter = column.parameter;
    const bool hasStandard = parameter.GetStandard() != static_cast<int>(EAnalysisStandards::None);
    const CStr standard = GetAnalysisStandardsEnum().GetFriendlyString(parameter.GetStandard());
    SResultQuantity quantity{.key = column.GetKey(), .parameter = parameter};
    if (isSurface)
        quantity.header = parameter.GetFriendlyString();
    else
        quantity.header = parameter.GetShortFriendlyString() + (hasStandard ? u"\r\n" + standard : CStr());
    return quantity;
}

SResultStatistic::EUnit GetUnit(EStatistics statistic)
{
    using EUnit = SResultStatistic::EUnit;
    if (statistic == EStatistics::Count)
        return EUnit::Count;
    return statistic == EStatistics::SdPercent ? EUnit::Percent : EUnit::Quantity;
}

CStr GetName(const CParameter& statistic)
{
    if (statistic != static_cast<int>(EStatistics::Fractile))
        return statistic.GetFriendlyString();
    return CStr::Format(u"%s %G %%", statistic.GetFriendlyString(), statistic.GetVariableValue());
}

auto Find(const SColumn& column, const CParameter& statistic)
{
    return std::ranges::find(column.statistics, statistic.GetIniName().ToUtf8(), &Analysis::SValue::key);
}

// Some statistics are not those of every kind of rows.
std::vector<CParameter> GetComputed(const SResults& results)
{
    std::vector<CParameter> computed;
    for (const CParameter& statistic : results.statistics)
        if (statistic.IsOn() && std::ranges::any_of(results.columns, [&](const SColumn& column) {
                return Find(column, statistic) != column.statistics.end();
            }))
            computed.push_back(statistic);
    return computed;
}

// A column without any value has no statistics for the reason of its first row.
void AddStatistic(const SResults& results, std::size_t column, const CParameter& statistic,
                  SResultQuantity& quantity)
{
    const auto& all = results.columns[column].statistics;
    const auto found = Find(results.columns[column], statistic);
    const bool isThere = found != all.end();
    const std::size_t index = quantity.statistics.size();
    quantity.statistics.push_back(isThere ? found->value : std::numeric_limits<double>::quiet_NaN());
    if (isThere && std::isnan(found->value))
        quantity.statisticStates.push_back(
            {index, all.front().value > 0
                        ? SValueState{EValueState::NotApplicable, CStr::FromUtf8(found->reason)}
                        : results.GetState(column, 0, found->value)});
}

} // namespace

SResultSet MakeSurfaceSet(const SResults& results, const CStr& name)
{
    SResultSet set = MakeSet(results, name);
    set.isTransposed = true;
    SetRowHeader(results.isProfile ? u"Profile parameter" : u"Surface parameter", set);
    const bool hasTwo = !results.surface.empty() && results.surface.front().values.size() > 1;
    set.exactRowNames = hasTwo ? std::vector<CStr>{u"Raw", u"Processed"} : std::vector<CStr>{u"Value"};
    for (const CStr& row : set.exactRowNames)
        set.rowNames.push_back(Translate(row));
    for (const SColumn& column : results.surface) {
        SResultQuantity quantity = MakeQuantity(column, true);
        quantity.values = column.values;
        for (const auto& [index, state] : column.exceptions)
            quantity.states.push_back({index, state});
        set.quantities.push_back(std::move(quantity));
    }
    return set;
}

SResultSet MakeRowSet(const SResults& results, const CStr& name)
{
    SResultSet set = MakeSet(results, name);
    SetRowHeader(results.rowName, set);
    for (std::size_t row = 0; row < results.rowCount; ++row)
        set.rowNames.push_back(CStr::Format(u"%zu", row + 1));
    const std::vector<CParameter> statistics = GetComputed(results);
    for (const CParameter& statistic : statistics)
        set.statistics.push_back({GetStatisticKey(statistic), GetName(statistic),
                                  GetUnit(static_cast<EStatistics>(statistic.GetValue()))});
    CPartValues values = results.GetValues({0, results.columns.size(), 0, results.rowCount});
    for (std::size_t index = 0; index < results.columns.size(); ++index) {
        const SColumn& column = results.columns[index];
        SResultQuantity quantity = MakeQuantity(column, false);
        for (std::size_t row = 0; row < values[index].size() && results.rowCount <= CReportTables::c_mostRows;
             ++row) {
            SValueState state = results.GetState(index, row, values[index][row]);
            if (state.state != EValueState::Value)
                quantity.states.push_back({row, std::move(state)});
        }
        quantity.values = std::move(values[index]);
        for (const CParameter& statistic : statistics)
            AddStatistic(results, index, statistic, quantity);
        set.quantities.push_back(std::move(quantity));
    }
    return set;
}

} // namespace CommonUI::Measurement

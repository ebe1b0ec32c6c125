#include "measurement/series/SeriesTable.h"

#include "analysis/numeric/Statistics.h"
#include "common/ControlCharacters.h"
#include "common/PathText.h"
#include "measurement/Columns.h"
#include "measurement/FractileShare.h"
#include "measurement/ResultSets.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace CommonUI::Measurement
{

namespace
{

std::optional<std::size_t> FindIndex(const std::vector<CParameter>& parameters, const CParameter& wanted)
{
    const auto found = std::ranges::find(parameters, GetKey(wanted), GetKey);
    if (found == parameters.end())
        return {};
    return static_cast<std::size_t>(found - parameters.begin());
}

const std::vector<CParameter>& ParametersOf(const SSeriesRequest& request, const SChoices& choices)
{
    return request.HasMeans() ? choices.rows : choices.surface;
}

SColumn MakeStatisticsColumn(const CParameter& parameter, std::vector<double> values, double share)
{
    SColumn column = MakeColumn(parameter, std::move(values), false);
    column.statistics = Analysis::ComputeStatistics(column.values, share);
    return column;
}

// How many grains each surface has, by the parameter that counts in statistics.
std::optional<SColumn> MakeCounts(const std::vector<SSeriesRow>& rows, const SChoices& shown, double share)
{
    const auto count =
        std::ranges::find(shown.statistics, static_cast<int>(EStatistics::Count), &CParameter::GetValue);
    if (count == shown.statistics.end())
        return {};
    CParameter parameter = *count;
    parameter.SetFloatFormat({CParameter::EFormatSpecifier::FormatInteger, 0});
    std::vector<double> values(rows.size());
    std::ranges::transform(rows, values.begin(), [](const SSeriesRow& row) {
        return row.HasFailed() ? Analysis::c_undefined : static_cast<double>(row.rowCount);
    });
    return MakeStatisticsColumn(parameter, std::move(values), share);
}

constexpr std::size_t c_none = static_cast<std::size_t>(-1);

// What is shown: each column with where its values are in the rows.
struct SShown {
    std::vector<SColumn> columns{};
    std::vector<std::size_t> places{}; // c_none for what is counted
};

SShown MakeShown(const std::vector<SSeriesRow>& rows, const SSeriesRequest& request, const SChoices& shown)
{
    SShown made;
    const double share = FractileShare(shown.statistics);
    if (request.analysis == EAnalysis::Measure)
        if (auto counts = MakeCounts(rows, shown, share)) {
            made.columns.push_back(std::move(*counts));
            made.places.push_back(c_none);
        }
    for (const CParameter& parameter : ParametersOf(request, shown)) {
        const auto place = FindIndex(request.GetParameters(), parameter);
        if (!place)
            continue;
        std::vector<double> values(rows.size());
        std::ranges::transform(rows, values.begin(), [place](const SSeriesRow& row) {
            return row.HasFailed() ? Analysis::c_undefined : row.found.values[*place];
        });
        made.columns.push_back(MakeStatisticsColumn(parameter, std::move(values), share));
        made.places.push_back(*place);
    }
    return made;
}

// Why a surface failed, with its name, by which many of them have different reasons.
CStr WhyFailed(const SSeriesRow& row)
{
    const CStr file(GetFileName(row.path));
    const bool isNamed = !file.IsEmpty() && row.remark.Left(file.GetLength()) == file;
    return isNamed ? row.remark : row.name + u": " + row.remark;
}

std::string ReasonOf(const SSeriesRow& row, std::size_t place, const CStr& shortReason)
{
    if (row.HasFailed())
        return (shortReason.IsEmpty() ? WhyFailed(row) : shortReason).ToUtf8();
    const auto found = row.found.reasons.find(place);
    return found == row.found.reasons.end() ? std::string() : found->second;
}

// A file that failed is no parameter that does not apply.
void MarkFailures(const std::vector<SSeriesRow>& rows, SResultSet& set)
{
    for (SResultQuantity& quantity : set.quantities)
        for (SResultState& state : quantity.states)
            if (rows[state.index].HasFailed())
                state.state.state = EValueState::Failed;
}

} // namespace

SResultSet MakeSeriesSet(const std::vector<SSeriesRow>& rows, const SSeriesRequest& request,
                         const SChoices& shown, const CStr& name, const CStr& shortReason)
{
    const auto failed = std::ranges::count_if(rows, &SSeriesRow::HasFailed);
    const CStr same = static_cast<std::size_t>(failed) > c_mostNoted ? shortReason : CStr();
    SShown made = MakeShown(rows, request, shown);
    std::vector<std::vector<std::string>> reasons;
    for (const std::size_t place : made.places)
        for (reasons.emplace_back(); const SSeriesRow& row : rows)
            reasons.back().push_back(ReasonOf(row, place, same));
    SResults results{.rowName = u"File", .rowCount = rows.size(), .columns = std::move(made.columns)};
    results.statistics = shown.statistics;
    results.explain = [&reasons](std::size_t column, std::size_t row) {
        return std::string_view(reasons[column][row]);
    };
    SResultSet set = MakeRowSet(results, name);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        set.rowNames[i] = ReplaceControls(rows[i].name, u' ');
        set.exactRowNames.emplace_back(ReplaceControls(rows[i].path, u' '));
    }
    MarkFailures(rows, set);
    return set;
}

bool HasAllValues(const SSeriesRequest& request, const SChoices& shown)
{
    return std::ranges::all_of(ParametersOf(request, shown), [&](const CParameter& parameter) {
        return FindIndex(request.GetParameters(), parameter).has_value();
    });
}

} // namespace CommonUI::Measurement

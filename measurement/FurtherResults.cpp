#include "measurement/detail/FurtherResults.h"

#include "analysis/numeric/Statistics.h"
#include "measurement/detail/AnalysisKey.h"
#include "measurement/detail/ComputeApart.h"
#include "measurement/FractileShare.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

namespace CommonUI::Measurement
{

using Analysis::SValue;

namespace
{

SValue FindValue(const std::vector<SValue>& values, const CParameter& parameter)
{
    const auto found = std::ranges::find(values, AnalysisKey(parameter), &SValue::key);
    return found != values.end() ? *found : SValue{"", Analysis::c_undefined};
}

// What a surface has come to, or why that has failed.
struct SOutcome {
    SEvaluation evaluation{};
    std::optional<SValueState> failure{};
};

SOutcome TryToEvaluate(const Analysis::SSurface& surface, const SChoices& choices)
{
    SOutcome outcome;
    const auto failures = ComputeApart(1, [&](std::size_t, std::size_t) {
        outcome.evaluation = Evaluate(surface, *choices.method.further, choices.outputs);
    });
    if (!failures.empty())
        outcome = {.failure = failures.front().state};
    return outcome;
}

SValueState GetState(const SOutcome& outcome, const SValue& value)
{
    if (outcome.failure)
        return *outcome.failure;
    if (!std::isnan(value.value))
        return {};
    return {EValueState::NotApplicable, CStr::FromUtf8(value.reason)};
}

std::vector<SColumn> MakeSurfaceColumns(const std::vector<SOutcome>& outcomes, const SChoices& choices)
{
    std::vector<SColumn> columns;
    for (const CParameter& parameter : choices.surface) {
        std::vector<double> values;
        std::vector<SIndexedState> exceptions;
        for (std::size_t i = 0; i < outcomes.size(); ++i) {
            const SValue value = FindValue(outcomes[i].evaluation.values, parameter);
            values.push_back(value.value);
            if (SValueState state = GetState(outcomes[i], value); state.state != EValueState::Value)
                exceptions.push_back({i, std::move(state)});
        }
        SColumn& column =
            columns.emplace_back(MakeColumn(parameter, std::move(values), choices.automaticUnits));
        column.exceptions = std::move(exceptions);
    }
    return columns;
}

// The lines or columns of the surface as rows.
void AddSections(SEvaluation& evaluation, const SChoices& choices, SResults& results)
{
    if (evaluation.sections.empty() || choices.rows.empty() || results.isProfile)
        return;
    results.rowName = evaluation.sectionName;
    results.rowCount = evaluation.sections.size();
    results.statistics = choices.statistics;
    const double share = FractileShare(choices.statistics);
    for (const CParameter& parameter : choices.rows) {
        std::vector<double> values(evaluation.sections.size());
        std::ranges::transform(evaluation.sections, values.begin(),
                               [&](const auto& section) { return FindValue(section, parameter).value; });
        SColumn& column =
            results.columns.emplace_back(MakeColumn(parameter, std::move(values), choices.automaticRowUnits));
        column.statistics = Analysis::ComputeStatistics(column.values, share);
    }
    results.columnsAtOnce = results.columns.size();
    results.explain =
        [rows = choices.rows,
         sections = std::make_shared<const std::vector<std::vector<SValue>>>(std::move(evaluation.sections))](
            std::size_t column, std::size_t row) { return FindValue((*sections)[row], rows[column]).reason; };
}

} // namespace

void AddFurther(const SInput& input, const SChoices& choices, SResults& results)
{
    const SFurtherAnalysis& further = *choices.method.further;
    results.isProfile = input.surface.IsProfile();
    std::vector<SOutcome> outcomes;
    if (input.raw)
        outcomes.push_back(TryToEvaluate(*input.raw, choices));
    outcomes.push_back(TryToEvaluate(input.surface, choices));
    results.surface = MakeSurfaceColumns(outcomes, choices);
    SEvaluation& evaluation = outcomes.back().evaluation;
    results.summary.emplace_back(u"Analysis", CAnalysisPreferencesData::GetFriendlyName(further.analysis));
    if (further.options.second)
        results.summary.emplace_back(u"Second surface", CStr::FromUtf8(further.options.second->fileName));
    results.summary.insert(results.summary.end(), evaluation.notes.begin(), evaluation.notes.end());
    AddSections(evaluation, choices, results);
    results.outputs = std::make_shared<SOutputs>(std::move(evaluation.outputs));
}

} // namespace CommonUI::Measurement

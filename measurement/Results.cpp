#include "measurement/Results.h"

#include "analysis/areal/ArealParameters.h"
#include "analysis/areal/TemplateParameters.h"
#include "analysis/filter/SurfaceFilter.h"
#include "analysis/grain/GrainMeasures.h"
#include "analysis/grain/UndefinedGrain.h"
#include "analysis/numeric/Statistics.h"
#include "analysis/profile/ProfileParameters.h"
#include "analysis/profile/SplitProfile.h"
#include "analysis/profile/UndefinedProfile.h"
#include "common/Version.h"
#include "measurement/detail/ComputeApart.h"
#include "measurement/detail/DescribeLength.h"
#include "measurement/detail/FurtherResults.h"
#include "measurement/detail/Keys.h"
#include "measurement/detail/ProfileRows.h"
#include "measurement/FractileShare.h"
#include "measurement/GrainLimit.h"
#include "model/Enumerations.h"
#include "model/RoughnessCatalogue.h"
#include "output/results/NumberFormat.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string_view>
#include <utility>

namespace CommonUI::Measurement
{

using Analysis::EGrainKind;
using Analysis::ELevelling;
using Analysis::SSurface;
using Analysis::SValue;

namespace
{

SOrigin OriginOf(const SInput& input)
{
    const SSurface& surface = input.surface;
    return {.fileName = surface.fileName,
            .sha256 = input.sha256,
            .date = surface.date,
            .channel = surface.channel,
            .points = surface.points,
            .lines = surface.lines,
            .missing = surface.missing,
            .dx = surface.dx,
            .dy = surface.dy,
            .levelling = input.levelling,
            .steps = input.steps,
            .cutoffs = input.cutoffs};
}

// The steps that were applied, with what their names alone do not say.
void DescribeSteps(const SInput& input, SResults& results)
{
    for (std::size_t i = 0; i < input.steps.size(); ++i)
        results.summary.emplace_back(CStr::Format(u"Step %d", i + 1), input.steps[i]);
    for (const auto& [step, cutoff] : input.cutoffs)
        results.summary.emplace_back(CStr::Format(u"Cut-off of step %d", step), DescribeLength(cutoff));
}

// The texts of the summary that say what was measured.
SResults Describe(const SInput& input)
{
    const SSurface& surface = input.surface;
    SResults results{.title = CStr::FromUtf8(surface.fileName), .origin = OriginOf(input)};
    const auto add = [&results](const CStr& label, const CStr& text) {
        results.summary.emplace_back(label, text);
    };
    add(u"File", CStr::FromUtf8(surface.fileName));
    if (!input.sha256.empty())
        add(u"SHA-256", CStr::FromUtf8(input.sha256));
    if (!surface.date.empty())
        add(u"Date", CStr::FromUtf8(surface.date));
    add(u"CommonUI version", GetVersion());
    if (!surface.channel.empty())
        add(u"Channel", CStr::FromUtf8(surface.channel));
    if (surface.IsProfile()) {
        add(u"Points", CStr::Format(u"%d", surface.points));
        add(u"Spacing", DescribeLength(surface.dx));
    } else {
        add(u"Points", CStr::Format(u"%d × %d", surface.points, surface.lines));
        add(u"Spacing", DescribeLength(surface.dx) + u" × " + DescribeLength(surface.dy));
    }
    add(u"Missing points", CStr::Format(u"%d", surface.missing));
    add(u"Levelling", DescribeLevelling(input.levelling));
    DescribeSteps(input, results);
    for (const auto& [label, text] : input.notes)
        add(label, text);
    return results;
}

SValueState NotApplicable(std::string_view reason)
{
    return {EValueState::NotApplicable, CStr::FromUtf8(reason)};
}

// What the values of a parameter stand for that is not computed here; Value of one that is.
SValueState StateOf(const CParameter& parameter)
{
    if (IsSuppliedByPlugIn(parameter))
        return {EValueState::NotComputed, u"not computed, as plug-ins supply it"};
    return {};
}

// A value, or what is to be said of it.
struct SState {
    double value = Analysis::c_undefined;
    SValueState state{};
};

SState MakeState(double value, std::string_view reason)
{
    return {value, std::isnan(value) ? NotApplicable(reason) : SValueState()};
}

// Some parameters of a surface.
void ComputeAreal(const SSurface& surface, std::span<const CParameter> parameters, std::span<SState> results)
{
    const CKeys keys(parameters);
    const std::vector<SValue> values = Analysis::ComputeAreal(surface, keys.Get());
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const std::string key = AnalysisKey(parameters[i]);
        if (parameters[i].HasParent()) {
            const std::vector<double> variables = VariableValues(parameters[i]);
            results[i] = MakeState(Analysis::ComputeTemplate(surface, key, variables),
                                   Analysis::ExplainTemplate(key, variables));
        } else if (const auto found = std::ranges::find(values, key, &SValue::key); found != values.end()) {
            results[i] = MakeState(found->value, found->reason);
        }
    }
}

// Likewise of the only line of a surface.
void ComputeLine(const CProfileRows& rows, std::size_t first, std::size_t last, std::span<SState> results)
{
    const CPartValues values = rows.Compute({first, last, 0, 1});
    for (std::size_t i = first; i < last; ++i) {
        const double value = values[i - first].front();
        results[i - first] = MakeState(value, std::isnan(value) ? rows.Explain(i, 0) : "");
    }
}

// The parameters of a surface, or those of its only line where it is a profile.
std::vector<SState> ComputeValues(const SSurface& surface, const std::vector<CParameter>& parameters,
                                  const SMethod& method)
{
    const bool isProfile = surface.IsProfile();
    if (isProfile && std::ranges::all_of(surface.heights, [](double height) { return std::isnan(height); }))
        throw Analysis::ENoPoints();
    const CProfileRows rows(surface, parameters, method.OfProfiles());
    std::vector<SState> results(parameters.size());
    const auto failures = ComputeApart(parameters.size(), [&](std::size_t first, std::size_t last) {
        const auto part = std::span(results).subspan(first, last - first);
        if (isProfile)
            ComputeLine(rows, first, last, part);
        else
            ComputeAreal(surface, std::span(parameters).subspan(first, last - first), part);
    });
    for (const auto& [index, state] : failures)
        results[index] = {.state = state};
    for (std::size_t i = 0; i < results.size(); ++i)
        if (const SValueState state = StateOf(parameters[i]); state.state != EValueState::Value)
            results[i] = {.state = state};
    return results;
}

// Of the raw surface, if there is one, and of the processed one.
std::vector<SColumn> SurfaceColumns(const SInput& input, const SChoices& choices)
{
    const bool isProfile = input.surface.IsProfile();
    const std::vector<CParameter>& parameters = isProfile ? choices.rows : choices.surface;
    std::vector<std::vector<SState>> computed;
    if (input.raw)
        computed.push_back(ComputeValues(*input.raw, parameters, choices.method));
    computed.push_back(ComputeValues(input.surface, parameters, choices.method));
    std::vector<SColumn> columns;
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        std::vector<double> values;
        std::vector<SIndexedState> exceptions;
        for (std::size_t surface = 0; surface < computed.size(); ++surface) {
            const auto& [value, state] = computed[surface][i];
            values.push_back(value);
            if (state.state != EValueState::Value)
                exceptions.push_back({surface, state});
        }
        SColumn& column =
            columns.emplace_back(MakeColumn(parameters[i], std::move(values),
                                            isProfile ? choices.automaticRowUnits : choices.automaticUnits));
        column.exceptions = std::move(exceptions);
    }
    return columns;
}

// The values of some columns of all rows. Those that fail have none, and are not computed again.
CPartValues ComputeRows(CProfileRows& rows, std::size_t first, std::size_t last, std::size_t count,
                        std::vector<SValueState>& absent)
{
    CPartValues values(last - first);
    const auto failures = ComputeApart(last - first, [&](std::size_t begin, std::size_t end) {
        std::ranges::move(rows.Compute({first + begin, first + end, 0, count}),
                          values.begin() + static_cast<std::ptrdiff_t>(begin));
    });
    for (const auto& [index, state] : failures) {
        values[index].assign(count, Analysis::c_undefined);
        rows.LeaveOut(first + index);
        absent[first + index] = state;
    }
    return values;
}

// Statistics of the profiles' parameters, and their values if these may be kept.
void AddProfiles(const SSurface& surface, const SChoices& choices, SResults& results)
{
    results.rowName = u"Profile";
    results.rowCount = surface.lines;
    results.statistics = choices.statistics;
    if (surface.lines == 0 || choices.rows.empty())
        return;
    CProfileRows rows(surface, choices.rows, choices.method.OfProfiles());
    const std::size_t count = choices.rows.size();
    std::vector<SValueState> absent(count);
    std::ranges::transform(choices.rows, absent.begin(), StateOf);
    results.columnsAtOnce = std::min(rows.CountColumnsAtOnce(), count);
    const bool isKept = results.columnsAtOnce == count;
    const double share = FractileShare(results.statistics);
    for (std::size_t first = 0; first < count; first += results.columnsAtOnce) {
        const std::size_t last = std::min(count, first + results.columnsAtOnce);
        CPartValues values = ComputeRows(rows, first, last, results.rowCount, absent);
        for (std::size_t i = first; i < last; ++i) {
            SColumn column =
                MakeColumn(choices.rows[i], std::exchange(values[i - first], {}), choices.automaticRowUnits);
            column.absent = absent[i];
            column.statistics = Analysis::ComputeStatistics(column.values, share);
            if (!isKept)
                column.values = std::vector<double>(); // gives its memory back
            results.columns.push_back(std::move(column));
        }
    }
    if (!isKept)
        results.computePart = [rows](const SPart& part) { return rows.Compute(part); };
    results.explain = [rows](std::size_t column, std::size_t row) { return rows.Explain(column, row); };
}

// A cut-off that nobody has asked for is not refused: where it is not usable, its parameters have no values.
void CheckCutoff(const SSurface& surface, const SMethod& method)
{
    if (!method.cutoff)
        return;
    const Analysis::SIsoGaussianFilter filter{.extent = Analysis::EGaussianExtent::Profile,
                                              .cutoff = *method.cutoff};
    if (const std::string_view refusal = Analysis::FindRefusal(surface, filter); !refusal.empty())
        throw ERequest(u"", CStr::FromUtf8(refusal));
}

bool HasStandard(const std::vector<SColumn>& columns, EAnalysisStandards standard)
{
    return std::ranges::any_of(columns, [standard](const SColumn& column) {
        return column.parameter.GetStandard() == static_cast<int>(standard);
    });
}

// Below what valleys lie.
CStr ReferenceLineText(const Analysis::SValleyMethod& method, double cutoff)
{
    if (method.line == Analysis::EReferenceLine::MeanLine)
        return u"below the mean line of the primary profile";
    const int order = method.line == Analysis::EReferenceLine::Regression0 ? 0 : 2;
    return CStr::Format(u"below a robust Gaussian regression of order %d that starts from a closing of ",
                        order) +
           DescribeLength(cutoff / method.closingRatio);
}

// The cut-off, and what it makes of profile elements: without it nobody can compare their widths and heights.
void DescribeProfiles(const SSurface& surface, const SMethod& method, SResults& results)
{
    const double cutoff = method.cutoff.value_or(Analysis::DefaultCutoff(surface.points, surface.dx));
    const CStr width = DescribeLength(Analysis::LeastWidth(surface.points, surface.dx, cutoff) * surface.dx);
    results.summary.emplace_back(u"Cut-off", DescribeLength(cutoff));
    results.origin.cutoff = cutoff;
    if (HasStandard(results.columns, EAnalysisStandards::ISO12085)) {
        const Analysis::SMotifLimits limits =
            method.motifLimits.value_or(Analysis::DefaultMotifLimits(surface.points, surface.dx));
        results.summary.emplace_back(u"Motifs", u"no wider than A = " + DescribeLength(limits.roughness) +
                                                    u", those of the envelope than B = " +
                                                    DescribeLength(limits.waviness));
    }
    if (HasStandard(results.columns, EAnalysisStandards::MUFU))
        results.summary.emplace_back(u"Valleys", ReferenceLineText(method.valleys, cutoff));
    results.summary.emplace_back(
        u"Profile elements", u"peaks and valleys beyond 5 % of the height to either side of the mean line, "
                             u"at least " +
                                 width + u" wide (1 % of the cut-off)");
}

// What filters there are have in common.
SResults WithEnds(SResults results)
{
    if (results.origin.cutoff || !results.origin.cutoffs.empty())
        results.summary.emplace_back(u"Filter ends", c_endTreatment);
    return results;
}

SResults RoughnessResults(const SInput& input, const SChoices& choices)
{
    CheckCutoff(input.surface, choices.method);
    SResults results = Describe(input);
    results.surface = SurfaceColumns(input, choices);
    results.isProfile = input.surface.IsProfile();
    if (results.isProfile) {
        if (!results.surface.empty())
            DescribeProfiles(input.surface, choices.method, results);
        return results;
    }
    AddProfiles(input.surface, choices, results);
    if (!results.columns.empty())
        DescribeProfiles(input.surface, choices.method, results);
    return results;
}

SResults OtherResults(const SInput& input, const SChoices& choices)
{
    SResults results = Describe(input);
    AddFurther(input, choices, results);
    return results;
}

// The grains of a surface with the columns that can be computed; the others are empty.
struct SMeasured {
    Analysis::SGrains grains{};
    CPartValues values{}; // of each parameter
    std::vector<SIndexedState> failures{};
};

SMeasured MeasureGrains(const SSurface& surface, const SFoundGrains& found,
                        const std::vector<CParameter>& parameters)
{
    SMeasured measured{.values = CPartValues(parameters.size())};
    const auto measure = [&](std::size_t first, std::size_t last) {
        const CKeys keys(std::span<const CParameter>(parameters).subspan(first, last - first));
        measured.grains =
            Analysis::MeasureGrains(surface, found.limit.threshold, found.limit.kind, keys.Get(), found.map);
        for (std::size_t i = first; i < last; ++i)
            measured.values[i] = TakeValues(measured.grains.columns, AnalysisKey(parameters[i]));
    };
    measured.failures = ComputeApart(parameters.size(), measure);
    if (!parameters.empty() && measured.failures.size() == parameters.size())
        measure(0, 0); // what has failed is what all have in common, or there are the weights
    return measured;
}

// The columns of the grains; none without grains.
std::vector<SColumn> GrainColumns(SMeasured measured, const SChoices& choices)
{
    std::vector<SColumn> columns;
    if (measured.grains.count == 0)
        return columns;
    for (const auto& [index, state] : measured.failures)
        measured.values[index].assign(measured.grains.count, Analysis::c_undefined);
    for (std::size_t i = 0; i < choices.rows.size(); ++i)
        columns.push_back(
            MakeColumn(choices.rows[i], std::move(measured.values[i]), choices.automaticRowUnits));
    for (auto& [index, state] : measured.failures)
        columns[index].absent = std::move(state);
    for (SColumn& column : columns)
        column.statistics = Analysis::ComputeGrainStatistics(measured.grains, {.values = column.values},
                                                             FractileShare(choices.statistics));
    return columns;
}

SResults GrainResults(const SInput& input, const SChoices& choices, const SGrainLimit& limit)
{
    const SSurface& surface = input.surface;
    const bool pores = limit.kind == EGrainKind::Pore;
    auto found = std::make_shared<SFoundGrains>(
        SFoundGrains{limit, Analysis::FindGrains(surface, limit.threshold, limit.kind)});
    const std::size_t all = found->map.count;
    SelectGrains(found->map, limit.selection, surface.dx * surface.dy);
    SMeasured measured = MeasureGrains(surface, *found, choices.rows);
    const std::size_t count = measured.grains.count;
    SResults results = Describe(input);
    const auto& items = GetMeasureSummaryItemsEnum();
    const auto label = [&items](EMeasureSummaryItems item) {
        return items.GetFriendlyString(static_cast<int>(item));
    };
    const CParameter::SFormatSpecifier format;
    results.summary.emplace_back(label(EMeasureSummaryItems::GrainSettings), DescribeLimit(limit));
    if (!limit.selection.IsAll())
        results.summary.emplace_back(u"Left out", DescribeLeftOut(all - count, limit.selection));
    results.summary.emplace_back(label(EMeasureSummaryItems::SegmentCount), CStr::Format(u"%d", count));
    results.summary.emplace_back(label(EMeasureSummaryItems::Coverage),
                                 FormatParameterValue(measured.grains.coverage, format) + u" %");
    results.origin.threshold = limit.threshold;
    results.grains = std::move(found);
    results.rowName = pores ? u"Pore" : u"Particle";
    results.rowCount = count;
    results.statistics = choices.statistics;
    results.columns = GrainColumns(std::move(measured), choices);
    results.columnsAtOnce = results.columns.size();
    std::vector<std::string> shown(results.columns.size());
    std::ranges::transform(results.columns, shown.begin(),
                           [](const SColumn& column) { return AnalysisKey(column.parameter); });
    results.explain = [shown, kind = limit.kind](std::size_t column, std::size_t) {
        return Analysis::ExplainGrain(shown[column], kind);
    };
    return results;
}

} // namespace

CStr DescribeLevelling(ELevelling levelling)
{
    switch (levelling) {
    case ELevelling::Mean:
        return u"mean height subtracted";
    case ELevelling::Plane:
        return u"least-squares plane subtracted";
    default:
        return u"none";
    }
}

SValueState SResults::GetState(std::size_t column, std::size_t row, double value) const
{
    if (!std::isnan(value))
        return {};
    if (columns[column].absent.state != EValueState::Value)
        return columns[column].absent;
    return NotApplicable(explain ? explain(column, row) : std::string_view());
}

std::size_t SResults::CountFailures() const
{
    const auto isFailure = [](const SValueState& state) { return state.state == EValueState::Failed; };
    const auto hasFailed = [&](const SColumn& column) {
        return isFailure(column.absent) ||
               std::ranges::any_of(column.exceptions, isFailure, &SIndexedState::state);
    };
    return static_cast<std::size_t>(std::ranges::count_if(surface, hasFailed) +
                                    std::ranges::count_if(columns, hasFailed));
}

CPartValues SResults::GetValues(const SPart& part) const
{
    if (computePart)
        return computePart(part);
    CPartValues values;
    for (std::size_t i = part.firstColumn; i < part.lastColumn; ++i) {
        const auto all = std::span(columns[i].values).subspan(part.firstRow, part.lastRow - part.firstRow);
        values.emplace_back(all.begin(), all.end());
    }
    return values;
}

SResults ComputeResults(const SInput& input, const SChoices& choices)
{
    if (choices.method.further)
        return WithEnds(OtherResults(input, choices));
    return WithEnds(choices.method.MeasuresGrains()
                        ? GrainResults(input, choices, FindGrainLimit(choices.method, input.surface))
                        : RoughnessResults(input, choices));
}

} // namespace CommonUI::Measurement

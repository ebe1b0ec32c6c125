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
#include "measurement/detail/DescribeLength.h"
#include "measurement/detail/Keys.h"
#include "measurement/detail/ProfileRows.h"
#include "measurement/GrainLimit.h"
#include "model/Enumerations.h"
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
using Analysis::SValues;

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

// The percentile that the statistics ask for, as a share.
double FractileShare(const std::vector<CParameter>& statistics)
{
    const auto found =
        std::ranges::find(statistics, static_cast<int>(EStatistics::Fractile), &CParameter::GetValue);
    return found == statistics.end() ? 0.5 : found->GetVariableValue() / 100;
}

SValueState NotApplicable(std::string_view reason)
{
    return {EValueState::NotApplicable, CStr::FromUtf8(reason)};
}

// The parameters of a surface, or those of its only line where it is a profile.
std::vector<SValue> ComputeValues(const SSurface& surface, std::span<const std::string_view> keys,
                                  const SMethod& method)
{
    if (!surface.IsProfile())
        return Analysis::ComputeAreal(surface, keys);
    if (std::ranges::all_of(surface.heights, [](double height) { return std::isnan(height); }))
        throw Analysis::ENoPoints();
    std::vector<SValue> values;
    for (const SValues& column : Analysis::ComputeProfiles(surface, keys, method.OfProfiles())) {
        const double value = column.values.front();
        values.push_back({column.key, value,
                          std::isnan(value) ? Analysis::ExplainProfile(column.key, surface.heights,
                                                                       surface.dx, method.OfProfiles())
                                            : ""});
    }
    return values;
}

double ComputeTemplateValue(const SSurface& surface, const CParameter& parameter, const SMethod& method)
{
    const std::string key = AnalysisKey(parameter);
    const std::vector<double> variables = VariableValues(parameter);
    return surface.IsProfile()
               ? Analysis::ComputeLineTemplates(surface, key, variables, method.cutoff).front()
               : Analysis::ComputeTemplate(surface, key, variables);
}

// Of the raw surface, if there is one, and of the processed one.
std::vector<SColumn> SurfaceColumns(const SInput& input, const SChoices& choices)
{
    std::vector<const SSurface*> surfaces{&input.surface};
    if (input.raw)
        surfaces.insert(surfaces.begin(), &*input.raw);
    const std::vector<CParameter>& parameters = input.surface.IsProfile() ? choices.rows : choices.surface;
    const CKeys keys(parameters);
    std::vector<SValues> table;
    std::vector<std::vector<SValue>> computed;
    for (const SSurface* surface : surfaces) {
        const auto& values = computed.emplace_back(ComputeValues(*surface, keys.Get(), choices.method));
        table.resize(values.size());
        for (std::size_t i = 0; i < values.size(); ++i) {
            table[i].key = values[i].key;
            table[i].values.push_back(values[i].value);
        }
    }
    const auto valuesOf = [&](const CParameter& parameter) {
        if (!parameter.HasParent())
            return TakeValues(table, AnalysisKey(parameter));
        std::vector<double> values;
        values.reserve(surfaces.size());
        for (const SSurface* surface : surfaces)
            values.push_back(ComputeTemplateValue(*surface, parameter, choices.method));
        return values;
    };
    std::vector<SColumn> columns = MakeColumns(
        parameters, valuesOf, input.surface.IsProfile() ? choices.automaticRowUnits : choices.automaticUnits);
    for (SColumn& column : columns) {
        const std::string key = AnalysisKey(column.parameter);
        if (column.parameter.HasParent()) {
            const auto reason = Analysis::ExplainTemplate(key, VariableValues(column.parameter));
            for (std::size_t i = 0; i < surfaces.size() && !reason.empty(); ++i)
                column.exceptions.push_back({i, NotApplicable(reason)});
        }
        for (std::size_t i = 0; i < computed.size(); ++i) {
            const auto found = std::ranges::find(computed[i], key, &SValue::key);
            if (found != computed[i].end() && std::isnan(column.values[i]))
                column.exceptions.push_back({i, NotApplicable(found->reason)});
        }
    }
    return columns;
}

// Statistics of the profiles' parameters, and their values if these may be kept.
void AddProfiles(const SSurface& surface, const SChoices& choices, SResults& results)
{
    results.rowName = u"Profile";
    results.rowCount = surface.lines;
    results.statistics = choices.statistics;
    if (surface.lines == 0 || choices.rows.empty())
        return;
    const CProfileRows rows(surface, choices.rows, choices.method.OfProfiles());
    const std::size_t count = choices.rows.size();
    results.columnsAtOnce = std::min(rows.CountColumnsAtOnce(), count);
    if (results.columnsAtOnce < count)
        results.computePart = [rows](const SPart& part) { return rows.Compute(part); };
    results.explain = [rows](std::size_t column, std::size_t row) { return rows.Explain(column, row); };
    const double share = FractileShare(results.statistics);
    for (std::size_t first = 0; first < count; first += results.columnsAtOnce) {
        const std::size_t last = std::min(count, first + results.columnsAtOnce);
        CPartValues values = rows.Compute({first, last, 0, results.rowCount});
        for (std::size_t i = first; i < last; ++i) {
            SColumn column =
                MakeColumn(choices.rows[i], std::exchange(values[i - first], {}), choices.automaticRowUnits);
            column.statistics = Analysis::ComputeStatistics(column.values, share);
            if (results.computePart)
                column.values = std::vector<double>(); // gives its memory back
            results.columns.push_back(std::move(column));
        }
    }
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
    const Analysis::CProfileSplitter splitter(surface.points, surface.dx, cutoff);
    const CStr width = DescribeLength(splitter.GetLeastWidth() * surface.dx);
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

CStr NamesOf(const std::vector<CParameter>& parameters)
{
    CStr names;
    for (const CParameter& parameter : parameters)
        names += (names.IsEmpty() ? CStr() : CStr(u", ")) + parameter.GetShortFriendlyString();
    return names;
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
    if (!choices.fromPlugIns.empty())
        results.summary.emplace_back(u"Not computed",
                                     NamesOf(choices.fromPlugIns) + u": supplied by a plug-in");
    if (!results.columns.empty())
        DescribeProfiles(input.surface, choices.method, results);
    return results;
}

SResults GrainResults(const SInput& input, const SChoices& choices, const SGrainLimit& limit)
{
    const SSurface& surface = input.surface;
    const bool pores = limit.kind == EGrainKind::Pore;
    auto found = std::make_shared<SFoundGrains>(
        SFoundGrains{limit, Analysis::FindGrains(surface, limit.threshold, limit.kind)});
    const std::size_t all = found->map.count;
    SelectGrains(found->map, limit.selection, surface.dx * surface.dy);
    Analysis::SGrains grains =
        Analysis::MeasureGrains(surface, limit.threshold, limit.kind, CKeys(choices.rows).Get(), found->map);
    const auto valuesOf = [&grains](const CParameter& parameter) {
        return TakeValues(grains.columns, AnalysisKey(parameter));
    };
    SResults results = Describe(input);
    const auto& items = GetMeasureSummaryItemsEnum();
    const auto label = [&items](EMeasureSummaryItems item) {
        return items.GetFriendlyString(static_cast<int>(item));
    };
    const CParameter::SFormatSpecifier format;
    results.summary.emplace_back(label(EMeasureSummaryItems::GrainSettings), DescribeLimit(limit));
    if (!limit.selection.IsAll())
        results.summary.emplace_back(u"Left out", DescribeLeftOut(all - grains.count, limit.selection));
    results.summary.emplace_back(label(EMeasureSummaryItems::SegmentCount),
                                 CStr::Format(u"%d", grains.count));
    results.summary.emplace_back(label(EMeasureSummaryItems::Coverage),
                                 FormatParameterValue(grains.coverage, format) + u" %");
    results.origin.threshold = limit.threshold;
    results.grains = std::move(found);
    results.rowName = pores ? u"Pore" : u"Particle";
    results.columns = MakeColumns(choices.rows, valuesOf, choices.automaticRowUnits);
    results.columnsAtOnce = results.columns.size();
    std::vector<std::string> shown(results.columns.size());
    std::ranges::transform(results.columns, shown.begin(),
                           [](const SColumn& column) { return AnalysisKey(column.parameter); });
    results.explain = [shown, kind = limit.kind](std::size_t column, std::size_t) {
        return Analysis::ExplainGrain(shown[column], kind);
    };
    results.rowCount = grains.count;
    results.statistics = choices.statistics;
    for (SColumn& column : results.columns)
        column.statistics = Analysis::ComputeGrainStatistics(grains, {.values = column.values},
                                                             FractileShare(results.statistics));
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
    return NotApplicable(explain ? explain(column, row) : std::string_view());
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
    return WithEnds(choices.method.MeasuresGrains()
                        ? GrainResults(input, choices, FindGrainLimit(choices.method, input.surface))
                        : RoughnessResults(input, choices));
}

} // namespace CommonUI::Measurement

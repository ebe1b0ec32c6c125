#include "measurement/ApplySteps.h"

#include "analysis/filter/SurfaceFilter.h"
#include "analysis/form/PlaneCorrection.h"
#include "measurement/Request.h"

namespace CommonUI::Measurement
{

using namespace CommonUI::Analysis;

namespace
{

SPlaneCorrection CorrectionOf(const SPlaneCorrectionSettings& settings)
{
    return {.scope = settings.scope,
            .method = settings.method,
            .order = static_cast<std::size_t>(settings.order)};
}

struct SWindow {
    std::size_t columns;
    std::size_t rows;
};

CSurfaceFilter MedianOf(const SFilterSettings& settings, const SWindow& window)
{
    if (settings.kind == EFilterKind::Median && settings.strength == EFilterStrength::Full)
        return SMedianFilter{.columns = window.columns, .rows = window.rows};
    if (settings.application == EFilterApplication::Curve)
        return SLineSpikeFilter{.points = window.columns, .threshold = settings.threshold};
    return SMedianFilter{.columns = window.columns, .rows = window.rows, .threshold = settings.threshold};
}

SIsoGaussianFilter IsoGaussianOf(const SFilterSettings& settings, const SSurface& surface)
{
    SIsoGaussianFilter filter{.extent = settings.kind == EFilterKind::ArealGaussian
                                            ? EGaussianExtent::Areal
                                            : EGaussianExtent::Profile,
                              .pass = settings.cutoff.pass,
                              .share = 1};
    const double evaluationLength = GetCutoff(surface, filter);
    filter.share = 0;
    filter.cutoff = settings.cutoff.GetLength(evaluationLength);
    return filter;
}

std::vector<CSurfaceFilter> StreakFiltersOf(const SFilterSettings& settings)
{
    std::vector<CSurfaceFilter> filters;
    const auto add = [&](bool isBright, EFilterPolarity other) {
        if (settings.polarity != other)
            filters.emplace_back(SStreakFilter{.isBright = isBright,
                                               .width = static_cast<std::size_t>(settings.maximumWidth),
                                               .threshold = settings.threshold});
    };
    add(true, EFilterPolarity::Dark);
    add(false, EFilterPolarity::Bright);
    return filters;
}

// The filters that do, one after the other, what the settings say.
std::vector<CSurfaceFilter> FiltersOf(const SFilterSettings& settings, const SSurface& surface)
{
    const SWindow window{static_cast<std::size_t>(settings.columns), static_cast<std::size_t>(settings.rows)};
    switch (settings.kind) {
    case EFilterKind::Mean:
        return {SMeanFilter{.columns = window.columns, .rows = window.rows}};
    case EFilterKind::Gauss:
        return {SGaussianSmoothing{
            .columns = window.columns, .rows = window.rows, .sd = settings.standardDeviation}};
    case EFilterKind::Convolution:
        return {SKernel{.columns = window.columns, .rows = window.rows, .weights = settings.weights}};
    case EFilterKind::Streaks:
        return StreakFiltersOf(settings);
    case EFilterKind::ProfileGaussian:
    case EFilterKind::ArealGaussian:
        return {IsoGaussianOf(settings, surface)};
    default:
        return {MedianOf(settings, window)};
    }
}

// Each answers why the set does not fit the surface; empty if it does.
std::string_view ApplySettings(const SPlaneCorrectionSettings& settings, SSurface& surface)
{
    Correct(surface, CorrectionOf(settings));
    return {};
}

std::string_view ApplySettings(const SFilterSettings& settings, SSurface& surface)
{
    for (const CSurfaceFilter& filter : FiltersOf(settings, surface)) {
        if (const std::string_view refusal = FindRefusal(surface, filter); !refusal.empty())
            return refusal;
        surface = *Filter(surface, filter);
    }
    return {};
}

} // namespace

void Apply(const SStep& step, SSurface& surface)
{
    const std::string_view refusal = std::visit(
        [&surface](const auto& settings) { return ApplySettings(settings, surface); }, step.settings);
    if (!refusal.empty())
        throw ERequest(step.userSpec, CStr::FromUtf8(refusal));
}

bool IsGaussian(const SStep& step)
{
    const auto* const filter = std::get_if<SFilterSettings>(&step.settings);
    return filter &&
           (filter->kind == EFilterKind::ProfileGaussian || filter->kind == EFilterKind::ArealGaussian);
}

std::optional<double> FindCutoff(const SStep& step, const SSurface& surface)
{
    if (!IsGaussian(step))
        return {};
    return IsoGaussianOf(std::get<SFilterSettings>(step.settings), surface).cutoff;
}

SInput Process(SSurface surface, ELevelling levelling, const std::vector<SStep>& steps, bool keepsRaw)
{
    SInput input{.levelling = levelling};
    if (keepsRaw || !steps.empty())
        input.raw = surface;
    Level(surface, levelling);
    for (const SStep& step : steps) {
        if (const auto cutoff = FindCutoff(step, surface))
            input.cutoffs.push_back({input.steps.size() + 1, *cutoff});
        Apply(step, surface);
        input.steps.push_back(step.name);
    }
    input.surface = std::move(surface);
    return input;
}

} // namespace CommonUI::Measurement

#include "analysis/profile/Valleys.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/profile/detail/RobustLine.h"
#include "analysis/profile/Iso4287.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_leastShare = 0.05; // of the height of the profile about its line
constexpr double c_edgeShare = 0.01;  // likewise: a plateau that the line nearly follows is not below it

constexpr std::string_view c_missingPoints = "valleys need a profile without missing points";
constexpr std::string_view c_noCutoff = "the cut-off does not suit the profile";
constexpr std::string_view c_noValley = "the profile has no valley";
constexpr std::string_view c_single = "the profile has fewer than two valleys";

// Positions are in point spacings.
struct SValley {
    double begin = 0;
    double end = 0;
    double depth = 0;
    double area = 0;
    bool isWhole = true;
};

// The valley that starts at a point below its edges, however little. Next becomes the first point behind it.
// @param edge height of the edges, not above 0
SValley MeasureValley(std::span<const double> z, double edge, std::size_t& next)
{
    SValley valley{.begin = static_cast<double>(next), .isWhole = next > 0};
    const std::size_t first = next;
    for (; next < z.size() && z[next] < edge; ++next) {
        valley.depth = std::max(valley.depth, -z[next]);
        valley.area -= next > first ? (z[next - 1] + z[next]) / 2 : 0;
    }
    valley.end = static_cast<double>(next - 1);
    const auto extend = [&](std::size_t inside, std::size_t outside) {
        const double width = (z[inside] - edge) / (z[inside] - z[outside]);
        valley.area -= (z[inside] + edge) / 2 * width;
        return width;
    };
    if (first > 0)
        valley.begin -= extend(first, first - 1);
    if (next < z.size())
        valley.end += extend(next - 1, next);
    else
        valley.isWhole = false;
    return valley;
}

// @param z heights above the line
std::vector<SValley> FindValleys(std::span<const double> z)
{
    const SRange range = FindRange(z);
    const double height = range.highest - range.lowest;
    const double edge = -c_edgeShare * height;
    std::vector<SValley> valleys;
    for (std::size_t i = 0; i < z.size(); ++i) {
        if (!(z[i] < edge))
            continue;
        const SValley valley = MeasureValley(z, edge, i);
        if (valley.depth >= c_leastShare * height)
            valleys.push_back(valley);
    }
    return valleys;
}

struct SParameters {
    double spacing = c_undefined;
    double density = c_undefined;
    double depth = c_undefined;
    double deepest = c_undefined;
    double width = c_undefined;
    double deviation = c_undefined;
    double share = c_undefined;
    double volume = c_undefined;
};

SParameters Summarise(const std::vector<SValley>& valleys, std::size_t points, double dx)
{
    const double length = static_cast<double>(points) * dx;
    double widths = 0;
    double areas = 0;
    std::vector<SValley> whole;
    for (const SValley& valley : valleys) {
        widths += valley.end - valley.begin;
        areas += valley.area;
        if (valley.isWhole)
            whole.push_back(valley);
    }
    const auto count = static_cast<double>(whole.size());
    SParameters parameters{
        .density = count / length, .share = 100 * widths * dx / length, .volume = areas * dx / length};
    if (whole.empty())
        return parameters;
    const auto mean = [&](const auto& get) {
        double sum = 0;
        for (const SValley& valley : whole)
            sum += get(valley);
        return sum / count;
    };
    parameters.depth = mean([](const SValley& v) { return v.depth; });
    parameters.deepest = std::ranges::max(whole, {}, &SValley::depth).depth;
    parameters.width = dx * mean([](const SValley& v) { return v.end - v.begin; });
    if (whole.size() < 2)
        return parameters;
    const auto square = [&](const SValley& v) { return std::pow(v.depth - parameters.depth, 2); };
    parameters.deviation = std::sqrt(mean(square) * count / (count - 1));
    const auto getMiddle = [](const SValley& v) { return (v.begin + v.end) / 2; };
    parameters.spacing = dx * (getMiddle(whole.back()) - getMiddle(whole.front())) / (count - 1);
    return parameters;
}

struct SRow {
    std::string_view key;
    double SParameters::*value;
};

constexpr SRow c_rows[] = {
    {"Msm", &SParameters::spacing}, {"rMn", &SParameters::density}, {"rMd", &SParameters::depth},
    {"rMx", &SParameters::deepest}, {"rMw", &SParameters::width},   {"rMs", &SParameters::deviation},
    {"rMa", &SParameters::share},   {"rMv", &SParameters::volume},
};

// The heights above the reference line; none without a usable cut-off that it needs.
std::optional<std::vector<double>> SubtractLine(std::span<const double> primary,
                                                const CProfileSplitter& splitter, const SValleyMethod& method)
{
    if (method.line == EReferenceLine::MeanLine)
        return GetUnbroken(primary, ComputeHeightParameters(primary).mean);
    const std::optional<double> cutoff = splitter.GetCutoff();
    if (!cutoff)
        return std::nullopt;
    const auto reach = static_cast<std::size_t>(std::lround(*cutoff / method.closingRatio / 2));
    const CRobustLine regression(primary.size(), *cutoff, method.line == EReferenceLine::Regression0 ? 0 : 2);
    std::vector<double> heights = regression.Compute(primary, Close(primary, reach));
    for (std::size_t i = 0; i < heights.size(); ++i)
        heights[i] = primary[i] - heights[i];
    return heights;
}

} // namespace

std::vector<SValue> ComputeValleys(std::span<const double> primary, const CProfileSplitter& splitter,
                                   const SValleyMethod& method)
{
    const SRange range = FindRange(primary);
    SParameters parameters;
    std::string_view reason = c_missingPoints;
    if (range.count > 0 && range.count == primary.size()) {
        reason = c_noCutoff;
        if (const auto heights = SubtractLine(primary, splitter, method)) {
            parameters = Summarise(FindValleys(*heights), heights->size(), splitter.GetSpacing());
            reason = std::isnan(parameters.depth) ? c_noValley : c_single;
        }
    }
    std::vector<SValue> values;
    for (const SRow& row : c_rows) {
        const double value = parameters.*row.value;
        values.push_back({row.key, value, std::isnan(value) ? reason : ""});
    }
    return values;
}

std::vector<SQuantity> GetValleyQuantities()
{
    std::vector<SQuantity> quantities;
    for (const SRow& row : c_rows)
        quantities.push_back({row.key, ENeed::Valleys});
    return quantities;
}

} // namespace CommonUI::Analysis

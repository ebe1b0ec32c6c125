#include "analysis/feature/FeatureParameters.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/feature/Features.h"
#include "analysis/numeric/detail/Parallel.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <future>
#include <string_view>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_leastShare = 0.05; // of Sz, below which hills and dales are pruned
constexpr std::size_t c_highest = 5;

// A mean, and why there is none.
struct SMean {
    double value = c_undefined;
    std::string_view reason{};
};

// @param count how many there have to be
SMean MeanOf(const std::vector<double>& values, std::size_t count, std::string_view reason)
{
    if (values.size() < count)
        return {.reason = reason};
    double sum = 0;
    for (const double value : values)
        sum += value;
    return {.value = sum / static_cast<double>(values.size())};
}

std::vector<SFeature> SelectInside(const SFeatures& found)
{
    std::vector<SFeature> inside;
    std::ranges::copy_if(found.features, std::back_inserter(inside),
                         [](const SFeature& feature) { return !feature.extremum.isAtEdge; });
    return inside;
}

SMean MeanOfFive(const std::vector<SFeature>& features, double mean, double sign, std::string_view reason)
{
    std::vector<double> heights;
    heights.reserve(features.size());
    for (const SFeature& feature : features)
        heights.push_back(sign * (feature.height - mean));
    std::ranges::sort(heights, std::greater<>());
    heights.resize(std::min(heights.size(), c_highest));
    return MeanOf(heights, c_highest, reason);
}

SMean MeanOfClosed(const SFeatures& found, double SFeature::*what, std::string_view reason)
{
    std::vector<double> values;
    for (const SFeature& feature : found.features)
        if (feature.isClosed)
            values.push_back(feature.*what);
    return MeanOf(values, 1, reason);
}

SMean MeanCurvature(const SSurface& surface, const std::vector<SFeature>& peaks)
{
    std::vector<double> curvatures;
    curvatures.reserve(peaks.size());
    for (const SFeature& peak : peaks)
        curvatures.push_back(ComputeCurvature(surface, peak.extremum.point));
    return MeanOf(curvatures, 1, "no peak is significant");
}

SMean ComputeDensity(const SSurface& surface, const SRange& range, std::size_t peaks)
{
    if (surface.points < 3 || surface.lines < 3)
        return {.reason = "no point has neighbours on all sides"};
    const double area = static_cast<double>(range.count) * surface.dx * surface.dy;
    return {.value = static_cast<double>(peaks) / area};
}

} // namespace

std::vector<SValue> ComputeFeatureParameters(const SSurface& surface)
{
    const SHeightParameters heights = ComputeHeightParameters(surface.heights);
    const double leastExtent = c_leastShare * (heights.highest - heights.lowest);
    const auto find = [&](EFeature kind) { return FindFeatures(surface, kind, leastExtent); };
    std::future<SFeatures> findHills = ComputeBeside([&find] { return find(EFeature::Hill); });
    const SFeatures dales = find(EFeature::Dale);
    const SFeatures hills = findHills.get();
    const std::vector<SFeature> peaks = SelectInside(hills);

    const SMean peakHeight = MeanOfFive(peaks, heights.mean, 1, "fewer than five peaks are significant");
    const SMean pitDepth =
        MeanOfFive(SelectInside(dales), heights.mean, -1, "fewer than five pits are significant");
    const SMean density = ComputeDensity(surface, heights, peaks.size());
    const SMean curvature = MeanCurvature(surface, peaks);
    const auto ofDales = [&](double SFeature::*what) {
        return MeanOfClosed(dales, what, "every dale touches the edge");
    };
    const auto ofHills = [&](double SFeature::*what) {
        return MeanOfClosed(hills, what, "every hill touches the edge");
    };
    const SMean dalesArea = ofDales(&SFeature::area);
    const SMean hillsArea = ofHills(&SFeature::area);
    const SMean dalesVolume = ofDales(&SFeature::volume);
    const SMean hillsVolume = ofHills(&SFeature::volume);
    return {{"Spd", density.value, density.reason},
            {"Spc", curvature.value, curvature.reason},
            {"S5p", peakHeight.value, peakHeight.reason},
            {"S5v", pitDepth.value, pitDepth.reason},
            {"S10z", peakHeight.value + pitDepth.value,
             peakHeight.reason.empty() ? pitDepth.reason : peakHeight.reason},
            {"Sda", dalesArea.value, dalesArea.reason},
            {"Sha", hillsArea.value, hillsArea.reason},
            {"Sdv", dalesVolume.value, dalesVolume.reason},
            {"Shv", hillsVolume.value, hillsVolume.reason}};
}

} // namespace CommonUI::Analysis

#include "analysis/calibration/Linearity.h"

#include "analysis/form/Tilt.h"
#include "analysis/numeric/detail/Summation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace CommonUI::Analysis
{

namespace
{

constexpr std::string_view c_needsReference = "it needs the reference as a second surface";

SLinearity Refuse(std::string_view reason)
{
    return {.reason = reason, .amplificationReason = reason};
}

// The straight line through heights over others, with both in values around 0.
struct SResponse {
    double count = 0;
    double meanX = 0;
    double meanZ = 0;
    double slope = 0;
    bool isLine = false;
};

SResponse FitResponse(const SSurface& surface, const SSurface& reference)
{
    const auto sumValid = [&](const auto& term) {
        return PairwiseSum(0, surface.heights.size(), [&](std::size_t i) {
            const double x = reference.heights[i];
            const double z = surface.heights[i];
            using SResult = decltype(term(x, z));
            return std::isnan(x) || std::isnan(z) ? SResult{} : term(x, z);
        });
    };
    const auto [count, sumX, sumZ] = sumValid([](double x, double z) { return SSums<3>{1, x, z}; }).values;
    SResponse response{.count = count, .meanX = sumX / count, .meanZ = sumZ / count};
    // In shares of the largest, as squares of heights may be too small for a number.
    double scale = 0;
    for (const double x : reference.heights)
        scale = std::fmax(scale, std::fabs(x - response.meanX));
    const auto [xx, xz] = sumValid([&](double x, double z) {
                              const double share = (x - response.meanX) / scale;
                              return SSums<2>{share * share, share * (z - response.meanZ)};
                          }).values;
    response.isLine = count >= 2 && scale > 0 && xx > 0;
    response.slope = xz / xx / scale;
    return response;
}

} // namespace

SLinearity MeasureLinearity(const SSurface& surface, const SSurface& reference)
{
    if (surface.points != reference.points || surface.lines != reference.lines)
        return Refuse("the reference has another number of points");
    const SResponse response = FitResponse(surface, reference);
    if (!response.isLine)
        return Refuse("the reference has no two heights where both surfaces have points");
    SLinearity linearity{.deviation = 0, .amplification = response.slope};
    double lowest = c_missing;
    double highest = c_missing;
    std::vector<double> distances;
    for (std::size_t i = 0; i < surface.heights.size(); ++i) {
        const double z = surface.heights[i];
        const double distance = z - response.meanZ - response.slope * (reference.heights[i] - response.meanX);
        if (std::isnan(distance))
            continue;
        lowest = std::fmin(lowest, z);
        highest = std::fmax(highest, z);
        linearity.deviation = std::max(linearity.deviation, std::fabs(distance));
        distances.push_back(distance);
    }
    const double squares = SumValid(distances, [&](double distance) {
        return linearity.deviation > 0 ? std::pow(distance / linearity.deviation, 2) : 0.0;
    });
    linearity.deviationRms = linearity.deviation * std::sqrt(squares / response.count);
    linearity.share = 100 * linearity.deviation / (highest - lowest); // NaN of a flat one
    return linearity;
}

SLinearity MeasureLinearity(const SSurface& surface)
{
    const STilt tilt = MeasureTilt(surface);
    if (!tilt.reason.empty())
        return Refuse(tilt.reason);
    return {.deviation = tilt.largest,
            .deviationRms = tilt.residual,
            .share = tilt.range > 0 ? 100 * tilt.largest / tilt.range : c_undefined,
            .amplification = c_undefined,
            .amplificationReason = c_needsReference};
}

} // namespace CommonUI::Analysis

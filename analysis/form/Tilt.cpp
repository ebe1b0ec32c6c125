#include "analysis/form/Tilt.h"

#include "analysis/form/Levelling.h"
#include "analysis/numeric/detail/Summation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_degrees = 180 / std::numbers::pi;

// Of a plane.
struct SSlopes {
    double x = 0;
    double y = 0;
};

// From what a levelled surface has less than the one before: the plane at the valid points.
SSlopes FindSlopes(const SSurface& before, const SSurface& level)
{
    const auto atPoint = [&](std::size_t i) {
        struct SPoint {
            double x, y, z;
        };
        const std::size_t line = i / before.points;
        return SPoint{static_cast<double>(i % before.points) * before.dx,
                      static_cast<double>(line) * before.dy, before.heights[i] - level.heights[i]};
    };
    const auto sumValid = [&](const auto& term) {
        return PairwiseSum(0, before.heights.size(), [&](std::size_t i) {
            using SResult = decltype(term(std::size_t{}));
            return std::isnan(before.heights[i]) ? SResult{} : term(i);
        });
    };
    const auto [count, meanX, meanY, meanZ] = sumValid([&](std::size_t i) {
                                                  const auto [x, y, z] = atPoint(i);
                                                  return SSums<4>{1, x, y, z};
                                              }).values;
    const auto [xx, xy, yy, xz, yz] = sumValid([&](std::size_t i) {
                                          auto [x, y, z] = atPoint(i);
                                          x -= meanX / count;
                                          y -= meanY / count;
                                          z -= meanZ / count;
                                          return SSums<5>{x * x, x * y, y * y, x * z, y * z};
                                      }).values;
    const double determinant = xx * yy - xy * xy;
    if (determinant > 1e-12 * xx * yy)
        return {(xz * yy - yz * xy) / determinant, (yz * xx - xz * xy) / determinant};
    return {xx > 0 ? xz / xx : 0, xx > 0 || yy == 0 ? 0 : yz / yy};
}

} // namespace

STilt MeasureTilt(const SSurface& surface)
{
    double lowest = c_missing;
    double highest = c_missing;
    std::size_t count = 0;
    for (const double z : surface.heights) {
        lowest = std::fmin(lowest, z);
        highest = std::fmax(highest, z);
        count += std::isnan(z) ? 0 : 1;
    }
    const std::size_t least = surface.IsProfile() ? 2 : 3;
    if (count < least)
        return {.reason = surface.IsProfile() ? "the profile has less than two points"
                                              : "the surface has less than three points"};
    SSurface level = surface;
    Level(level, ELevelling::Plane);
    // What a slope makes over the whole surface is rounding noise, not a tilt, where it is as little.
    const double noise =
        16 * std::numeric_limits<double>::epsilon() * std::max(std::fabs(lowest), std::fabs(highest));
    auto [slopeX, slopeY] = FindSlopes(surface, level);
    if (std::fabs(slopeX) * static_cast<double>(surface.points) * surface.dx <= noise)
        slopeX = 0;
    if (std::fabs(slopeY) * static_cast<double>(surface.lines) * surface.dy <= noise)
        slopeY = 0;
    STilt tilt{.x = std::atan(slopeX) * c_degrees,
               .total = std::atan(std::hypot(slopeX, slopeY)) * c_degrees,
               .slopeX = slopeX,
               .slopeY = slopeY,
               .range = highest - lowest,
               .largest = 0};
    if (!surface.IsProfile()) {
        tilt.y = std::atan(slopeY) * c_degrees;
        if (slopeX != 0 || slopeY != 0)
            tilt.direction = std::atan2(slopeY, slopeX) * c_degrees;
    }
    for (const double z : level.heights)
        tilt.largest = std::fmax(tilt.largest, std::fabs(z));
    const double squares = SumValid(level.heights, [&](double z) {
        const double share = tilt.largest > 0 ? z / tilt.largest : 0;
        return share * share;
    });
    tilt.residual = tilt.largest * std::sqrt(squares / static_cast<double>(count));
    return tilt;
}

} // namespace CommonUI::Analysis

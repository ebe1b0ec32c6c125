#include "analysis/profile/LineProfile.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Analysis
{

namespace
{

// The point before a place along one direction, and the weight of the one after it.
struct SBetween {
    std::size_t index = 0;
    double weight = 0;
    bool isInside = false;
};

// @param spacing of the only point of a direction may be 0
SBetween FindBetween(double at, double spacing, std::size_t points)
{
    constexpr double c_tolerance = 1e-9; // rounding leads to no neighbour
    const double position = spacing > 0 ? at / spacing : 0;
    const double nearest = std::round(position);
    const double place =
        std::abs(position - nearest) < c_tolerance * static_cast<double>(points + 1) ? nearest : position;
    if (!(place >= 0 && place <= static_cast<double>(points - 1)))
        return {};
    const double before = std::floor(place);
    return {.index = static_cast<std::size_t>(before), .weight = place - before, .isInside = true};
}

} // namespace

double GetHeightAt(const SSurface& surface, const SPlace& place)
{
    if (surface.points == 0 || surface.lines == 0)
        return c_missing;
    const SBetween x = FindBetween(place.x, surface.dx, surface.points);
    const SBetween y = FindBetween(place.y, surface.dy, surface.lines);
    if (!x.isInside || !y.isInside)
        return c_missing;
    const auto alongX = [&](std::size_t line) {
        const double* const heights = surface.heights.data() + line * surface.points + x.index;
        return x.weight > 0 ? (1 - x.weight) * heights[0] + x.weight * heights[1] : heights[0];
    };
    return y.weight > 0 ? (1 - y.weight) * alongX(y.index) + y.weight * alongX(y.index + 1) : alongX(y.index);
}

SLineProfile ExtractProfile(const SSurface& surface, const SPlace& from, const SPlace& to)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double steps =
        std::hypot(surface.dx > 0 ? dx / surface.dx : 0, surface.dy > 0 ? dy / surface.dy : 0);
    const double most = static_cast<double>(2 * (surface.points + surface.lines));
    const double intervals = std::clamp(std::round(steps), steps > 0 ? 1.0 : 0.0, most);
    SLineProfile profile{.spacing = intervals > 0 ? std::hypot(dx, dy) / intervals : 0};
    const auto last = static_cast<std::size_t>(intervals);
    for (std::size_t i = 0; i <= last; ++i) {
        const double share = last > 0 ? static_cast<double>(i) / intervals : 0;
        profile.heights.push_back(GetHeightAt(surface, {.x = from.x + share * dx, .y = from.y + share * dy}));
    }
    return profile;
}

} // namespace CommonUI::Analysis

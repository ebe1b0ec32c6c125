#include "analysis/tip/Morphology.h"

#include "analysis/numeric/detail/Parallel.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace CommonUI::Analysis
{

namespace
{

struct SOffset {
    std::ptrdiff_t x;
    std::ptrdiff_t y;
    double height; // of the tip
};

std::vector<SOffset> GetOffsets(const SSurface& tip)
{
    std::vector<SOffset> offsets;
    for (std::size_t i = 0; i < tip.heights.size(); ++i)
        if (!std::isnan(tip.heights[i]))
            offsets.push_back(
                {static_cast<std::ptrdiff_t>(i % tip.points) - static_cast<std::ptrdiff_t>(tip.points / 2),
                 static_cast<std::ptrdiff_t>(i / tip.points) - static_cast<std::ptrdiff_t>(tip.lines / 2),
                 tip.heights[i]});
    return offsets;
}

// Takes for each point the best of the heights at the offsets, to which those of the tip are added.
template<class FBetter>
SSurface Combine(const SSurface& surface, const std::vector<SOffset>& offsets, const FBetter& better)
{
    SSurface result = surface;
    const auto points = static_cast<std::ptrdiff_t>(surface.points);
    const auto lines = static_cast<std::ptrdiff_t>(surface.lines);
    ComputeInShares(surface.lines, [&](std::size_t firstLine, std::size_t lastLine) {
        for (auto y = static_cast<std::ptrdiff_t>(firstLine); y < static_cast<std::ptrdiff_t>(lastLine);
             ++y) {
            double* const to = &result.heights[static_cast<std::size_t>(y * points)];
            for (const SOffset& offset : offsets) {
                if (y + offset.y < 0 || y + offset.y >= lines)
                    continue;
                const double* const from =
                    &surface.heights[static_cast<std::size_t>((y + offset.y) * points)];
                const std::ptrdiff_t last = std::min(points, points - offset.x);
                for (std::ptrdiff_t x = std::max<std::ptrdiff_t>(0, -offset.x); x < last; ++x)
                    if (const double z = from[x + offset.x] + offset.height; better(z, to[x]))
                        to[x] = z;
            }
        }
    });
    return result;
}

} // namespace

SSurface Dilate(const SSurface& surface, const SSurface& tip)
{
    return Combine(surface, GetOffsets(tip), [](double a, double b) { return a > b; });
}

SSurface Erode(const SSurface& image, const SSurface& tip)
{
    std::vector<SOffset> offsets = GetOffsets(tip);
    for (SOffset& offset : offsets)
        offset = {-offset.x, -offset.y, -offset.height};
    return Combine(image, offsets, [](double a, double b) { return a < b; });
}

} // namespace CommonUI::Analysis

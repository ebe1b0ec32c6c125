#include "formats/detail/EvenSpacing.h"

#include <cmath>

namespace CommonUI::Formats
{

SEvenSpacing FindSpacing(std::span<const double> positions, std::size_t repeat, std::size_t count,
                         const std::function<bool(std::size_t)>& isMissing)
{
    constexpr double c_tolerance = 0.1;
    const double first = positions.front();
    const double spacing = (positions[repeat * (count - 1)] - first) / static_cast<double>(count - 1);
    for (std::size_t i = 0; i < positions.size(); ++i) {
        const double expected = first + spacing * static_cast<double>(i / repeat % count);
        if (!(std::fabs(positions[i] - expected) <= c_tolerance * std::fabs(spacing)) && !isMissing(i))
            return {.spacing = spacing, .uneven = i};
    }
    return {.spacing = spacing, .uneven = std::nullopt};
}

} // namespace CommonUI::Formats

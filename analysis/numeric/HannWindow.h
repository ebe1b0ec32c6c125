#pragma once

#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

namespace CommonUI::Analysis
{

/// The weights of a Hann window, sin²: 0 at both ends, 1 in the middle. Spectra are of heights that fade like
/// this towards the edges, or else the steps from one edge to the other would be taken for waves. The mean
/// square of the weights is 3/8.
/// @param count of the points, in the middle of which the window lies; each point stands for the middle of
///     its cell
/// @param width of the window in points; what is beyond it has the weight 0
inline std::vector<double> MakeHannWindow(std::size_t count, double width)
{
    std::vector<double> weights(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double share = (static_cast<double>(i) + 0.5 - static_cast<double>(count) / 2) / width + 0.5;
        weights[i] = share > 0 && share < 1 ? std::pow(std::sin(std::numbers::pi * share), 2) : 0;
    }
    return weights;
}

} // namespace CommonUI::Analysis

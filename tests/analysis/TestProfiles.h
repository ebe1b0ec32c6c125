#pragma once

#include "tests/analysis/TestSurfaces.h"

#include <cmath>
#include <vector>

namespace CommonUI::Analysis
{

inline constexpr double c_dx = 1e-6;

template<class FHeight>
std::vector<double> MakeProfile(std::size_t points, const FHeight& getHeight)
{
    return MakeSurface(points, 1, [&](double x, double) { return getHeight(x); }).heights;
}

inline double Wave(double x, double period)
{
    return std::sin(2 * c_pi * (x + 0.5) / period);
}

} // namespace CommonUI::Analysis

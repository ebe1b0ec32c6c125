#include "analysis/areal/ArealParameters.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/areal/MaterialRatio.h"
#include "analysis/areal/SpatialParameters.h"
#include "analysis/numeric/detail/Summation.h"

#include <array>
#include <cmath>
#include <future>

namespace CommonUI::Analysis
{

namespace
{

// Sum of the squared gradient over the points that have one, and how many there are.
SSums<2> SumSquaredGradient(const SSurface& surface)
{
    const double perX = 1 / (2 * surface.dx);
    const double perY = 1 / (2 * surface.dy);
    if (surface.lines < 3 || surface.points < 3)
        return {};
    return PairwiseSum(1, surface.lines - 1, [&](std::size_t row) {
        const auto above = surface.GetLine(row - 1);
        const auto line = surface.GetLine(row);
        const auto below = surface.GetLine(row + 1);
        return PairwiseSum(1, surface.points - 1, [&](std::size_t i) {
            const double p = (line[i + 1] - line[i - 1]) * perX;
            const double q = (below[i] - above[i]) * perY;
            const double square = p * p + q * q;
            return std::isnan(square + line[i]) ? SSums<2>{} : SSums<2>{square, 1};
        });
    });
}

// How much larger than their projections four facets are on average whose squared gradients are given:
// √(1 + s) - 1 without cancellation.
double GetExcess(const std::array<double, 4>& squares)
{
    std::array<double, 4> excess;
    for (std::size_t i = 0; i < squares.size(); ++i)
        excess[i] = squares[i] / (1 + std::sqrt(1 + squares[i]));
    return (excess[0] + excess[1] + excess[2] + excess[3]) / 4;
}

// Sum of the excess of the cells that have four valid corners, and how many there are. The four facets of a
// cell have the slope of an edge in one direction and the mean slope of two edges in the other.
SSums<2> SumExcess(const SSurface& surface)
{
    const double perX = 1 / surface.dx;
    const double perY = 1 / surface.dy;
    if (surface.lines < 2 || surface.points < 2)
        return {};
    return PairwiseSum(0, surface.lines - 1, [&](std::size_t row) {
        const auto line = surface.GetLine(row);
        const auto next = surface.GetLine(row + 1);
        return PairwiseSum(0, surface.points - 1, [&](std::size_t i) {
            const double p1 = (line[i + 1] - line[i]) * perX;
            const double p2 = (next[i + 1] - next[i]) * perX;
            const double q1 = (next[i] - line[i]) * perY;
            const double q2 = (next[i + 1] - line[i + 1]) * perY;
            const double pp = (p1 + p2) * (p1 + p2) / 4;
            const double qq = (q1 + q2) * (q1 + q2) / 4;
            const double excess = GetExcess({p1 * p1 + qq, p2 * p2 + qq, pp + q1 * q1, pp + q2 * q2});
            return std::isnan(excess) ? SSums<2>{} : SSums<2>{excess, 1};
        });
    });
}

std::vector<SValue> ComputeHybrid(const SSurface& surface)
{
    const auto [squares, points] = SumSquaredGradient(surface).values;
    const auto [excess, cells] = SumExcess(surface).values;
    const double cellArea = surface.dx * surface.dy;
    return {
        {"Sdq", std::sqrt(squares / points)},
        {"Sdr", 100 * excess / cells},
        {"S2A", cells == 0 ? c_undefined : cells * cellArea},
        {"S3A", cells == 0 ? c_undefined : (cells + excess) * cellArea},
    };
}

std::vector<SValue> ComputeHeights(const SHeightParameters& heights)
{
    return {
        {"Sa", heights.average},
        {"Sq", heights.rms},
        {"Ssk", heights.skewness},
        {"Sku", heights.kurtosis},
        {"Sp", heights.GetPeak()},
        {"Sv", heights.GetPit()},
        {"Sz", heights.highest - heights.lowest},
        {"Smean", heights.mean},
        {"Smin", heights.lowest},
        {"Smax", heights.highest},
    };
}

std::vector<SValue> ComputeMaterialRatio(const CMaterialRatio& curve)
{
    const SCore core = curve.ComputeCore();
    const auto fall = [&](double first, double second) {
        return curve.GetHeight(first) - curve.GetHeight(second);
    };
    return {
        {"Sk", core.Sk},
        {"Spk", core.Spk},
        {"Svk", core.Svk},
        {"Smr1", core.Smr1},
        {"Smr2", core.Smr2},
        {"Sxp", fall(2.5, 50)},
        {"Vmp", curve.GetMaterialVolume(10)},
        {"Vmc", curve.GetMaterialVolume(80) - curve.GetMaterialVolume(10)},
        {"Vvc", curve.GetVoidVolume(10) - curve.GetVoidVolume(80)},
        {"Vvv", curve.GetVoidVolume(80)},
        {"Sdc0_5", fall(0, 5)},
        {"Sdc5_10", fall(5, 10)},
        {"Sdc10_50", fall(10, 50)},
        {"Sdc50_95", fall(50, 95)},
    };
}

void Append(const std::vector<SValue>& more, std::vector<SValue>& values)
{
    values.insert(values.end(), more.begin(), more.end());
}

} // namespace

std::vector<SValue> ComputeAreal(const SSurface& surface, bool spatial)
{
    // Sorting the heights takes a while.
    auto ofCurve = std::async([&] { return ComputeMaterialRatio(CMaterialRatio(surface.heights)); });
    const SHeightParameters heights = ComputeHeightParameters(surface.heights);
    std::vector<SValue> values = ComputeHeights(heights);
    if (spatial)
        Append(ComputeSpatial(surface, heights.mean), values);
    Append(ComputeHybrid(surface), values);
    Append(ofCurve.get(), values);
    values.push_back({"Count", static_cast<double>(heights.count)});
    return values;
}

} // namespace CommonUI::Analysis

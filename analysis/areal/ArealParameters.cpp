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

// How much larger than its projection a facet is whose squared gradient is given: √(1 + s) - 1 without cancellation. It
// is never more than s / 2, rounding included.
double GetExcess(double square)
{
    return square / (1 + std::sqrt(1 + square));
}

// Sums of the squared gradient and of the excess of area over the cells that have four valid corners, and how many cells
// there are. A cell is divided into two triangles, by the one diagonal and by the other, each of which has the slopes of
// two of the cell's edges; the cell's values are the means of the four.
SSums<3> SumCells(const SSurface& surface)
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
            SSums<3> sums{0, 0, 1};
            for (const double p : {p1 * p1, p2 * p2}) {
                for (const double q : {q1 * q1, q2 * q2}) {
                    sums.values[0] += (p + q) / 4;
                    sums.values[1] += GetExcess(p + q) / 4;
                }
            }
            return std::isnan(sums.values[0]) ? SSums<3>{} : sums;
        });
    });
}

std::vector<SValue> ComputeHybrid(const SSurface& surface)
{
    const auto [squares, excess, cells] = SumCells(surface).values;
    const double cellArea = surface.dx * surface.dy;
    return {
        {"Sdq", std::sqrt(squares / cells)},
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

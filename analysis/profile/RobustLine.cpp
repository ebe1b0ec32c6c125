#include "analysis/profile/detail/RobustLine.h"

#include "analysis/areal/HeightParameters.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_runsPerCutoff = 32;
constexpr double c_scaleOfOrder0 = 0.4697;
constexpr double c_scaleOfOrder2 = 0.7309;
constexpr double c_reach = 2.1;       // in γ λc: what is beyond weighs a millionth
constexpr double c_biweight = 4.4478; // three standard deviations of Gaussian residuals
constexpr double c_settled = 1e-3;    // relative change of the median residual
constexpr double c_exact = 1e-9;      // median residual as a share of the height
constexpr double c_singular = 1e-9;
constexpr int c_mostRounds = 20;

// For each point that height within some points to either side which comes first in an order.
template<class FBefore>
std::vector<double> Extreme(std::span<const double> heights, std::size_t reach, FBefore isBefore)
{
    std::vector<double> extremes(heights.size());
    std::vector<std::size_t> queue(heights.size()); // of points, none before an earlier one
    std::size_t first = 0;
    std::size_t last = 0;
    std::size_t next = 0;
    for (std::size_t i = 0; i < heights.size(); ++i) {
        for (; next < heights.size() && next <= i + reach; ++next) {
            while (last > first && !isBefore(heights[queue[last - 1]], heights[next]))
                --last;
            queue[last++] = next;
        }
        while (queue[first] + reach < i)
            ++first;
        extremes[i] = heights[queue[first]];
    }
    return extremes;
}

// The middle one of the magnitudes.
double MedianMagnitude(std::vector<double> residuals)
{
    for (double& residual : residuals)
        residual = std::fabs(residual);
    const auto middle = residuals.begin() + static_cast<std::ptrdiff_t>(residuals.size() / 2);
    std::nth_element(residuals.begin(), middle, residuals.end());
    return *middle;
}

} // namespace

std::vector<double> Close(std::span<const double> profile, std::size_t toEitherSide)
{
    return Extreme(Extreme(profile, toEitherSide, std::greater<>()), toEitherSide, std::less<>());
}

// Points beside one another: the sum of their weights, and their weighted means.
struct CRobustLine::SRun {
    double weight = 0;
    double at = 0;
    double height = 0;
};

CRobustLine::CRobustLine(std::size_t points, double cutoff, int order)
    : m_points(points)
    , m_run(std::max<std::size_t>(1, static_cast<std::size_t>(cutoff / c_runsPerCutoff)))
    , m_order(order)
    , m_scale((order == 0 ? c_scaleOfOrder0 : c_scaleOfOrder2) * cutoff)
{
    const double step = static_cast<double>(m_run) / m_scale;
    m_weights.resize(static_cast<std::size_t>(c_reach / step) + 1);
    for (std::size_t i = 0; i < m_weights.size(); ++i)
        m_weights[i] = std::exp(-std::numbers::pi * std::pow(static_cast<double>(i) * step, 2));
}

double CRobustLine::GetMiddle(std::size_t run) const
{
    const std::size_t first = run * m_run;
    return static_cast<double>(first + std::min(first + m_run, m_points) - 1) / 2;
}

std::vector<CRobustLine::SRun> CRobustLine::MakeRuns(std::span<const double> heights,
                                                     std::span<const double> weights) const
{
    std::vector<SRun> runs;
    for (std::size_t first = 0; first < m_points; first += m_run) {
        const std::size_t end = std::min(first + m_run, m_points);
        SRun run;
        for (std::size_t i = first; i < end; ++i) {
            run.weight += weights[i];
            run.at += weights[i] * static_cast<double>(i - first);
            run.height += weights[i] * heights[i];
        }
        if (run.weight > 0) {
            run.at = run.at / run.weight + static_cast<double>(first);
            run.height /= run.weight;
        }
        runs.push_back(run);
    }
    return runs;
}

// The fitted height in the middle of a run; what it was before where no height near by has a weight. An order
// that the heights do not determine is left out.
double CRobustLine::Fit(std::span<const SRun> runs, std::size_t at, double previous) const
{
    const double middle = GetMiddle(at);
    double m0 = 0;
    double m1 = 0;
    double m2 = 0;
    double m3 = 0;
    double m4 = 0;
    double t0 = 0;
    double t1 = 0;
    double t2 = 0;
    const std::size_t first = at - std::min(at, m_weights.size() - 1);
    const std::size_t end = std::min(at + m_weights.size(), runs.size());
    for (std::size_t i = first; i < end; ++i) {
        const double weight = runs[i].weight * m_weights[i < at ? at - i : i - at];
        const double d = (runs[i].at - middle) / m_scale;
        const double z = runs[i].height * weight;
        m0 += weight;
        m1 += weight * d;
        m2 += weight * d * d;
        m3 += weight * d * d * d;
        m4 += weight * d * d * d * d;
        t0 += z;
        t1 += z * d;
        t2 += z * d * d;
    }
    if (!(m0 > c_singular * static_cast<double>(m_run)))
        return previous;
    const double constant = t0 / m0;
    const double linear = m2 - m1 * m1 / m0;
    if (m_order == 0 || !(linear > c_singular * m2))
        return constant;
    const double mixed = m3 - m1 * m2 / m0;
    const double square = m4 - m2 * m2 / m0 - mixed * mixed / linear;
    const double ofLinear = t1 - m1 * constant;
    const double c = square > c_singular * m4 ? (t2 - m2 * constant - mixed / linear * ofLinear) / square : 0;
    const double b = (ofLinear - mixed * c) / linear;
    return constant - (m1 * b + m2 * c) / m0;
}

void CRobustLine::Regress(std::span<const double> heights, std::span<const double> weights,
                          std::vector<double>& nodes) const
{
    const std::vector<SRun> runs = MakeRuns(heights, weights);
    nodes.resize(runs.size());
    for (std::size_t i = 0; i < runs.size(); ++i)
        nodes[i] = Fit(runs, i, nodes[i]);
}

// Between the middles of the runs by cubics with the slopes of their neighbours, beyond them straight on.
std::vector<double> CRobustLine::Interpolate(std::span<const double> nodes) const
{
    if (m_run == 1)
        return {nodes.begin(), nodes.end()};
    if (nodes.size() < 2)
        return std::vector<double>(m_points, nodes[0]);
    const auto getSlope = [&](std::size_t i) {
        const std::size_t from = i - std::min<std::size_t>(i, 1);
        const std::size_t to = std::min(i + 1, nodes.size() - 1);
        return (nodes[to] - nodes[from]) / (GetMiddle(to) - GetMiddle(from));
    };
    std::vector<double> line(m_points);
    std::size_t left = 0;
    for (std::size_t i = 0; i < m_points; ++i) {
        const auto x = static_cast<double>(i);
        while (left + 2 < nodes.size() && x > GetMiddle(left + 1))
            ++left;
        const double width = GetMiddle(left + 1) - GetMiddle(left);
        const double t = (x - GetMiddle(left)) / width;
        if (t < 0)
            line[i] = nodes[left] + t * width * getSlope(left);
        else if (t > 1)
            line[i] = nodes[left + 1] + (t - 1) * width * getSlope(left + 1);
        else
            line[i] = nodes[left] * (1 + 2 * t) * (1 - t) * (1 - t) + nodes[left + 1] * t * t * (3 - 2 * t) +
                      width * t * (1 - t) * (getSlope(left) * (1 - t) - getSlope(left + 1) * t);
    }
    return line;
}

std::vector<double> CRobustLine::Compute(std::span<const double> profile,
                                         std::span<const double> closed) const
{
    const SRange range = FindRange(profile);
    std::vector<double> weights(m_points, 1);
    std::vector<double> nodes;
    Regress(closed, weights, nodes);
    std::vector<double> line = Interpolate(nodes);
    std::vector<double> residuals(m_points);
    double before = 0;
    for (int round = 0; round < c_mostRounds; ++round) {
        for (std::size_t i = 0; i < m_points; ++i)
            residuals[i] = profile[i] - line[i];
        const double median = MedianMagnitude(residuals);
        if (median <= c_exact * (range.highest - range.lowest) ||
            std::fabs(median - before) < c_settled * median)
            break;
        before = median;
        for (std::size_t i = 0; i < m_points; ++i) {
            const double share = residuals[i] / (c_biweight * median);
            const double rest = std::max(1 - share * share, 0.0);
            weights[i] = rest * rest;
        }
        Regress(profile, weights, nodes);
        line = Interpolate(nodes);
    }
    return line;
}

} // namespace CommonUI::Analysis

#include "analysis/correlation/CrossCorrelation.h"
#include "analysis/numeric/detail/SymmetricSolver.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>
#include <utility>
#include <vector>

namespace CommonUI::Analysis
{

namespace
{

constexpr std::size_t c_mostPoints = 200'000; // that count in the fit

// A height with its slopes per point and line.
struct SLocal {
    double z;
    double x;
    double y;
};

// Weights of cubic convolution (Keys, 1981) for the values at -1, 0, 1 and 2, and their derivatives.
struct SWeights {
    std::array<double, 4> value;
    std::array<double, 4> slope;

    explicit SWeights(double t)
        : value{-t * (1 - t) * (1 - t) / 2, 1 + t * t * (3 * t - 5) / 2,
                1 + (1 - t) * (1 - t) * (3 * (1 - t) - 5) / 2, -(1 - t) * t * t / 2}
        , slope{-(1 - t) * (1 - 3 * t) / 2, t * (9 * t - 10) / 2, -(1 - t) * (9 * (1 - t) - 10) / 2,
                -t * (2 - 3 * t) / 2}
    {
    }
};

// Between the points of a surface.
class CInterpolation
{
public:
    explicit CInterpolation(const SSurface& surface)
        : m_surface(surface)
    {
    }

    // Nothing beyond the points and beside missing ones.
    std::optional<SLocal> Get(double x, double y) const
    {
        const auto column = FindFirst(x, m_surface.points);
        if (m_surface.lines == 1) {
            if (!column)
                return {};
            const auto [z, slope] = GetInLine(*column, SWeights(x - std::floor(x)), 0);
            return std::isnan(z) ? std::nullopt : std::optional(SLocal{z, slope, 0});
        }
        const auto row = FindFirst(y, m_surface.lines);
        if (!column || !row)
            return {};
        const SWeights alongX(x - std::floor(x));
        const SWeights alongY(y - std::floor(y));
        SLocal local{};
        for (std::size_t i = 0; i < 4; ++i) {
            const auto [z, slope] = GetInLine(*column, alongX, *row + i);
            local.z += alongY.value[i] * z;
            local.x += alongY.value[i] * slope;
            local.y += alongY.slope[i] * z;
        }
        return std::isnan(local.z) ? std::nullopt : std::optional(local);
    }

private:
    struct SInLine {
        double z;
        double slope;
    };

    // The first of the four points around a place.
    static std::optional<std::size_t> FindFirst(double place, std::size_t count)
    {
        if (!(place >= 1 && place < static_cast<double>(count) - 2))
            return {};
        return static_cast<std::size_t>(place) - 1;
    }
    SInLine GetInLine(std::size_t first, const SWeights& weights, std::size_t line) const
    {
        const double* const heights = &m_surface.heights[line * m_surface.points + first];
        SInLine result{};
        for (std::size_t i = 0; i < 4; ++i) {
            result.z += weights.value[i] * heights[i];
            result.slope += weights.slope[i] * heights[i];
        }
        return result;
    }

    const SSurface& m_surface;
};

// Heights above their mean, in shares of the largest: squares of small ones on a large offset are lost.
SSurface Centre(SSurface surface)
{
    double sum = 0;
    double count = 0;
    for (const double z : surface.heights)
        if (!std::isnan(z)) {
            sum += z;
            ++count;
        }
    double largest = 0;
    for (double& z : surface.heights) {
        z -= sum / count;
        largest = std::fmax(largest, std::fabs(z));
    }
    for (double& z : surface.heights)
        z /= largest; // NaN of a flat one
    return surface;
}

// Smooths along an axis by the weights 1, 4, 6, 4, 1: noise would otherwise be weakest, and surfaces most
// alike, half-way between two points, where four of them are averaged. What is missing stays so; the
// outermost points are left out, as half of their weights say something else.
void SmoothAlong(std::vector<double>& heights, std::size_t points, std::size_t stride, std::size_t lines,
                 std::size_t lineStride)
{
    constexpr std::array<double, 5> c_weights{1, 4, 6, 4, 1};
    constexpr std::size_t c_leastPoints = 16;
    if (points < c_leastPoints)
        return;
    std::vector<double> line(points);
    for (std::size_t y = 0; y < lines; ++y) {
        for (std::size_t i = 0; i < points; ++i)
            line[i] = heights[y * lineStride + i * stride];
        for (std::size_t i = 0; i < points; ++i) {
            double sum = 0;
            double weights = 0;
            for (std::size_t k = 0; k < c_weights.size(); ++k)
                if (const std::size_t at = i + k - 2; at < points && !std::isnan(line[at])) {
                    sum += c_weights[k] * line[at];
                    weights += c_weights[k];
                }
            if (i < 2 || i + 2 >= points)
                heights[y * lineStride + i * stride] = c_missing;
            else if (!std::isnan(line[i]))
                heights[y * lineStride + i * stride] = sum / weights;
        }
    }
}

SSurface Smooth(SSurface surface)
{
    SmoothAlong(surface.heights, surface.points, 1, surface.lines, surface.points);
    if (!surface.IsProfile())
        SmoothAlong(surface.heights, surface.lines, surface.points, surface.points, 1);
    return surface;
}

// Where the second surface shows the middle of the first one.
struct SPose {
    double x = 0; // in points
    double y = 0; // in lines
    double angle = 0;
};

// Sums of a fit of two unknowns at least: the offset and the factor of the heights, then the pose.
class CPoseFit
{
public:
    CPoseFit(SSurface first, SSurface second)
        : m_first(std::move(first))
        , m_second(std::move(second))
        , m_unknowns(m_first.IsProfile() ? 3 : 5)
        , m_middleX((static_cast<double>(m_first.points) - 1) / 2)
        , m_middleY((static_cast<double>(m_first.lines) - 1) / 2)
    {
        const double surplus = static_cast<double>(m_first.heights.size()) / c_mostPoints;
        m_step = static_cast<std::size_t>(std::ceil(m_first.IsProfile() ? surplus : std::sqrt(surplus)));
    }

    // What is to be added to a pose, and how well it fits.
    struct SResult {
        SPose change{};
        double coefficient = c_undefined;
    };

    SResult Compute(const SPose& pose) const
    {
        SSums sums;
        Sum(pose, sums);
        SResult result{.coefficient = sums.GetCoefficient()};
        if (!(std::fabs(result.coefficient) > 0))
            return result;
        std::vector<double> matrix(m_unknowns * m_unknowns);
        std::vector<double> scales(m_unknowns);
        std::vector<double> right(m_unknowns);
        for (std::size_t i = 0; i < m_unknowns; ++i) {
            for (std::size_t j = 0; j <= i; ++j)
                matrix[i * m_unknowns + j] = sums.products[i][j];
            scales[i] = sums.products[i][i];
            right[i] = sums.right[i];
        }
        const std::vector<double> solved = CSymmetricSolver(matrix, scales).Solve(right);
        const double factor = solved[1]; // the slopes are those of the second surface without it
        if (factor == 0)
            return result;
        result.change = {solved[2] / factor, m_unknowns > 3 ? solved[3] / factor : 0,
                         m_unknowns > 3 ? solved[4] / factor : 0};
        return result;
    }

private:
    struct SSums {
        std::array<std::array<double, 5>, 5> products{};
        std::array<double, 5> right{};
        double squares = 0; // of the first surface

        void Add(const std::array<double, 5>& terms, double z)
        {
            squares += z * z;
            for (std::size_t i = 0; i < terms.size(); ++i) {
                right[i] += terms[i] * z;
                for (std::size_t j = 0; j <= i; ++j)
                    products[i][j] += terms[i] * terms[j];
            }
        }
        double GetCoefficient() const
        {
            const double count = products[0][0];
            const double covariance = right[1] - products[1][0] * right[0] / count;
            const double first = squares - right[0] * right[0] / count;
            const double second = products[1][1] - products[1][0] * products[1][0] / count;
            return std::clamp(covariance / std::sqrt(first * second), -1.0, 1.0);
        }
    };

    void Sum(const SPose& pose, SSums& sums) const
    {
        const CInterpolation interpolation(m_second);
        const double cosine = std::cos(pose.angle);
        const double sine = std::sin(pose.angle);
        const double aspect =
            m_first.IsProfile() ? 1 : m_first.dy / m_first.dx; // a rotation is one of lengths
        for (std::size_t line = 0; line < m_first.lines; line += m_step)
            for (std::size_t point = 0; point < m_first.points; point += m_step) {
                const double z = m_first.heights[line * m_first.points + point];
                if (std::isnan(z))
                    continue;
                const double x = static_cast<double>(point) - m_middleX;
                const double y = (static_cast<double>(line) - m_middleY) * aspect;
                const double turnedX = cosine * x - sine * y;
                const double turnedY = sine * x + cosine * y;
                const auto local =
                    interpolation.Get(m_middleX + pose.x + turnedX, m_middleY + pose.y + turnedY / aspect);
                if (local)
                    sums.Add(
                        {1, local->z, local->x, local->y, -local->x * turnedY + local->y * turnedX / aspect},
                        z);
            }
    }

    SSurface m_first;
    SSurface m_second;
    std::size_t m_unknowns;
    std::size_t m_step = 1;
    double m_middleX;
    double m_middleY;
};

// Where the parabola through three values has its vertex, from the second one.
double FindVertex(double before, double at, double behind)
{
    const double bend = before - 2 * at + behind;
    return bend < 0 ? std::clamp((before - behind) / (2 * bend), -0.5, 0.5) : 0;
}

// Calls `visit` with each shift by whole points and its coefficient.
template<class FVisit>
void VisitShifts(const CCrossCorrelation& correlation, const FVisit& visit)
{
    const auto reachX = static_cast<std::ptrdiff_t>(correlation.GetReachX());
    const auto reachY = static_cast<std::ptrdiff_t>(correlation.GetReachY());
    for (std::ptrdiff_t y = -reachY; y <= reachY; ++y)
        for (std::ptrdiff_t x = -reachX; x <= reachX; ++x)
            visit(x, y, correlation.GetValue(x, y));
}

// The greatest of the coefficients, between whole points. Of those that differ by rounding only, as those of
// a periodic surface and itself, the one of the shortest shift.
std::optional<SPose> FindPeak(const CCrossCorrelation& correlation, double dx, double dy)
{
    constexpr double c_rounding = 1e-9;
    double greatest = -2;
    VisitShifts(correlation,
                [&](std::ptrdiff_t, std::ptrdiff_t, double value) { greatest = std::fmax(greatest, value); });
    if (greatest < -1)
        return {};
    double shortest = std::numeric_limits<double>::infinity();
    std::ptrdiff_t peakX = 0;
    std::ptrdiff_t peakY = 0;
    VisitShifts(correlation, [&](std::ptrdiff_t x, std::ptrdiff_t y, double value) {
        if (!(value >= greatest - c_rounding))
            return;
        const double length = std::hypot(static_cast<double>(x) * dx, static_cast<double>(y) * dy);
        if (length >= shortest)
            return;
        shortest = length;
        peakX = x;
        peakY = y;
    });
    SPose pose{static_cast<double>(peakX), static_cast<double>(peakY)};
    const auto getValue = [&](std::ptrdiff_t x, std::ptrdiff_t y) {
        return correlation.GetValue(peakX + x, peakY + y);
    };
    if (std::abs(peakX) < static_cast<std::ptrdiff_t>(correlation.GetReachX()))
        pose.x += FindVertex(getValue(-1, 0), getValue(0, 0), getValue(1, 0));
    if (std::abs(peakY) < static_cast<std::ptrdiff_t>(correlation.GetReachY()))
        pose.y += FindVertex(getValue(0, -1), getValue(0, 0), getValue(0, 1));
    return pose;
}

// Steps as long as they make the fit better.
SPose Improve(const CPoseFit& fit, SPose pose)
{
    constexpr int c_mostSteps = 30;
    constexpr double c_enough = 1e-7; // points
    CPoseFit::SResult best = fit.Compute(pose);
    for (int i = 0; i < c_mostSteps; ++i) {
        const SPose& change = best.change;
        SPose next{pose.x + change.x, pose.y + change.y, pose.angle + change.angle};
        const CPoseFit::SResult result = fit.Compute(next);
        if (!(result.coefficient > best.coefficient))
            break;
        const bool isEnough = std::hypot(change.x, change.y) < c_enough;
        pose = next;
        best = result;
        if (isEnough)
            break;
    }
    return pose;
}

} // namespace

SShift FindShift(const SSurface& first, const SSurface& second, const CCrossCorrelation& correlation)
{
    const std::optional<SPose> peak = FindPeak(correlation, first.dx, first.dy);
    if (!peak)
        return {.reason = "a surface is flat"};
    const SSurface a = Centre(first);
    const SSurface b = Centre(second);
    const SPose pose = Improve(CPoseFit(Smooth(a), Smooth(b)), *peak);
    SShift shift{.coefficient = CPoseFit(a, b).Compute(pose).coefficient, .x = pose.x * first.dx};
    if (std::isnan(shift.coefficient)) // too few points between which there is a surface
        shift.coefficient = correlation.GetValue(std::lround(peak->x), std::lround(peak->y));
    if (first.IsProfile())
        return shift;
    shift.y = pose.y * first.dy;
    shift.rotation = pose.angle * 180 / std::numbers::pi;
    return shift;
}

SShift FindShift(const SSurface& first, const SSurface& second)
{
    if (const std::string_view refusal = FindRefusal(first, second); !refusal.empty())
        return {.reason = refusal};
    return FindShift(first, second, CCrossCorrelation(first, second));
}

} // namespace CommonUI::Analysis

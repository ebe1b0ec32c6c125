#include "analysis/grain/detail/Skeletons.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numbers>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_tolerance = 0.75;   // of a chord, in cells; less than a step aside
constexpr std::size_t c_direction = 5; // cells from the end of a line that give its direction
constexpr double c_leastReach = 2;     // of a twig, in distances of its root from the edge

struct SStep {
    std::ptrdiff_t x;
    std::ptrdiff_t y;
};
// Around a cell; every second one shares an edge with it.
constexpr std::array<SStep, 8> c_steps{
    {{0, -1}, {1, -1}, {1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}}};

// The neighbours of a cell that there are, one bit each in the order of the steps.
using TRing = std::uint8_t;

bool Has(TRing ring, int step)
{
    return (ring >> (step & 7) & 1) != 0;
}

// Whether thinning removes a cell in the first or the second half of a round (Guo and Hall 1989).
bool IsRemovable(TRing ring, bool isFirstHalf)
{
    int crossings = 0;
    int pairs = 0;
    int otherPairs = 0;
    for (int k = 0; k < 8; k += 2) {
        crossings += !Has(ring, k) && (Has(ring, k + 1) || Has(ring, k + 2));
        pairs += Has(ring, k - 1) || Has(ring, k);
        otherPairs += Has(ring, k) || Has(ring, k + 1);
    }
    const int least = std::min(pairs, otherPairs);
    if (crossings != 1 || least < 2 || least > 3)
        return false;
    const int side = isFirstHalf ? 0 : 4;
    return !((Has(ring, side + 4) || Has(ring, side + 5) || !Has(ring, side + 7)) && Has(ring, side + 6));
}

class CSkeletons
{
public:
    CSkeletons(const SGrainMap& map, double dx, double dy)
        : m_map(map)
        , m_dx(dx)
        , m_dy(dy)
        , m_isThere(map.labels.size())
    {
        std::ranges::transform(map.labels, m_isThere.begin(), [](std::uint32_t label) { return label != 0; });
    }

    void Thin();
    void CutTwigs();
    std::vector<double> Measure();

private:
    using CPath = std::vector<std::size_t>;

    std::size_t Step(std::size_t cell, int step) const
    {
        return cell + static_cast<std::size_t>(c_steps[static_cast<std::size_t>(step)].y) * m_map.points +
               static_cast<std::size_t>(c_steps[static_cast<std::size_t>(step)].x);
    }
    TRing GetRing(std::size_t cell) const;
    TRing GetLinks(std::size_t cell) const;
    int CountLinks(std::size_t cell) const { return std::popcount(GetLinks(cell)); }
    bool IsGrain(std::ptrdiff_t x, std::ptrdiff_t y, std::uint32_t label) const;
    double FindEdge(std::size_t cell) const;
    double FindWayOut(std::size_t cell) const;
    CPath Follow(std::size_t cell, int step) const;
    double GetLength(const CPath& path) const;

    const SGrainMap& m_map;
    double m_dx;
    double m_dy;
    std::vector<std::uint8_t> m_isThere; // what thinning has left
};

TRing CSkeletons::GetRing(std::size_t cell) const
{
    const std::size_t x = cell % m_map.points;
    const std::size_t y = cell / m_map.points;
    unsigned ring = 0;
    for (int k = 0; k < 8; ++k) {
        const SStep step = c_steps[static_cast<std::size_t>(k)];
        // What is below 0 becomes large.
        if (x + static_cast<std::size_t>(step.x) >= m_map.points ||
            y + static_cast<std::size_t>(step.y) >= m_map.lines)
            continue;
        const std::size_t q = Step(cell, k);
        if (m_isThere[q] != 0 && m_map.labels[q] == m_map.labels[cell])
            ring |= 1u << k;
    }
    return static_cast<TRing>(ring);
}

// The neighbours that a line goes on to: not over a corner where it can go along edges.
TRing CSkeletons::GetLinks(std::size_t cell) const
{
    const TRing ring = GetRing(cell);
    unsigned links = ring;
    for (int k = 1; k < 8; k += 2)
        if (Has(ring, k - 1) || Has(ring, k + 1))
            links &= ~(1u << k);
    return static_cast<TRing>(links);
}

void CSkeletons::Thin()
{
    // A cell has to be looked at in both halves of a round after each change beside it. One by itself stays.
    std::vector<std::uint32_t> active;
    for (std::size_t i = 0; i < m_isThere.size(); ++i)
        if (const TRing ring = m_isThere[i] != 0 ? GetRing(i) : TRing{0}; ring != 0 && ring != 0xff)
            active.push_back(static_cast<std::uint32_t>(i));
    std::vector<std::uint8_t> lastLooked(m_isThere.size());
    std::vector<std::uint32_t> before; // what was active in the half before
    for (bool isFirstHalf = true; !active.empty(); isFirstHalf = !isFirstHalf) {
        std::vector<std::uint32_t> removed;
        for (const auto* cells : {&before, &active})
            for (const std::uint32_t i : *cells)
                if (m_isThere[i] != 0 && IsRemovable(GetRing(i), isFirstHalf))
                    removed.push_back(i);
        for (const std::uint32_t i : removed)
            m_isThere[i] = 0;
        before.swap(active);
        active.clear();
        for (const std::uint32_t i : removed) {
            const TRing ring = GetRing(i);
            for (int k = 0; k < 8; ++k)
                if (Has(ring, k) && lastLooked[Step(i, k)] == 0) {
                    lastLooked[Step(i, k)] = 1;
                    active.push_back(static_cast<std::uint32_t>(Step(i, k)));
                }
        }
        for (const std::uint32_t i : active)
            lastLooked[i] = 0;
    }
}

bool CSkeletons::IsGrain(std::ptrdiff_t x, std::ptrdiff_t y, std::uint32_t label) const
{
    return x >= 0 && y >= 0 && x < static_cast<std::ptrdiff_t>(m_map.points) &&
           y < static_cast<std::ptrdiff_t>(m_map.lines) &&
           m_map.labels[static_cast<std::size_t>(y) * m_map.points + static_cast<std::size_t>(x)] == label;
}

// The distance from the centre of a cell to the nearest cell that is not of its grain.
double CSkeletons::FindEdge(std::size_t cell) const
{
    const auto x = static_cast<std::ptrdiff_t>(cell % m_map.points);
    const auto y = static_cast<std::ptrdiff_t>(cell / m_map.points);
    const std::uint32_t label = m_map.labels[cell];
    double nearest = std::numeric_limits<double>::infinity();
    const auto look = [&](std::ptrdiff_t i, std::ptrdiff_t j) {
        if (IsGrain(x + i, y + j, label))
            return;
        const double alongX = std::max(static_cast<double>(std::abs(i)) - 0.5, 0.0) * m_dx;
        const double alongY = std::max(static_cast<double>(std::abs(j)) - 0.5, 0.0) * m_dy;
        nearest = std::min(nearest, std::hypot(alongX, alongY));
    };
    for (std::ptrdiff_t k = 1; (static_cast<double>(k) - 0.5) * std::min(m_dx, m_dy) < nearest; ++k)
        for (std::ptrdiff_t i = -k; i <= k; ++i) {
            look(i, -k);
            look(i, k);
            look(-k, i);
            look(k, i);
        }
    return nearest;
}

// The distance from the end of a line straight on to where the grain ends.
double CSkeletons::FindWayOut(std::size_t cell) const
{
    const CPath path = Follow(cell, std::countr_zero(GetLinks(cell)));
    const std::size_t before = path[std::min(c_direction, path.size() - 1)];
    const std::size_t line = cell / m_map.points;
    const std::size_t lineBefore = before / m_map.points;
    const auto x = static_cast<double>(cell % m_map.points);
    const auto y = static_cast<double>(line);
    double stepX = x - static_cast<double>(before % m_map.points);
    double stepY = y - static_cast<double>(lineBefore);
    const double steps = 8 * std::max(std::abs(stepX), std::abs(stepY)); // an eighth of a cell each
    stepX /= steps;
    stepY /= steps;
    double count = 0;
    while (IsGrain(std::lround(x + (count + 0.5) * stepX), std::lround(y + (count + 0.5) * stepY),
                   m_map.labels[cell]))
        ++count;
    return count * std::hypot(stepX * m_dx, stepY * m_dy);
}

// From a cell along a line to where it ends or meets others, or comes back to.
CSkeletons::CPath CSkeletons::Follow(std::size_t cell, int step) const
{
    CPath path{cell, Step(cell, step)};
    while (path.back() != cell) {
        const TRing links = GetLinks(path.back());
        if (std::popcount(links) != 2)
            break;
        const int first = std::countr_zero(links);
        const int second = 7 - std::countl_zero(links);
        const std::size_t before = path[path.size() - 2];
        path.push_back(Step(path.back(), Step(path.back(), first) == before ? second : first));
    }
    return path;
}

// Along chords, each as long as all cells on its way may be within a tolerance of it (Sklansky and Gonzalez
// 1980): steps from cell to cell alone would make a slanting line too long.
double CSkeletons::GetLength(const CPath& path) const
{
    const auto along = [&](std::size_t a, std::size_t b) {
        const auto difference = [](std::size_t i, std::size_t j) {
            return static_cast<double>(static_cast<std::ptrdiff_t>(j) - static_cast<std::ptrdiff_t>(i));
        };
        return std::pair(difference(path[a] % m_map.points, path[b] % m_map.points),
                         difference(path[a] / m_map.points, path[b] / m_map.points));
    };
    double length = 0;
    for (std::size_t first = 0; first + 1 < path.size();) {
        const auto [firstX, firstY] = along(first, first + 1);
        const double base = std::atan2(firstY, firstX);
        double lowest = -std::numbers::pi;
        double highest = std::numbers::pi;
        std::size_t last = first + 1;
        for (std::size_t i = last; i < path.size(); ++i) {
            const auto [x, y] = along(first, i);
            const double direction = std::remainder(std::atan2(y, x) - base, 2 * std::numbers::pi);
            if (direction < lowest || direction > highest)
                break;
            const double tolerance = std::asin(c_tolerance / std::max(std::hypot(x, y), 1.0));
            lowest = std::max(lowest, direction - tolerance);
            highest = std::min(highest, direction + tolerance);
            last = i;
        }
        const auto [x, y] = along(first, last);
        length += std::hypot(x * m_dx, y * m_dy);
        first = last;
    }
    return length;
}

void CSkeletons::CutTwigs()
{
    std::vector<std::size_t> ends;
    for (std::size_t i = 0; i < m_isThere.size(); ++i)
        if (m_isThere[i] != 0 && CountLinks(i) == 1)
            ends.push_back(i);
    while (!ends.empty()) {
        std::vector<CPath> twigs; // at the same time, so that none counts for longer because another is cut
        for (const std::size_t end : ends) {
            CPath path = Follow(end, std::countr_zero(GetLinks(end)));
            if (CountLinks(path.back()) > 2 &&
                GetLength(path) + FindEdge(end) <= c_leastReach * FindEdge(path.back()))
                twigs.push_back(std::move(path));
        }
        for (const CPath& twig : twigs)
            for (std::size_t i = 0; i + 1 < twig.size(); ++i)
                m_isThere[twig[i]] = 0;
        ends.clear();
        for (const CPath& twig : twigs)
            if (CountLinks(twig.back()) == 1)
                ends.push_back(twig.back());
        std::ranges::sort(ends);
        ends.erase(std::ranges::unique(ends).begin(), ends.end());
    }
}

std::vector<double> CSkeletons::Measure()
{
    std::vector<double> lengths(m_map.count);
    std::vector<std::uint8_t> isDone(m_isThere.size());
    const auto add = [&](std::size_t cell, int step) {
        const CPath path = Follow(cell, step);
        // A way is found from both ends; one that has no cell between them is left to the end that comes
        // first.
        if (path.size() == 2 ? path.back() < cell : isDone[path[1]] != 0)
            return;
        for (std::size_t i = 1; i + 1 < path.size(); ++i)
            isDone[path[i]] = 1;
        lengths[m_map.labels[cell] - 1] += GetLength(path);
    };
    for (std::size_t i = 0; i < m_isThere.size(); ++i) {
        if (m_isThere[i] == 0)
            continue;
        const TRing links = GetLinks(i);
        const int count = std::popcount(links);
        if (count < 2)
            lengths[m_map.labels[i] - 1] += count == 0 ? 2 * FindEdge(i) : FindWayOut(i);
        if (count != 2)
            for (int k = 0; k < 8; ++k)
                if (Has(links, k))
                    add(i, k);
    }
    // What is left are closed lines.
    for (std::size_t i = 0; i < m_isThere.size(); ++i)
        if (m_isThere[i] != 0 && isDone[i] == 0 && CountLinks(i) == 2) {
            isDone[i] = 1;
            add(i, std::countr_zero(GetLinks(i)));
        }
    return lengths;
}

} // namespace

std::vector<double> MeasureSkeletons(const SGrainMap& map, double dx, double dy)
{
    CSkeletons skeletons(map, dx, dy);
    skeletons.Thin();
    skeletons.CutTwigs();
    return skeletons.Measure();
}

} // namespace CommonUI::Analysis

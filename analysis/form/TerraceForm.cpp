#include "analysis/form/detail/TerraceForm.h"

#include "analysis/form/detail/PolynomialFit.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <numeric>
#include <span>
#include <utility>
#include <vector>

namespace CommonUI::Analysis
{

namespace
{

constexpr int c_slopePasses = 8;
constexpr int c_terracePasses = 2;
constexpr std::size_t c_mostTerraces = 32;
constexpr double c_leastShare = 0.02; // of the points, on a terrace
constexpr double c_leastOnAll = 0.7;  // of the points, on all terraces together
constexpr double c_rounding = 1e-9;   // share of the range of heights that is not told from none
constexpr double c_window = 6;        // in standard deviations

// Heights from first to last that belong together.
struct STerrace {
    double first;
    double last;
};

// The standard deviation of the noise, by the direction in which points differ less.
double FindNoise(const SGrid& grid, const SPairing& pairing)
{
    const double x = FindDeviation(grid, pairing.along);
    const double y = FindDeviation(grid, pairing.across);
    return (grid.lines > 1 && grid.points > 1 ? std::min(x, y) : x + y) / std::numbers::sqrt2;
}

// The window that holds the most of some rising heights, as a pair of indices from first to before last.
std::pair<std::size_t, std::size_t> FindDensest(std::span<const double> rising, double width)
{
    std::pair<std::size_t, std::size_t> best{0, 0};
    for (std::size_t first = 0, last = 0; first < rising.size(); ++first) {
        while (last < rising.size() && rising[last] <= rising[first] + width)
            ++last;
        if (last - first > best.second - best.first)
            best = {first, last};
    }
    return best;
}

// One after the other, those with the most points first.
std::vector<STerrace> FindTerraces(std::vector<double> rising, double width)
{
    std::vector<STerrace> terraces;
    const double least = c_leastShare * static_cast<double>(rising.size());
    while (!rising.empty() && terraces.size() < c_mostTerraces) {
        const auto [first, last] = FindDensest(rising, width);
        if (!terraces.empty() && static_cast<double>(last - first) < least)
            break;
        const STerrace terrace{.first = rising[first], .last = rising[last - 1]};
        terraces.push_back(terrace);
        const auto begin = std::lower_bound(rising.begin(), rising.end(), terrace.first - width);
        rising.erase(begin, std::upper_bound(begin, rising.end(), terrace.last + width));
    }
    return terraces;
}

std::vector<double> GetValid(const SGrid& grid)
{
    std::vector<double> valid;
    valid.reserve(grid.heights.size());
    std::copy_if(grid.heights.begin(), grid.heights.end(), std::back_inserter(valid),
                 [](double height) { return !std::isnan(height); });
    return valid;
}

bool IsWithin(double height, const STerrace& terrace, double margin)
{
    return height >= terrace.first - margin && height <= terrace.last + margin;
}

std::vector<TTerrace> AssignTerraces(const SGrid& grid, const SGrid& smooth, double noise)
{
    std::vector<TTerrace> assigned(smooth.heights.size(), c_noTerrace);
    std::vector<double> rising = GetValid(smooth);
    if (rising.empty())
        return assigned;
    std::sort(rising.begin(), rising.end());
    const double width = std::max(c_window * noise, c_rounding * (rising.back() - rising.front()));
    const std::vector<STerrace> terraces = FindTerraces(std::move(rising), width);
    for (std::size_t i = 0; i < assigned.size(); ++i)
        for (std::size_t j = 0; j < terraces.size(); ++j)
            // The height itself, too: smoothing rounds the corners of steps.
            if (IsWithin(smooth.heights[i], terraces[j], 0) && IsWithin(grid.heights[i], terraces[j], width))
                assigned[i] = static_cast<TTerrace>(j);
    return assigned;
}

void Shift(const SGrid& grid, double height)
{
    for (double& z : grid.heights)
        z -= height;
}

// Whether the terraces hold enough of the points; if not, nothing is changed.
bool FitTerraces(const SGrid& grid, const SGrid& smooth, std::size_t order, std::vector<TTerrace> terraces)
{
    const CPolynomialFit fit(grid, order, std::move(terraces));
    const std::vector<double>& counts = fit.GetCounts();
    const double all = std::accumulate(counts.begin(), counts.end(), 0.0);
    if (all < c_leastOnAll * static_cast<double>(GetValid(grid).size()))
        return false;
    const std::vector<double> form = fit.Fit(grid);
    fit.GetBasis().Subtract(smooth, form);
    fit.GetBasis().Subtract(grid, form);
    const auto most = std::max_element(counts.begin(), counts.end()) - counts.begin();
    const double reference = fit.ComputeLevels(grid)[static_cast<std::size_t>(most)];
    Shift(smooth, reference);
    Shift(grid, reference);
    return true;
}

} // namespace

void RemoveSlopes(const SGrid& grid, const SGrid& smooth, const SPairing& pairing, std::size_t order)
{
    const CPolynomialBasis basis(grid, order);
    for (int pass = 0; pass < c_slopePasses; ++pass) {
        const std::vector<double> slopes = FitSlopes(basis, smooth, pairing);
        basis.Subtract(smooth, slopes);
        basis.Subtract(grid, slopes);
    }
}

void RemoveTerraceForm(const SGrid& grid, const SGrid& smooth, const SPairing& pairing, std::size_t order)
{
    for (int pass = 0; pass < c_terracePasses; ++pass) {
        const double noise = FindNoise(grid, pairing);
        if (!FitTerraces(grid, smooth, order, AssignTerraces(grid, smooth, noise)))
            return RemovePolynomial(grid, order);
    }
}

} // namespace CommonUI::Analysis

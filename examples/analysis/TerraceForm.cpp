#include "examples/analysis/TerraceForm.h"

#include "examples/analysis/PolynomialFit.h"
#include "examples/analysis/Statistics.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <utility>
#include <vector>

namespace SurfaceAnalysis
{

namespace
{

constexpr int c_slopePasses = 8;
constexpr int c_terracePasses = 2;
constexpr std::size_t c_mostTerraces = 32;
constexpr double c_leastShare = 0.02; // of the points, on a terrace
constexpr double c_leastOnAll = 0.7;  // of the points, on all terraces together
constexpr double c_outlier = 5;       // in standard deviations
constexpr double c_deviation =
    1.4826; // standard deviation in median absolute deviations, of a normal distribution
constexpr double c_rounding = 1e-9; // share of the range of heights that is not told from none
constexpr double c_window = 6;      // in standard deviations

// Pairs of points a distance apart along a line or, if down, across the lines.
struct SPairs {
    bool down = false;
    std::size_t distance = 1;  // in points or lines
    double leastDeviation = 0; // of their differences; above 0 for heights that were rounded to steps

    std::size_t GetColumns() const { return down ? 0 : distance; }
    std::size_t GetLines() const { return down ? distance : 0; }
};

// Calls visit(difference, column, line) for each pair of valid points.
template<class CVisit>
void VisitDifferences(const SGrid& grid, const SPairs& pairs, const CVisit& visit)
{
    const std::size_t step = pairs.GetLines() * grid.points + pairs.GetColumns();
    for (std::size_t line = 0; line + pairs.GetLines() < grid.lines; ++line)
        for (std::size_t column = 0; column + pairs.GetColumns() < grid.points; ++column) {
            const std::size_t at = line * grid.points + column;
            const double difference = grid.heights[at + step] - grid.heights[at];
            if (!std::isnan(difference))
                visit(difference, column, line);
        }
}

// Where most of the differences are.
struct SLocation {
    double median = 0;
    double deviation = 0; // the standard deviation, by that of the nearer half
};

double TakeFractile(std::vector<double>& values, double share)
{
    const auto index = static_cast<std::ptrdiff_t>(share * static_cast<double>(values.size()));
    std::nth_element(values.begin(), values.begin() + index, values.end());
    return values[static_cast<std::size_t>(index)];
}

std::vector<double> GetDifferences(const SGrid& grid, const SPairs& pairs)
{
    std::vector<double> values;
    values.reserve(grid.heights.size());
    VisitDifferences(grid, pairs, [&](double d, std::size_t, std::size_t) { values.push_back(d); });
    return values;
}

// Replaces the values by how far they are from their median, which it returns.
double TakeMedianAway(std::vector<double>& values)
{
    const double median = TakeFractile(values, 0.5);
    for (double& value : values)
        value = std::fabs(value - median);
    return median;
}

SLocation Locate(const SGrid& grid, const SPairs& pairs)
{
    std::vector<double> values = GetDifferences(grid, pairs);
    if (values.empty())
        return {};
    const double median = TakeMedianAway(values);
    const double deviation = c_deviation * TakeFractile(values, 0.5);
    return {.median = median, .deviation = std::max(deviation, pairs.leastDeviation)};
}

// Neighbours, if most of their differences differ. If not, the heights were rounded to steps larger than the
// slope or the noise: then it takes points so far apart that a tenth of their differences is a step off, and
// that is no outlier.
SPairs ChoosePairs(const SGrid& grid, bool down)
{
    const std::size_t furthest = std::min<std::size_t>((down ? grid.lines : grid.points) / 32, 16);
    for (SPairs pairs{.down = down}; pairs.distance <= furthest; pairs.distance *= 2) {
        std::vector<double> values = GetDifferences(grid, pairs);
        if (values.empty())
            continue;
        TakeMedianAway(values);
        if (TakeFractile(values, 0.5) > 0)
            return pairs;
        pairs.leastDeviation = TakeFractile(values, 0.9);
        if (pairs.leastDeviation > 0)
            return pairs;
    }
    return {.down = down};
}

// The normal equations of a polynomial to the differences of neighbours.
class CSlopeFit
{
public:
    explicit CSlopeFit(const CPolynomialBasis& basis)
        : m_basis(basis)
        , m_terms(basis.GetTerms().size() - 1)
        , m_matrix(m_terms * m_terms)
        , m_right(m_terms)
        , m_values(m_terms)
    {
    }

    // Adds the differences that are no outliers.
    void Add(const SGrid& grid, const SPairs& pairs)
    {
        const auto [median, deviation] = Locate(grid, pairs);
        VisitDifferences(grid, pairs, [&](double difference, std::size_t column, std::size_t line) {
            if (std::fabs(difference - median) <= c_outlier * deviation)
                AddDifference(difference, column, line, pairs);
        });
    }

    std::vector<double> Solve() const
    {
        std::vector<double> scales;
        scales.reserve(m_terms);
        for (std::size_t i = 0; i < m_terms; ++i)
            scales.push_back(m_matrix[i * m_terms + i]);
        return CSymmetricSolver(m_matrix, scales).Solve(m_right);
    }

private:
    void AddDifference(double difference, std::size_t column, std::size_t line, const SPairs& pairs)
    {
        const auto x = m_basis.GetAtColumn(column);
        const auto y = m_basis.GetAtLine(line);
        const auto nextX = m_basis.GetAtColumn(column + pairs.GetColumns());
        const auto nextY = m_basis.GetAtLine(line + pairs.GetLines());
        for (std::size_t i = 0; i < m_terms; ++i) {
            const CPolynomialBasis::STerm& term = m_basis.GetTerms()[i + 1];
            m_values[i] = nextX[term.x] * nextY[term.y] - x[term.x] * y[term.y];
            m_right[i] += m_values[i] * difference;
            for (std::size_t j = 0; j <= i; ++j)
                m_matrix[i * m_terms + j] += m_values[i] * m_values[j];
        }
    }

    const CPolynomialBasis& m_basis;
    std::size_t m_terms;
    std::vector<double> m_matrix;
    std::vector<double> m_right;
    std::vector<double> m_values;
};

// Heights from first to last that belong together.
struct STerrace {
    double first;
    double last;
};

// The standard deviation of the noise, by the direction in which points differ less.
double FindNoise(const SGrid& grid, const SPairs& along, const SPairs& across)
{
    const double x = Locate(grid, along).deviation;
    const double y = Locate(grid, across).deviation;
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
    std::sort(rising.begin(), rising.end());
    if (!rising.empty())
        width = std::max(width, c_rounding * (rising.back() - rising.front()));
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

std::vector<TTerrace> AssignTerraces(const SGrid& smooth, double noise)
{
    const std::vector<STerrace> terraces = FindTerraces(GetValid(smooth), c_window * noise);
    std::vector<TTerrace> assigned(smooth.heights.size(), c_noTerrace);
    for (std::size_t i = 0; i < assigned.size(); ++i)
        for (std::size_t j = 0; j < terraces.size(); ++j)
            if (smooth.heights[i] >= terraces[j].first && smooth.heights[i] <= terraces[j].last)
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

void RemoveTerraceForm(const SGrid& grid, const SGrid& smooth, std::size_t order)
{
    const CPolynomialBasis basis(grid, order);
    const SPairs along = ChoosePairs(smooth, false);
    const SPairs across = ChoosePairs(smooth, true);
    for (int pass = 0; pass < c_slopePasses; ++pass) {
        CSlopeFit fit(basis);
        fit.Add(smooth, along);
        fit.Add(smooth, across);
        const std::vector<double> slopes = fit.Solve();
        basis.Subtract(smooth, slopes);
        basis.Subtract(grid, slopes);
    }
    for (int pass = 0; pass < c_terracePasses; ++pass) {
        const double noise = FindNoise(grid, along, across);
        if (!FitTerraces(grid, smooth, order, AssignTerraces(smooth, noise)))
            return RemovePolynomial(grid, order);
    }
}

} // namespace SurfaceAnalysis

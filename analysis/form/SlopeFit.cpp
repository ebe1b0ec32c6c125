#include "analysis/form/detail/SlopeFit.h"

#include "analysis/numeric/detail/SymmetricSolver.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_outlier = 5;        // in standard deviations
constexpr double c_deviation = 1.4826; // a standard deviation in median absolute deviations

// Calls visit(difference, column, line) for each pair of valid points.
template<class FVisit>
void VisitDifferences(const SGrid& grid, const SPairs& pairs, const FVisit& visit)
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

} // namespace

SPairing ChoosePairing(const SGrid& grid)
{
    return {.along = ChoosePairs(grid, false), .across = ChoosePairs(grid, true)};
}

double FindDeviation(const SGrid& grid, const SPairs& pairs)
{
    return Locate(grid, pairs).deviation;
}

std::vector<double> FitSlopes(const CPolynomialBasis& basis, const SGrid& grid, const SPairing& pairing)
{
    CSlopeFit fit(basis);
    fit.Add(grid, pairing.along);
    fit.Add(grid, pairing.across);
    return fit.Solve();
}

} // namespace CommonUI::Analysis

#include "analysis/form/detail/PolynomialFit.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

constexpr int c_passes = 3; // each takes away the rounding errors of the one before
constexpr double c_noise = 64 * std::numeric_limits<double>::epsilon();

// The greatest absolute height; 0 without valid points.
double GetMagnitude(const SGrid& grid)
{
    double magnitude = 0;
    for (const double height : grid.heights)
        magnitude = std::max(magnitude, std::fabs(height)); // keeps the first if the height is NaN
    return magnitude;
}

std::vector<TTerrace> LeaveOutMissing(const SGrid& grid, std::vector<TTerrace> terraces)
{
    for (std::size_t i = 0; i < terraces.size(); ++i)
        if (std::isnan(grid.heights[i]))
            terraces[i] = c_noTerrace;
    return terraces;
}

std::vector<double> CountPoints(std::span<const TTerrace> terraces)
{
    std::vector<double> counts(1);
    for (const TTerrace terrace : terraces) {
        if (terrace == c_noTerrace)
            continue;
        counts.resize(std::max<std::size_t>(counts.size(), terrace + 1U));
        ++counts[terrace];
    }
    return counts;
}

// What the normal equations sum over the points: of each two terms the product, and of each terrace the
// terms. As the terms are products, too, a line is summed over x before its y comes in: this takes the square
// of the number of degrees for each point, not that of terms.
class CTermSums
{
public:
    CTermSums(const CPolynomialBasis& basis, std::size_t terraces)
        : m_basis(basis)
        , m_terms(basis.GetTerms().size())
        , m_degrees(basis.GetColumnDegrees())
        , m_products(m_terms * m_terms)
        , m_moments(terraces, std::vector<double>(m_terms))
        , m_lineProducts(m_degrees * m_degrees)
        , m_lineMoments(terraces, std::vector<double>(m_degrees))
    {
    }

    void AddLine(std::size_t line, std::span<const TTerrace> terraces)
    {
        std::fill(m_lineProducts.begin(), m_lineProducts.end(), 0.0);
        for (std::vector<double>& moments : m_lineMoments)
            std::fill(moments.begin(), moments.end(), 0.0);
        for (std::size_t column = 0; column < terraces.size(); ++column)
            if (terraces[column] != c_noTerrace)
                AddPoint(m_basis.GetAtColumn(column), m_lineMoments[terraces[column]]);
        AddLineSums(m_basis.GetAtLine(line));
    }

    // A row and a column for each term but the constant. The constants of the terraces are eliminated: what
    // counts is how far a term is from its mean on the terrace.
    CSymmetricSolver MakeSolver() const
    {
        std::vector<double> matrix;
        std::vector<double> scales;
        matrix.reserve(m_terms * m_terms);
        scales.reserve(m_terms);
        for (std::size_t a = 1; a < m_terms; ++a) {
            scales.push_back(m_products[a * m_terms + a]);
            for (std::size_t b = 1; b < m_terms; ++b)
                matrix.push_back(m_products[a * m_terms + b] - GetMeansProduct(a, b));
        }
        return {std::move(matrix), scales};
    }

private:
    void AddPoint(std::span<const double> polynomials, std::vector<double>& moments)
    {
        double* products = m_lineProducts.data();
        for (std::size_t i = 0; i < m_degrees; ++i, products += m_degrees) {
            moments[i] += polynomials[i];
            for (std::size_t j = 0; j < m_degrees; ++j)
                products[j] += polynomials[i] * polynomials[j];
        }
    }

    void AddLineSums(std::span<const double> y)
    {
        const auto& terms = m_basis.GetTerms();
        for (std::size_t a = 0; a < m_terms; ++a) {
            for (std::size_t b = 0; b <= a; ++b)
                m_products[a * m_terms + b] +=
                    y[terms[a].y] * y[terms[b].y] * m_lineProducts[terms[a].x * m_degrees + terms[b].x];
            for (std::size_t i = 0; i < m_moments.size(); ++i)
                m_moments[i][a] += y[terms[a].y] * m_lineMoments[i][terms[a].x];
        }
    }

    double GetMeansProduct(std::size_t a, std::size_t b) const
    {
        double sum = 0;
        for (const std::vector<double>& moments : m_moments)
            if (moments[0] > 0)
                sum += moments[a] * moments[b] / moments[0];
        return sum;
    }

    const CPolynomialBasis& m_basis;
    std::size_t m_terms;
    std::size_t m_degrees;
    std::vector<double> m_products; // to the diagonal
    std::vector<std::vector<double>> m_moments;
    std::vector<double> m_lineProducts;
    std::vector<std::vector<double>> m_lineMoments;
};

CSymmetricSolver MakeSolver(const CPolynomialBasis& basis, const SGrid& grid,
                            std::span<const TTerrace> terraces, std::size_t terraceCount)
{
    CTermSums sums(basis, terraceCount);
    for (std::size_t line = 0; line < grid.lines; ++line)
        sums.AddLine(line, terraces.subspan(line * grid.points, grid.points));
    return sums.MakeSolver();
}

} // namespace

CPolynomialFit::CPolynomialFit(const SGrid& grid, std::size_t order, std::vector<TTerrace> terraces)
    : m_basis(grid, order)
    , m_terraces(LeaveOutMissing(grid, std::move(terraces)))
    , m_counts(CountPoints(m_terraces))
    , m_solver(MakeSolver(m_basis, grid, m_terraces, m_counts.size()))
{
}

std::vector<double> CPolynomialFit::ComputeLevels(const SGrid& grid) const
{
    std::vector<double> levels(m_counts.size());
    for (std::size_t i = 0; i < m_terraces.size(); ++i)
        if (m_terraces[i] != c_noTerrace)
            levels[m_terraces[i]] += grid.heights[i];
    for (std::size_t i = 0; i < levels.size(); ++i)
        levels[i] /= std::max(m_counts[i], 1.0);
    return levels;
}

void CPolynomialFit::SumLine(const SGrid& grid, std::size_t line, std::span<const double> levels,
                             std::span<double> sums) const
{
    const std::span<const double> heights = grid.GetLine(line);
    for (std::size_t column = 0; column < heights.size(); ++column) {
        const TTerrace terrace = m_terraces[line * grid.points + column];
        if (terrace == c_noTerrace)
            continue;
        const std::span<const double> x = m_basis.GetAtColumn(column);
        for (std::size_t i = 0; i < sums.size(); ++i)
            sums[i] += (heights[column] - levels[terrace]) * x[i];
    }
}

std::vector<double> CPolynomialFit::Fit(const SGrid& grid) const
{
    const std::vector<double> levels = ComputeLevels(grid);
    const auto& terms = m_basis.GetTerms();
    std::vector<double> right(terms.size() - 1);
    std::vector<double> sums(m_basis.GetColumnDegrees());
    for (std::size_t line = 0; line < grid.lines; ++line) {
        std::fill(sums.begin(), sums.end(), 0.0);
        SumLine(grid, line, levels, sums);
        for (std::size_t i = 0; i < right.size(); ++i)
            right[i] += m_basis.GetAtLine(line)[terms[i + 1].y] * sums[terms[i + 1].x];
    }
    return m_solver.Solve(std::move(right));
}

void RemovePolynomial(const SGrid& grid, std::size_t order)
{
    const double magnitude = GetMagnitude(grid);
    if (magnitude == 0)
        return;
    const CPolynomialFit fit(grid, order);
    for (int pass = 0; pass < c_passes; ++pass) {
        fit.GetBasis().Subtract(grid, fit.Fit(grid));
        const double mean = fit.ComputeLevels(grid)[0];
        for (double& height : grid.heights)
            height -= mean;
    }
    if (GetMagnitude(grid) <= c_noise * magnitude)
        for (double& height : grid.heights)
            height *= 0; // NaN stays NaN
}

} // namespace CommonUI::Analysis

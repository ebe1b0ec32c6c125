#include "analysis/numeric/detail/SymmetricSolver.h"

#include <cmath>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_leastShare = 1e-12;

} // namespace

CSymmetricSolver::CSymmetricSolver(std::vector<double> matrix, std::span<const double> scales)
    : m_size(scales.size())
    , m_factor(std::move(matrix))
{
    for (std::size_t row = 0; row < m_size; ++row)
        Factor(row, scales[row]);
}

void CSymmetricSolver::Factor(std::size_t row, double scale)
{
    double* const current = &m_factor[row * m_size];
    double rest = current[row];
    for (std::size_t column = 0; column < row; ++column) {
        const double* const earlier = &m_factor[column * m_size];
        double value = current[column];
        for (std::size_t i = 0; i < column; ++i)
            value -= current[i] * earlier[i];
        current[column] = earlier[column] > 0 ? value / earlier[column] : 0;
        rest -= current[column] * current[column];
    }
    current[row] = rest > c_leastShare * scale ? std::sqrt(rest) : 0;
}

std::vector<double> CSymmetricSolver::Solve(std::vector<double> right) const
{
    for (std::size_t row = 0; row < m_size; ++row) {
        const double* const factors = &m_factor[row * m_size];
        for (std::size_t i = 0; i < row; ++i)
            right[row] -= factors[i] * right[i];
        right[row] = factors[row] > 0 ? right[row] / factors[row] : 0;
    }
    for (std::size_t row = m_size; row-- > 0;) {
        const double* const factors = &m_factor[row * m_size];
        right[row] = factors[row] > 0 ? right[row] / factors[row] : 0;
        for (std::size_t i = 0; i < row; ++i)
            right[i] -= factors[i] * right[row];
    }
    return right;
}

} // namespace CommonUI::Analysis

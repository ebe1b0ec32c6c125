#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// Solves the normal equations of a least-squares fit, A x = b with A symmetric and not negative (Cholesky).
///
/// A fit whose points do not determine all unknowns keeps those that come first: an unknown whose function
/// is, at the points, a sum of earlier ones is left out, which means it is 0. So a fit with its terms in the
/// order of their degree falls back to the degree that the points allow.
class CSymmetricSolver
{
public:
    /// @param matrix A, row after row; only the elements up to the diagonal are looked at
    /// @param scales one for each unknown, the sum of the squares of its function. It is left out if less
    ///     than 1e-12 of that is left when all that the earlier ones explain is taken away.
    CSymmetricSolver(std::vector<double> matrix, std::span<const double> scales);

    /// @param right b
    /// @return x
    std::vector<double> Solve(std::vector<double> right) const;

private:
    void Factor(std::size_t row, double scale);

    std::size_t m_size;
    std::vector<double> m_factor; // lower triangle; a diagonal element of 0 marks what is left out
};

} // namespace CommonUI::Analysis

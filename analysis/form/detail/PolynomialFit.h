#pragma once

#include "analysis/form/detail/PolynomialBasis.h"
#include "analysis/numeric/detail/SymmetricSolver.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// Which terrace of a stepped surface a point lies on.
using TTerrace = std::uint8_t;
/// The point takes no part in a fit, as between two terraces.
inline constexpr TTerrace c_noTerrace = 255;

/// Least-squares fit of a polynomial in x and y to points on terraces: a height is the value of the
/// polynomial plus a constant of its terrace. A surface without steps is one terrace. Terms that the points
/// do not determine are left out, those of high degree first.
class CPolynomialFit
{
public:
    /// @param grid tells which points are missing; they take no part
    /// @param terraces one for each point
    CPolynomialFit(const SGrid& grid, std::size_t order, std::vector<TTerrace> terraces);
    /// All points on one terrace.
    CPolynomialFit(const SGrid& grid, std::size_t order)
        : CPolynomialFit(grid, order, std::vector<TTerrace>(grid.heights.size(), 0))
    {
    }

    /// @param grid missing the same points as that of the constructor
    /// @return the coefficients of the basis' terms after the constant
    std::vector<double> Fit(const SGrid& grid) const;

    /// The mean height of each terrace, 0 of one without points.
    std::vector<double> ComputeLevels(const SGrid& grid) const;

    /// How many points each terrace has. There is at least one terrace.
    const std::vector<double>& GetCounts() const { return m_counts; }

    const CPolynomialBasis& GetBasis() const { return m_basis; }

private:
    void SumLine(const SGrid& grid, std::size_t line, std::span<const double> levels,
                 std::span<double> sums) const;

    CPolynomialBasis m_basis;
    std::vector<TTerrace> m_terraces; // c_noTerrace where missing
    std::vector<double> m_counts;
    CSymmetricSolver m_solver;
};

/// Fits a polynomial to all valid points and subtracts it, so that the mean height becomes 0. What is left of
/// an exact polynomial is zero, not the noise of rounding. Without a valid point nothing happens.
void RemovePolynomial(const SGrid& grid, std::size_t order);

} // namespace CommonUI::Analysis

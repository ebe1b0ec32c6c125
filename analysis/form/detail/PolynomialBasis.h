#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// The heights of a surface or of a single line of it, to be changed in place. Missing points are NaN.
struct SGrid {
    std::span<double> heights{}; ///< line after line, points * lines heights
    std::size_t points = 0;      ///< of each line
    std::size_t lines = 0;

    std::span<double> GetLine(std::size_t line) const { return heights.subspan(line * points, points); }
};

/// The polynomials in x and y up to an order, as products Pi(x) Pj(y) of Legendre polynomials with
/// i + j <= order. x and y go from -1 to 1 over the rectangle that the valid points take up; there the
/// products are nearly at right angles to each other, which keeps a fit of high order exact where powers
/// of x and y would drown in rounding errors.
class CPolynomialBasis
{
public:
    /// A product of polynomials of these degrees.
    struct STerm {
        std::size_t x = 0;
        std::size_t y = 0;
    };

    /// @param order 0 or more. No degree exceeds what the number of points or lines can tell from others.
    CPolynomialBasis(const SGrid& grid, std::size_t order);

    /// How many polynomials in x there are.
    std::size_t GetColumnDegrees() const { return m_columns.degrees; }
    /// By rising degree, the constant first.
    const std::vector<STerm>& GetTerms() const { return m_terms; }
    /// The polynomials in x at a column of the grid, one for each degree.
    std::span<const double> GetAtColumn(std::size_t column) const { return m_columns.Get(column); }
    std::span<const double> GetAtLine(std::size_t line) const { return m_lines.Get(line); }

    /// Subtracts a polynomial from the heights of a grid of the same size.
    /// @param coefficients of the terms after the constant
    void Subtract(const SGrid& grid, std::span<const double> coefficients) const;

private:
    // The Legendre polynomials at each of a number of equidistant positions.
    struct STable {
        std::size_t degrees = 0;
        std::vector<double> values{};

        void Fill(std::size_t count, std::size_t first, std::size_t last, std::size_t order);
        std::span<const double> Get(std::size_t at) const
        {
            return std::span(values).subspan(at * degrees, degrees);
        }
    };

    void SubtractFromLine(const SGrid& grid, std::size_t line, std::span<const double> coefficients) const;

    STable m_columns{};
    STable m_lines{};
    std::vector<STerm> m_terms{};
};

} // namespace CommonUI::Analysis

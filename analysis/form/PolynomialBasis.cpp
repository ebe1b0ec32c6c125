#include "analysis/form/detail/PolynomialBasis.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace CommonUI::Analysis
{

namespace
{

// Of the columns and lines that hold valid points; the first of each is beyond the last without any.
struct SBox {
    std::size_t firstColumn;
    std::size_t lastColumn = 0;
    std::size_t firstLine;
    std::size_t lastLine = 0;
};

SBox FindBox(const SGrid& grid)
{
    SBox box{.firstColumn = grid.points, .firstLine = grid.lines};
    for (std::size_t y = 0; y < grid.lines; ++y) {
        const std::span<const double> line = grid.GetLine(y);
        for (std::size_t x = 0; x < line.size(); ++x) {
            if (std::isnan(line[x]))
                continue;
            box.firstColumn = std::min(box.firstColumn, x);
            box.lastColumn = std::max(box.lastColumn, x);
            box.firstLine = std::min(box.firstLine, y);
            box.lastLine = y;
        }
    }
    return box;
}

} // namespace

void CPolynomialBasis::STable::Fill(std::size_t count, std::size_t first, std::size_t last, std::size_t order)
{
    const std::size_t extent = last > first ? last - first : 0;
    degrees = std::min(order, extent) + 1;
    values.resize(count * degrees);
    const auto length = static_cast<double>(std::max<std::size_t>(extent, 1));
    for (std::size_t i = 0; i < count; ++i) {
        const double x = (2 * static_cast<double>(i) - static_cast<double>(first + last)) / length;
        double* const p = &values[i * degrees];
        p[0] = 1;
        if (degrees > 1)
            p[1] = x;
        for (std::size_t n = 2; n < degrees; ++n) {
            const auto k = static_cast<double>(n);
            p[n] = ((2 * k - 1) * x * p[n - 1] - (k - 1) * p[n - 2]) / k;
        }
    }
}

CPolynomialBasis::CPolynomialBasis(const SGrid& grid, std::size_t order)
{
    const SBox box = FindBox(grid);
    m_columns.Fill(grid.points, box.firstColumn, box.lastColumn, order);
    m_lines.Fill(grid.lines, box.firstLine, box.lastLine, order);
    for (std::size_t degree = 0; degree <= order; ++degree)
        for (std::size_t y = 0; y <= degree; ++y)
            if (degree - y < m_columns.degrees && y < m_lines.degrees)
                m_terms.push_back({.x = degree - y, .y = y});
}

void CPolynomialBasis::SubtractFromLine(const SGrid& grid, std::size_t line,
                                        std::span<const double> coefficients) const
{
    std::vector<double> factors(m_columns.degrees); // of the polynomials in x
    for (std::size_t i = 0; i < coefficients.size(); ++i)
        factors[m_terms[i + 1].x] += coefficients[i] * GetAtLine(line)[m_terms[i + 1].y];
    const std::span<double> heights = grid.GetLine(line);
    for (std::size_t column = 0; column < heights.size(); ++column) {
        const std::span<const double> x = GetAtColumn(column);
        heights[column] -= std::inner_product(x.begin(), x.end(), factors.begin(), 0.0);
    }
}

void CPolynomialBasis::Subtract(const SGrid& grid, std::span<const double> coefficients) const
{
    for (std::size_t line = 0; line < grid.lines; ++line)
        SubtractFromLine(grid, line, coefficients);
}

} // namespace CommonUI::Analysis

#include "analysis/areal/detail/PowerSpectrum.h"

#include "analysis/areal/detail/LineSpectra.h"
#include "analysis/numeric/detail/Parallel.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Analysis
{

namespace
{

using CComplex = CLineSpectra::CComplex;

constexpr std::size_t c_mostSections = 256;
constexpr double c_reach = 4; // of a ray to either side, in its widths

} // namespace

// Square sections of a surface, half overlapping where one does not hold all of it; of a long strip some,
// evenly spread. In a square the window broadens all waves alike in all directions, so that it does not turn
// them.
class CPowerSpectrum::CSections
{
public:
    explicit CSections(const SSurface& surface)
        : m_surface(surface)
    {
        const double side = GetSide();
        m_points = std::min(surface.points, static_cast<std::size_t>(std::lround(side / surface.dx)));
        m_lines = std::min(surface.lines, static_cast<std::size_t>(std::lround(side / surface.dy)));
    }

    double GetSide() const
    {
        return std::min(static_cast<double>(m_surface.points) * m_surface.dx,
                        static_cast<double>(m_surface.lines) * m_surface.dy);
    }
    std::size_t GetPoints() const { return m_points; }
    std::size_t GetLines() const { return m_lines; }

    template<class FVisit>
    void ForEach(const FVisit& visit) const
    {
        const std::size_t across = CountAlong(m_surface.points, m_points);
        const std::size_t down = CountAlong(m_surface.lines, m_lines);
        for (std::size_t i = 0; i < across; ++i)
            for (std::size_t j = 0; j < down; ++j)
                visit(Cut(GetBegin(i, across, m_surface.points - m_points),
                          GetBegin(j, down, m_surface.lines - m_lines)));
    }

private:
    static std::size_t CountAlong(std::size_t whole, std::size_t part)
    {
        return std::min(c_mostSections, 1 + (2 * (whole - part) + part - 1) / part);
    }
    static std::size_t GetBegin(std::size_t index, std::size_t count, std::size_t last)
    {
        return count == 1 ? 0 : index * last / (count - 1);
    }
    SSurface Cut(std::size_t column, std::size_t row) const
    {
        SSurface section{.points = m_points, .lines = m_lines, .dx = m_surface.dx, .dy = m_surface.dy};
        section.heights.reserve(m_points * m_lines);
        for (std::size_t line = row; line < row + m_lines; ++line) {
            const auto heights = m_surface.GetLine(line).subspan(column, m_points);
            section.heights.insert(section.heights.end(), heights.begin(), heights.end());
        }
        return section;
    }

    const SSurface& m_surface;
    std::size_t m_points;
    std::size_t m_lines;
};

CPowerSpectrum::CPowerSpectrum(const SSurface& surface)
{
    const CSections sections(surface);
    m_lowest = 1 / sections.GetSide();
    m_highest = 0.5 / std::max(surface.dx, surface.dy);
    if (!(m_lowest < m_highest))
        return;
    m_height = CFourierTransform(sections.GetLines()).GetSize();
    sections.ForEach([&](const SSurface& section) { Add(section); });
    m_unitX = 1 / (static_cast<double>(m_lastColumn * 2) * surface.dx);
    m_unitY = 1 / (static_cast<double>(m_height) * surface.dy);
}

double CPowerSpectrum::Integrate(const SRay& ray) const
{
    const bool byColumns = std::fabs(ray.x) / m_unitX >= std::fabs(ray.y) / m_unitY;
    const double unit = byColumns ? m_unitX : m_unitY; // of the steps
    const double across = byColumns ? m_unitY : m_unitX;
    const double along = byColumns ? ray.x : ray.y;
    const double aside = byColumns ? ray.y : ray.x;
    const double widest = c_reach * std::max(ray.width, ray.blur * m_highest);
    const auto last = static_cast<std::ptrdiff_t>((m_highest * std::fabs(along) + widest) / unit);
    double sum = 0;
    for (std::ptrdiff_t i = -last; i <= last; ++i) {
        const double f = static_cast<double>(i) * unit;
        const double middle = f * aside / along;
        const double width = std::max(ray.width, ray.blur * std::fabs(f / along));
        const double reach = c_reach * width / std::fabs(along);
        const auto end = static_cast<std::ptrdiff_t>(std::floor((middle + reach) / across));
        for (auto j = static_cast<std::ptrdiff_t>(std::ceil((middle - reach) / across)); j <= end; ++j) {
            const double g = static_cast<double>(j) * across;
            const double frequency = std::hypot(f, g);
            if (f * along + g * aside <= 0 || frequency < m_lowest || frequency > m_highest)
                continue;
            const double distance = (g - middle) * along / width;
            const double power = byColumns ? GetValue(i, j) : GetValue(j, i);
            sum += std::exp(-distance * distance / 2) / width * frequency * power;
        }
    }
    return sum;
}

void CPowerSpectrum::Add(const SSurface& section)
{
    const CFourierTransform transform(m_height);
    CLineSpectra spectra(section, CLineSpectra::ETaper::Hann);
    m_lastColumn = spectra.GetWidth() - 1;
    m_values.resize(spectra.GetWidth() * m_height);
    const auto addColumns = [&](std::size_t first, std::size_t last) {
        std::vector<CComplex> column(m_height);
        for (std::size_t i = first; i < last; ++i) {
            spectra.GetColumn(i, column);
            transform.Forward(column);
            for (std::size_t j = 0; j < m_height; ++j)
                m_values[i * m_height + j] += std::norm(column[j]);
        }
    };
    ComputeInShares(spectra.GetWidth(), addColumns);
}

// The power is the same at the opposite frequency, and periodic.
double CPowerSpectrum::GetValue(std::ptrdiff_t column, std::ptrdiff_t row) const
{
    const auto height = static_cast<std::ptrdiff_t>(m_height);
    const auto last = static_cast<std::ptrdiff_t>(m_lastColumn);
    if (column < 0 || column > last) {
        column = column < 0 ? -column : 2 * last - column;
        row = -row;
    }
    return m_values[static_cast<std::size_t>(column * height + (row % height + height) % height)];
}

CPowerSpectrum::SRadial CPowerSpectrum::SumCircles(double step, std::size_t count) const
{
    SRadial radial{.power = std::vector<double>(count + 1), .counts = std::vector<double>(count + 1)};
    for (std::size_t i = 0; i <= m_lastColumn; ++i) {
        // The power at both ends stands for waves to both sides.
        const double weight = i == 0 || i == m_lastColumn ? 0.5 : 1;
        const double x = static_cast<double>(i) * m_unitX;
        for (std::size_t j = 0; j < m_height; ++j) {
            const double y = static_cast<double>(std::min(j, m_height - j)) * m_unitY;
            const double place = std::sqrt(x * x + y * y) / step;
            if (!(place < static_cast<double>(count)))
                continue;
            const auto at = static_cast<std::size_t>(place);
            const double upper = weight * (place - static_cast<double>(at));
            const double power = m_values[i * m_height + j];
            radial.power[at] += (weight - upper) * power;
            radial.power[at + 1] += upper * power;
            radial.counts[at] += weight - upper;
            radial.counts[at + 1] += upper;
        }
    }
    radial.power.pop_back();
    radial.counts.pop_back();
    return radial;
}

double FindMaximum(const std::vector<double>& values, bool circle)
{
    const auto index =
        static_cast<std::size_t>(std::max_element(values.begin(), values.end()) - values.begin());
    const std::size_t count = values.size();
    if (!circle && (index == 0 || index == count - 1))
        return static_cast<double>(index);
    const double before = values[(index + count - 1) % count];
    const double after = values[(index + 1) % count];
    const double bend = 2 * values[index] - before - after;
    return static_cast<double>(index) + (bend > 0 ? (after - before) / (2 * bend) : 0);
}

} // namespace CommonUI::Analysis

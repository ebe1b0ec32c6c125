#include "analysis/areal/detail/TextureDirection.h"

#include "analysis/areal/detail/LineSpectra.h"
#include "analysis/numeric/detail/Parallel.h"
#include "analysis/surface/Value.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace CommonUI::Analysis
{

namespace
{

using CComplex = CLineSpectra::CComplex;

constexpr double c_degree = std::numbers::pi / 180;
constexpr double c_coarseStep = 0.5 * c_degree;
constexpr std::size_t c_coarseCount = 360; // of half a circle
constexpr double c_coarseBlur = 0.25 * c_degree;
constexpr std::size_t c_mostSections = 256;
constexpr double c_reach = 4; // of a ray to either side, in its widths

// Square sections of a surface, half overlapping where one does not hold all of it; of a long strip some,
// evenly spread. In a square the window broadens all waves alike in all directions, so that it does not turn
// them.
class CSections
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

struct SRay {
    double x; // of the unit vector
    double y;
    double lowest; // frequencies, 1/m
    double highest;
    double width; // standard deviation of the weights across the ray, 1/m
    double blur;  // or as an angle, if that is more
};

// Power of the waves that run towards greater x; frequencies in 1/m.
class CPowerSpectrum
{
public:
    explicit CPowerSpectrum(const CSections& sections, const SSurface& surface)
    {
        const CFourierTransform transform(sections.GetLines());
        m_height = transform.GetSize();
        sections.ForEach([&](const SSurface& section) { Add(section, transform); });
        m_unitX = 1 / (static_cast<double>(m_lastColumn * 2) * surface.dx);
        m_unitY = 1 / (static_cast<double>(m_height) * surface.dy);
    }

    // The integral of the power times the frequency along a ray, as a sum over the frequencies beside it with
    // normal weights, which depend on no direction of the grid.
    double Integrate(const SRay& ray) const
    {
        const bool byColumns = std::fabs(ray.x) / m_unitX >= std::fabs(ray.y) / m_unitY;
        const double unit = byColumns ? m_unitX : m_unitY; // of the steps
        const double across = byColumns ? m_unitY : m_unitX;
        const double along = byColumns ? ray.x : ray.y;
        const double aside = byColumns ? ray.y : ray.x;
        const double widest = c_reach * std::max(ray.width, ray.blur * ray.highest);
        const auto last = static_cast<std::ptrdiff_t>((ray.highest * std::fabs(along) + widest) / unit);
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
                if (f * along + g * aside <= 0 || frequency < ray.lowest || frequency > ray.highest)
                    continue;
                const double distance = (g - middle) * along / width;
                const double power = byColumns ? GetValue(i, j) : GetValue(j, i);
                sum += std::exp(-distance * distance / 2) / width * frequency * power;
            }
        }
        return sum;
    }

private:
    void Add(const SSurface& section, const CFourierTransform& transform)
    {
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
    double GetValue(std::ptrdiff_t column, std::ptrdiff_t row) const
    {
        const auto height = static_cast<std::ptrdiff_t>(m_height);
        const auto last = static_cast<std::ptrdiff_t>(m_lastColumn);
        if (column < 0 || column > last) {
            column = column < 0 ? -column : 2 * last - column;
            row = -row;
        }
        return m_values[static_cast<std::size_t>(column * height + (row % height + height) % height)];
    }

    std::size_t m_lastColumn = 0;
    std::size_t m_height = 0;
    double m_unitX = 0;
    double m_unitY = 0;
    std::vector<double> m_values; // column after column
};

// Where between the values the greatest one lies, by a parabola. A circle has no ends.
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

// The angular spectrum at angles from `first` on.
std::vector<double> ComputeAngular(const CPowerSpectrum& spectrum, const SRay& range, double first,
                                   double step, std::size_t count)
{
    std::vector<double> angular(count);
    ComputeInShares(count, [&](std::size_t begin, std::size_t end) {
        SRay ray = range;
        for (std::size_t i = begin; i < end; ++i) {
            const double angle = first + static_cast<double>(i) * step;
            ray.x = std::cos(angle);
            ray.y = std::sin(angle);
            angular[i] = spectrum.Integrate(ray);
        }
    });
    return angular;
}

} // namespace

double ComputeTextureDirection(const SSurface& surface)
{
    const CSections sections(surface);
    const double lowest = 1 / sections.GetSide();
    const double highest = 0.5 / std::max(surface.dx, surface.dy);
    if (!(lowest < highest))
        return c_undefined;
    const CPowerSpectrum spectrum(sections, surface);
    SRay ray{.x = 1, .y = 0, .lowest = lowest, .highest = highest, .width = lowest, .blur = c_coarseBlur};
    const std::vector<double> coarse =
        ComputeAngular(spectrum, ray, -std::numbers::pi / 2, c_coarseStep, c_coarseCount);
    if (!(*std::max_element(coarse.begin(), coarse.end()) > 0))
        return c_undefined;
    const double near = FindMaximum(coarse, true) * c_coarseStep - std::numbers::pi / 2;

    // Again without blur, in steps that see the narrowest maximum there can be.
    ray.blur = 0;
    const double fineStep = std::min(ray.width / highest / 3, c_coarseStep / 2);
    const auto half = static_cast<std::size_t>(std::ceil(1.5 * c_coarseStep / fineStep));
    const double first = near - static_cast<double>(half) * fineStep;
    const std::vector<double> fine = ComputeAngular(spectrum, ray, first, fineStep, 2 * half + 1);
    const double degrees = (first + FindMaximum(fine, false) * fineStep) / c_degree;
    return degrees > 90 ? degrees - 180 : degrees > -90 ? degrees : degrees + 180;
}

} // namespace CommonUI::Analysis

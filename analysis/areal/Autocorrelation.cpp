#include "analysis/areal/Autocorrelation.h"

#include "analysis/areal/detail/LineSpectra.h"
#include "analysis/numeric/detail/Parallel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

using CComplex = CLineSpectra::CComplex;

constexpr int c_bisections = 30;
constexpr std::size_t c_none = static_cast<std::size_t>(-1); // no line

// From the spectra of the lines to those of the lines of the autocorrelation, for the first shifts in y. The
// size of the transform along y keeps what comes round away from them.
void CorrelateColumns(CLineSpectra& spectra, std::size_t shifts)
{
    const CFourierTransform transform(spectra.GetLines() + shifts - 1);
    ComputeInShares(spectra.GetWidth(), [&](std::size_t first, std::size_t last) {
        std::vector<CComplex> column(transform.GetSize());
        for (std::size_t i = first; i < last; ++i) {
            spectra.GetColumn(i, column);
            transform.Forward(column);
            for (CComplex& value : column)
                value = std::norm(value);
            transform.Inverse(column);
            spectra.SetColumn(i, std::span(column).first(shifts));
        }
    });
}

// The weights of the values at -1, 0, 1 and 2 for a place between 0 and 1: cubic convolution (Keys, 1981),
// which keeps the values and is exact to the third order.
std::array<double, 4> GetWeights(double place)
{
    const double s = 1 - place;
    return {-place * s * s / 2, 1 + place * place * (3 * place - 5) / 2, 1 + s * s * (3 * s - 5) / 2,
            -s * place * place / 2};
}

struct SShift {
    double x; // in points
    double y; // in lines
};

// Shifts at the border of half a circle, from +x over y to -x, so close that directions to them are about a
// quarter of a degree apart.
std::vector<SShift> SelectShifts(std::size_t reachX, std::size_t reachY)
{
    const auto toX = static_cast<double>(reachX);
    const auto toY = static_cast<double>(reachY);
    const auto getNext = [](std::size_t shift) { return shift + std::max<std::size_t>(1, shift / 256); };
    std::vector<SShift> shifts;
    for (std::size_t y = 0; y < reachY; y = getNext(y))
        shifts.push_back({toX, static_cast<double>(y)});
    for (std::size_t x = 0; x < reachX; x = getNext(x))
        shifts.push_back({static_cast<double>(x), toY});
    shifts.push_back({toX, toY});
    const std::size_t count = shifts.size();
    for (std::size_t i = 0; i < count; ++i)
        shifts.push_back({-shifts[i].x, shifts[i].y});
    std::sort(shifts.begin(), shifts.end(), [&](SShift a, SShift b) {
        return std::atan2(a.y / toY, a.x / toX) < std::atan2(b.y / toY, b.x / toX);
    });
    return shifts;
}

// The least value of a function in a range in which it has one minimum: golden section.
template<class FValue>
double FindLeast(double first, double last, const FValue& getValue)
{
    const double section = (std::sqrt(5.0) - 1) / 2;
    constexpr int c_steps = 24; // to 1e-5 of the range
    double left = last - section * (last - first);
    double right = first + section * (last - first);
    double atLeft = getValue(left);
    double atRight = getValue(right);
    for (int i = 0; i < c_steps; ++i) {
        if (atLeft < atRight) {
            last = std::exchange(right, left);
            atRight = atLeft;
            left = last - section * (last - first);
            atLeft = getValue(left);
        } else {
            first = std::exchange(left, right);
            atLeft = atRight;
            right = first + section * (last - first);
            atRight = getValue(right);
        }
    }
    return std::min(atLeft, atRight);
}

} // namespace

CAutocorrelation::CAutocorrelation(const SSurface& surface, double mean)
    : m_reachX(surface.points / 2)
    , m_reachY(surface.lines / 2)
    , m_dx(surface.dx)
    , m_dy(surface.dy)
{
    if (m_reachX == 0 || m_reachY == 0)
        return;
    CLineSpectra spectra(surface, mean, surface.points + m_reachX, CLineSpectra::ETaper::None);
    CorrelateColumns(spectra, m_reachY + 1);
    spectra.KeepLines(m_reachY + 1);

    const std::size_t width = 2 * m_reachX + 1;
    m_values.resize(width * (m_reachY + 1));
    ComputeInShares(m_reachY / 2 + 1, [&](std::size_t first, std::size_t last) {
        std::vector<CComplex> pair(spectra.GetSize());
        for (std::size_t y = 2 * first; y < 2 * last; y += 2) {
            spectra.TransformBack(y, y < m_reachY ? y + 1 : c_none, pair);
            for (std::size_t i = 0; i < width; ++i) {
                const std::size_t shift = i < m_reachX ? m_reachX - i : i - m_reachX;
                const CComplex sums = pair[i < m_reachX ? pair.size() - shift : shift];
                const auto overlap = static_cast<double>(surface.points - shift);
                m_values[y * width + i] = sums.real() / (overlap * static_cast<double>(surface.lines - y));
                if (y < m_reachY)
                    m_values[(y + 1) * width + i] =
                        sums.imag() / (overlap * static_cast<double>(surface.lines - y - 1));
            }
        }
    });
    const double unshifted = m_values[m_reachX];
    for (double& value : m_values)
        value /= unshifted; // 0 / 0 for a flat surface
}

double CAutocorrelation::GetValueAt(std::ptrdiff_t column, std::ptrdiff_t row) const
{
    const auto reachX = static_cast<std::ptrdiff_t>(m_reachX);
    const auto reachY = static_cast<std::ptrdiff_t>(m_reachY);
    if (row < 0) { // the same at the opposite shift
        row = -row;
        column = -column;
    }
    column = std::clamp(column, -reachX, reachX);
    row = std::min(row, reachY);
    return m_values[static_cast<std::size_t>(row * (2 * reachX + 1) + column + reachX)];
}

double CAutocorrelation::GetValue(double x, double y) const
{
    const double column = std::floor(x);
    const double row = std::floor(y);
    const auto alongX = GetWeights(x - column);
    const auto alongY = GetWeights(y - row);
    const auto atRow = [&](std::ptrdiff_t at) {
        const auto first = static_cast<std::ptrdiff_t>(column) - 1;
        if (x == column)
            return GetValueAt(first + 1, at);
        double sum = 0;
        for (std::size_t i = 0; i < alongX.size(); ++i)
            sum += alongX[i] * GetValueAt(first + static_cast<std::ptrdiff_t>(i), at);
        return sum;
    };
    const auto first = static_cast<std::ptrdiff_t>(row) - 1;
    if (y == row)
        return atRow(first + 1);
    double value = 0;
    for (std::size_t i = 0; i < alongY.size(); ++i)
        value += alongY[i] * atRow(first + static_cast<std::ptrdiff_t>(i));
    return value;
}

// The distance on the way to a border shift; NaN if the level is not reached.
double CAutocorrelation::FindDecay(double x, double y, double level) const
{
    // Steps of a whole point along the longer side of the way, where the value is found quickly.
    const double steps = std::max(std::fabs(x), y);
    const auto count = static_cast<std::size_t>(steps);
    const double perStepX = x / steps;
    const double perStepY = y / steps;
    const auto getValue = [&](double step) { return GetValue(step * perStepX, step * perStepY); };
    for (std::size_t i = 1; i <= count; ++i) {
        auto last = static_cast<double>(i);
        if (getValue(last) > level)
            continue;
        double first = last - 1;
        for (int bit = 0; bit < c_bisections; ++bit) {
            const double middle = (first + last) / 2;
            (getValue(middle) > level ? first : last) = middle;
        }
        return last / steps * std::hypot(x * m_dx, y * m_dy);
    }
    return c_undefined;
}

SDecay CAutocorrelation::ComputeDecay(double level) const
{
    if (m_values.empty() || std::isnan(m_values.front()))
        return {};
    const std::vector<SShift> shifts = SelectShifts(m_reachX, m_reachY);
    std::vector<double> distances(shifts.size());
    ComputeInShares(shifts.size(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i)
            distances[i] = FindDecay(shifts[i].x, shifts[i].y, level);
    });

    // Between a shift's neighbours, where the least or, with the sign turned, the greatest distance lies.
    const auto refine = [&](std::size_t index, double sign) {
        const auto getDistance = [&](double place) {
            const auto from = std::min(static_cast<std::size_t>(place), shifts.size() - 2);
            const double share = place - static_cast<double>(from);
            const SShift a = shifts[from];
            const SShift b = shifts[from + 1];
            const double distance =
                FindDecay(a.x + share * (b.x - a.x), std::max(a.y + share * (b.y - a.y), 0.0), level);
            return std::isnan(distance) ? std::numeric_limits<double>::infinity() : sign * distance;
        };
        const auto place = static_cast<double>(index);
        const double least =
            FindLeast(std::max(place - 1, 0.0), std::min(place + 1, static_cast<double>(shifts.size() - 1)),
                      getDistance);
        return sign * std::min(least, sign * distances[index]);
    };
    SDecay decay;
    std::optional<std::size_t> least;
    std::size_t greatest = 0;
    bool isReached = true; // in all directions
    for (std::size_t i = 0; i < distances.size(); ++i) {
        isReached = isReached && !std::isnan(distances[i]);
        if (!std::isnan(distances[i]) && (!least || distances[i] < distances[*least]))
            least = i;
        if (distances[i] > distances[greatest])
            greatest = i;
    }
    if (least)
        decay.shortest = refine(*least, 1);
    if (isReached)
        decay.longest = refine(greatest, -1);
    return decay;
}

} // namespace CommonUI::Analysis

#include "analysis/correlation/CrossCorrelation.h"

#include "analysis/numeric/detail/Parallel.h"
#include "analysis/numeric/FourierTransform.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <span>

namespace CommonUI::Analysis
{

namespace
{

using CComplex = std::complex<double>;

// Heights above the mean in shares of the largest, with missing points at the mean, as sums of products of
// large or small heights are no numbers.
std::vector<double> Normalize(const SSurface& surface)
{
    double sum = 0;
    double count = 0;
    for (const double z : surface.heights)
        if (!std::isnan(z)) {
            sum += z;
            ++count;
        }
    std::vector<double> heights(surface.heights.size());
    double largest = 0;
    for (std::size_t i = 0; i < heights.size(); ++i) {
        const double z = surface.heights[i] - sum / count;
        heights[i] = std::isnan(z) ? 0 : z;
        largest = std::max(largest, std::fabs(heights[i]));
    }
    for (double& z : heights)
        z = largest > 0 ? z / largest : 0;
    return heights;
}

// Sums of the values and of their squares over any rectangle.
class CRectangleSums
{
public:
    struct SSums {
        double sum;
        double squares;
    };

    CRectangleSums(std::span<const double> values, std::size_t width)
        : m_width(width + 1)
        , m_sums((values.size() / width + 1) * (width + 1))
    {
        for (std::size_t y = 0; y < values.size() / width; ++y) {
            SSums line{};
            for (std::size_t x = 0; x < width; ++x) {
                const double value = values[y * width + x];
                line.sum += value;
                line.squares += value * value;
                const SSums& above = m_sums[y * m_width + x + 1];
                m_sums[(y + 1) * m_width + x + 1] = {above.sum + line.sum, above.squares + line.squares};
            }
        }
    }

    // From a corner, without the point at the other one.
    SSums Get(std::size_t left, std::size_t top, std::size_t right, std::size_t bottom) const
    {
        const SSums& a = m_sums[top * m_width + left];
        const SSums& b = m_sums[top * m_width + right];
        const SSums& c = m_sums[bottom * m_width + left];
        const SSums& d = m_sums[bottom * m_width + right];
        return {d.sum - b.sum - c.sum + a.sum, d.squares - b.squares - c.squares + a.squares};
    }

private:
    std::size_t m_width;
    std::vector<SSums> m_sums;
};

// A transform along x and y, of lines one after the other.
class CPlaneTransform
{
public:
    CPlaneTransform(std::size_t leastWidth, std::size_t leastHeight)
        : m_alongX(leastWidth)
        , m_alongY(leastHeight)
    {
    }

    std::size_t GetWidth() const { return m_alongX.GetSize(); }
    std::size_t GetHeight() const { return m_alongY.GetSize(); }

    void Forward(std::span<CComplex> values) const
    {
        ComputeInShares(GetHeight(), [&](std::size_t first, std::size_t last) {
            for (std::size_t y = first; y < last; ++y)
                m_alongX.Forward(values.subspan(y * GetWidth(), GetWidth()));
        });
        constexpr std::size_t c_block =
            8; // columns at once: a line of the cache has no more than some of them
        ComputeInShares((GetWidth() + c_block - 1) / c_block, [&](std::size_t first, std::size_t last) {
            std::vector<CComplex> columns(c_block * GetHeight());
            for (std::size_t block = first; block < last; ++block)
                TransformColumns(values, block * c_block, std::min(c_block, GetWidth() - block * c_block),
                                 columns);
        });
    }

private:
    void TransformColumns(std::span<CComplex> values, std::size_t first, std::size_t count,
                          std::span<CComplex> columns) const
    {
        const std::size_t height = GetHeight();
        for (std::size_t y = 0; y < height; ++y)
            for (std::size_t x = 0; x < count; ++x)
                columns[x * height + y] = values[y * GetWidth() + first + x];
        for (std::size_t x = 0; x < count; ++x)
            m_alongY.Forward(columns.subspan(x * height, height));
        for (std::size_t y = 0; y < height; ++y)
            for (std::size_t x = 0; x < count; ++x)
                values[y * GetWidth() + first + x] = columns[x * height + y];
    }

    CFourierTransform m_alongX;
    CFourierTransform m_alongY;
};

// The spectrum of the correlation of a with b, from that of a + ib: conj(A) B, where A = (V(k) + V*(-k)) /
// 2 and B = (V(k) - V*(-k)) / 2i. Conjugated, so that another forward transform goes back.
void CorrelateSpectrum(std::span<CComplex> values, std::size_t width, std::size_t height)
{
    for (std::size_t y = 0; y <= height / 2; ++y) {
        const std::size_t oppositeY = (height - y) % height;
        for (std::size_t x = 0; x < width; ++x) {
            const std::size_t i = y * width + x;
            const std::size_t j = oppositeY * width + (width - x) % width;
            if (j < i)
                continue; // done with the other
            const CComplex v = values[i];
            const CComplex w = std::conj(values[j]);
            const CComplex a = (v + w) * 0.5;
            const CComplex b = (v - w) * CComplex(0, -0.5);
            const CComplex product = std::conj(a) * b;
            values[i] = std::conj(product);
            values[j] = product; // that of the opposite frequency is its conjugate
        }
    }
}

// Over what part of an axis two surfaces overlap: the first one from `first` to `last`, the second one
// shifted.
struct SOverlap {
    std::size_t first;
    std::size_t last;

    double GetLength() const { return static_cast<double>(last - first); }
};

SOverlap GetOverlap(std::size_t sizeFirst, std::size_t sizeSecond, std::ptrdiff_t shift)
{
    const auto first = std::max<std::ptrdiff_t>(0, -shift);
    const auto last =
        std::min(static_cast<std::ptrdiff_t>(sizeFirst), static_cast<std::ptrdiff_t>(sizeSecond) - shift);
    return {static_cast<std::size_t>(first), static_cast<std::size_t>(std::max(first, last))};
}

double Correlate(double count, double product, CRectangleSums::SSums a, CRectangleSums::SSums b)
{
    const double covariance = product - a.sum * b.sum / count;
    const double varianceA = a.squares - a.sum * a.sum / count;
    const double varianceB = b.squares - b.sum * b.sum / count;
    constexpr double c_noise = 1e-12; // of rounding
    if (!(varianceA > c_noise * count && varianceB > c_noise * count))
        return c_undefined;
    return std::clamp(covariance / std::sqrt(varianceA * varianceB), -1.0, 1.0);
}

} // namespace

CCrossCorrelation::CCrossCorrelation(const SSurface& first, const SSurface& second)
    : m_reachX(std::min(first.points, second.points) / 2)
    , m_reachY(std::min(first.lines, second.lines) / 2)
    , m_dx(first.dx)
    , m_dy(first.dy)
{
    const std::vector<double> a = Normalize(first);
    const std::vector<double> b = Normalize(second);
    const CPlaneTransform transform(std::max(first.points, second.points) + m_reachX,
                                    std::max(first.lines, second.lines) + m_reachY);
    const std::size_t width = transform.GetWidth();
    std::vector<CComplex> values(width * transform.GetHeight());
    for (std::size_t i = 0; i < a.size(); ++i)
        values[i / first.points * width + i % first.points].real(a[i]);
    for (std::size_t i = 0; i < b.size(); ++i)
        values[i / second.points * width + i % second.points].imag(b[i]);
    transform.Forward(values);
    CorrelateSpectrum(values, width, transform.GetHeight());
    transform.Forward(values);

    const CRectangleSums sumsA(a, first.points);
    const CRectangleSums sumsB(b, second.points);
    const auto size = static_cast<double>(values.size());
    const auto reachX = static_cast<std::ptrdiff_t>(m_reachX);
    const auto reachY = static_cast<std::ptrdiff_t>(m_reachY);
    m_values.reserve((2 * m_reachX + 1) * (2 * m_reachY + 1));
    for (std::ptrdiff_t y = -reachY; y <= reachY; ++y) {
        const auto [top, bottom] = GetOverlap(first.lines, second.lines, y);
        const auto row =
            static_cast<std::size_t>(y < 0 ? y + static_cast<std::ptrdiff_t>(transform.GetHeight()) : y);
        for (std::ptrdiff_t x = -reachX; x <= reachX; ++x) {
            const auto [left, right] = GetOverlap(first.points, second.points, x);
            const auto column = static_cast<std::size_t>(x < 0 ? x + static_cast<std::ptrdiff_t>(width) : x);
            const auto move = [](std::size_t at, std::ptrdiff_t by) {
                return static_cast<std::size_t>(static_cast<std::ptrdiff_t>(at) + by);
            };
            m_values.push_back(
                Correlate(static_cast<double>((right - left) * (bottom - top)),
                          values[row * width + column].real() / size, sumsA.Get(left, top, right, bottom),
                          sumsB.Get(move(left, x), move(top, y), move(right, x), move(bottom, y))));
        }
    }
}

SSurface CCrossCorrelation::MakeMap() const
{
    SSurface map{.points = 2 * m_reachX + 1, .lines = 2 * m_reachY + 1, .dx = m_dx, .dy = m_dy};
    map.heights = m_values;
    map.missing = static_cast<std::size_t>(
        std::ranges::count_if(m_values, [](double value) { return std::isnan(value); }));
    return map;
}

double CCrossCorrelation::GetValue(std::ptrdiff_t x, std::ptrdiff_t y) const
{
    const auto column = static_cast<std::size_t>(x + static_cast<std::ptrdiff_t>(m_reachX));
    const auto row = static_cast<std::size_t>(y + static_cast<std::ptrdiff_t>(m_reachY));
    return m_values[row * (2 * m_reachX + 1) + column];
}

std::string_view FindRefusal(const SSurface& first, const SSurface& second)
{
    const auto areEqual = [](double a, double b) { return std::fabs(a - b) <= 1e-6 * std::fabs(a); };
    const auto isEmpty = [](const SSurface& surface) {
        return std::ranges::all_of(surface.heights, [](double z) { return std::isnan(z); });
    };
    if (isEmpty(first) || isEmpty(second))
        return "a surface has no valid point";
    if (first.IsProfile() != second.IsProfile())
        return "a profile is compared with profiles only";
    if (!areEqual(first.dx, second.dx) || !(first.IsProfile() || areEqual(first.dy, second.dy)))
        return "the surfaces have other spacings";
    return {};
}

} // namespace CommonUI::Analysis

#include "analysis/filter/KernelFilter.h"

#include "analysis/filter/detail/WeightedMeans.h"
#include "analysis/numeric/detail/Parallel.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numeric>
#include <span>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_rounding = 1e-9;

// Sums with the weights of an odd number of points, the middle one's in the middle.
FWeightedSums MakeSums(std::vector<double> weights)
{
    return [weights = std::move(weights)](std::span<std::complex<double>> values) {
        const std::size_t reach = weights.size() / 2;
        const std::vector<std::complex<double>> before(values.begin(), values.end());
        for (std::size_t i = 0; i < values.size(); ++i) {
            const std::size_t first = i - std::min(i, reach);
            const std::size_t last = std::min(i + reach + 1, values.size());
            std::complex<double> sum{};
            for (std::size_t j = first; j < last; ++j)
                sum += weights[j + reach - i] * before[j];
            values[i] = sum;
        }
    };
}

std::vector<double> MakeGaussian(std::size_t count, double sd)
{
    const std::size_t middle = count / 2;
    std::vector<double> weights(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double x = (static_cast<double>(i) - static_cast<double>(middle)) / sd;
        weights[i] = std::exp(-x * x / 2);
    }
    return weights;
}

// The value of a kernel at a point, as the kernel's comment tells.
class CKernelPoint
{
public:
    CKernelPoint(const SSurface& surface, const SKernel& kernel)
        : m_surface(surface)
        , m_kernel(kernel)
        , m_isMean(std::none_of(kernel.weights.begin(), kernel.weights.end(), [](double w) { return w < 0; }))
    {
        const double size = std::accumulate(kernel.weights.begin(), kernel.weights.end(), 0.0,
                                            [](double sum, double w) { return sum + std::fabs(w); });
        const double sum = std::accumulate(kernel.weights.begin(), kernel.weights.end(), 0.0);
        m_isBalanced = std::fabs(sum) <= c_rounding * size;
        m_sum = m_isBalanced ? 1 : sum;
    }

    double Compute(std::size_t line, std::size_t column) const
    {
        const double middle = m_surface.GetLine(line)[column];
        if (std::isnan(middle))
            return middle;
        // Differences, so that a constant passes to the last bit.
        double sum = 0;
        double weights = 0;
        for (std::size_t row = 0; row < m_kernel.rows; ++row)
            AddRow(line + row - m_kernel.rows / 2, row, column, middle, sum, weights);
        const double start = m_isBalanced ? 0 : middle;
        if (!m_isMean)
            return start + sum / m_sum;
        return weights > 0 ? start + sum / weights : middle;
    }

private:
    // Lines and columns before the first are beyond the last, as numbers without a sign go.
    void AddRow(std::size_t line, std::size_t row, std::size_t column, double middle, double& sum,
                double& weights) const
    {
        if (line >= m_surface.lines)
            return;
        const std::span<const double> heights = m_surface.GetLine(line);
        const double* const weight = &m_kernel.weights[row * m_kernel.columns];
        for (std::size_t i = 0; i < m_kernel.columns; ++i) {
            const std::size_t at = column + i - m_kernel.columns / 2;
            if (at >= heights.size() || std::isnan(heights[at]))
                continue;
            sum += weight[i] * (heights[at] - middle);
            weights += weight[i];
        }
    }

    const SSurface& m_surface;
    const SKernel& m_kernel;
    bool m_isMean;
    bool m_isBalanced = false;
    double m_sum = 1;
};

} // namespace

SSurface FilterMean(const SSurface& surface, const SMeanFilter& filter)
{
    return ComputeWeightedMeans(surface, MakeSums(std::vector(filter.columns, 1.0)),
                                MakeSums(std::vector(filter.rows, 1.0)));
}

SSurface SmoothGaussian(const SSurface& surface, const SGaussianSmoothing& smoothing)
{
    return ComputeWeightedMeans(surface, MakeSums(MakeGaussian(smoothing.columns, smoothing.sd)),
                                MakeSums(MakeGaussian(smoothing.rows, smoothing.sd)));
}

SSurface ApplyKernel(const SSurface& surface, const SKernel& kernel)
{
    SSurface filtered = surface;
    const CKernelPoint point(surface, kernel);
    ComputeInShares(surface.lines, [&](std::size_t first, std::size_t last) {
        for (std::size_t line = first; line < last; ++line)
            for (std::size_t column = 0; column < surface.points; ++column)
                filtered.heights[line * surface.points + column] = point.Compute(line, column);
    });
    return filtered;
}

} // namespace CommonUI::Analysis

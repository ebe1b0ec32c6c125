#include "analysis/filter/GaussianFilter.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/surface/Surface.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace CommonUI::Analysis
{

namespace
{

// Weights of the point itself and of those to one side of it; both sides together come to 1.
std::vector<double> MakeWeights(double cutoff)
{
    std::vector<double> weights(static_cast<std::size_t>(cutoff) + 1);
    for (std::size_t i = 0; i < weights.size(); ++i) {
        const double x = static_cast<double>(i) / cutoff;
        weights[i] = std::exp(-std::numbers::pi * std::numbers::pi / std::numbers::ln2 * x * x);
    }
    const double sum = 2 * std::accumulate(weights.rbegin(), weights.rend(), 0.0) - weights[0];
    for (double& weight : weights)
        weight /= sum;
    return weights;
}

} // namespace

CGaussianFilter::CGaussianFilter(std::size_t points, double cutoff)
    : m_transform(points + static_cast<std::size_t>(cutoff)) // what comes round does not reach the points
{
    const std::vector<double> weights = MakeWeights(cutoff);
    const std::size_t size = m_transform.GetSize();
    std::vector<CComplex> spectrum(size);
    for (std::size_t i = 0; i < weights.size(); ++i)
        spectrum[i] = spectrum[(size - i) % size] = weights[i] / static_cast<double>(size);
    m_transform.Forward(spectrum);
    for (const CComplex& value : spectrum)
        m_transmission.push_back(value.real()); // the weights are symmetric
}

std::vector<double> CGaussianFilter::ComputeMeanLine(std::span<const double> heights) const
{
    const SRange range = FindRange(heights);
    const double extent = range.highest - range.lowest;
    std::vector<double> line(heights.begin(), heights.end());
    if (!(extent > 0))
        return line;
    std::vector<CComplex> sums(heights.size());
    for (std::size_t i = 0; i < sums.size(); ++i)
        if (!std::isnan(heights[i]))
            sums[i] = {(heights[i] - range.lowest) / extent, 1};
    Convolve(sums);
    for (std::size_t i = 0; i < sums.size(); ++i)
        if (!std::isnan(line[i]))
            line[i] = range.lowest + sums[i].real() / sums[i].imag() * extent;
    return line;
}

void CGaussianFilter::Convolve(std::span<CComplex> values) const
{
    std::vector<CComplex> padded(m_transform.GetSize());
    std::copy(values.begin(), values.end(), padded.begin());
    m_transform.Forward(padded);
    for (std::size_t i = 0; i < padded.size(); ++i)
        padded[i] *= m_transmission[i];
    m_transform.Inverse(padded);
    std::copy_n(padded.begin(), values.size(), values.begin());
}

} // namespace CommonUI::Analysis

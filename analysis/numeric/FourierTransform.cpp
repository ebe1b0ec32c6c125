#include "analysis/numeric/FourierTransform.h"

#include <algorithm>
#include <bit>
#include <numbers>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

using CComplex = CFourierTransform::CComplex;

// The operator of std::complex looks for infinities first.
CComplex Multiply(CComplex a, CComplex b)
{
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

// Joins the transforms of the even and of the odd values, each of them half as many as the turns' block.
void Join(CComplex* even, CComplex* odd, const CComplex* turns, std::size_t half)
{
    for (std::size_t j = 0; j < half; ++j) {
        const CComplex turned = Multiply(odd[j], turns[j]);
        odd[j] = even[j] - turned;
        even[j] += turned;
    }
}

} // namespace

CFourierTransform::CFourierTransform(std::size_t leastSize)
    : m_order(std::bit_ceil(leastSize))
    , m_turns(m_order.size())
{
    for (std::size_t i = 1; i < m_order.size(); ++i)
        m_order[i] = m_order[i / 2] / 2 + (i % 2) * (m_order.size() / 2);
    for (std::size_t half = 1; half < m_order.size(); half *= 2)
        for (std::size_t j = 0; j < half; ++j)
            m_turns[half + j] =
                std::polar(1.0, -std::numbers::pi * static_cast<double>(j) / static_cast<double>(half));
}

void CFourierTransform::Forward(std::span<CComplex> values) const
{
    for (std::size_t i = 0; i < m_order.size(); ++i)
        if (i < m_order[i])
            std::swap(values[i], values[m_order[i]]);
    for (std::size_t half = 1; half < m_order.size(); half *= 2)
        for (std::size_t i = 0; i < m_order.size(); i += 2 * half)
            Join(&values[i], &values[i + half], &m_turns[half], half);
}

void CFourierTransform::Inverse(std::span<CComplex> values) const
{
    Forward(values);
    std::reverse(values.begin() + 1, values.end()); // k to -k
}

} // namespace CommonUI::Analysis

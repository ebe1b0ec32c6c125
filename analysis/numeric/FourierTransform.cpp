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

// Joins four transforms of `quarter` values, as Join does first the halves of each half and then these, in
// one pass through memory. The turns are all there are.
void JoinFour(CComplex* values, const CComplex* turns, std::size_t quarter)
{
    const CComplex* const inner = turns + quarter;
    const CComplex* const outer = turns + 2 * quarter;
    for (std::size_t j = 0; j < quarter; ++j) {
        CComplex& a = values[j];
        CComplex& b = values[j + quarter];
        CComplex& c = values[j + 2 * quarter];
        CComplex& d = values[j + 3 * quarter];
        const CComplex turnedB = Multiply(b, inner[j]);
        const CComplex turnedD = Multiply(d, inner[j]);
        const CComplex evenSum = a + turnedB;
        const CComplex evenDifference = a - turnedB;
        const CComplex oddSum = Multiply(c + turnedD, outer[j]);
        const CComplex oddDifference = Multiply(c - turnedD, outer[j + quarter]);
        a = evenSum + oddSum;
        b = evenDifference + oddDifference;
        c = evenSum - oddSum;
        d = evenDifference - oddDifference;
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
    std::size_t joined = 1;
    for (; 4 * joined <= m_order.size(); joined *= 4)
        for (std::size_t i = 0; i < m_order.size(); i += 4 * joined)
            JoinFour(&values[i], m_turns.data(), joined);
    if (joined < m_order.size())
        Join(&values[0], &values[joined], &m_turns[joined], joined);
}

void CFourierTransform::Inverse(std::span<CComplex> values) const
{
    Forward(values);
    std::reverse(values.begin() + 1, values.end()); // k to -k
}

} // namespace CommonUI::Analysis

#pragma once

#include "../../export/Export.h"

#include <complex>
#include <cstddef>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// Discrete Fourier transform of a power of two of values, in place. Real sequences go two at a time, as the
/// real and the imaginary parts. Const functions may run in several threads at once.
class COMMONUIANALYSIS_API CFourierTransform
{
public:
    using CComplex = std::complex<double>; ///< a number of the transform

    /// @param leastSize the size is the next power of two, at least 1
    explicit CFourierTransform(std::size_t leastSize);

    std::size_t GetSize() const { return m_order.size(); } ///< of how many numbers the transform is

    /// V[k] = Σ v[j] exp(-2πi jk/size)
    /// @param values as many as the size
    void Forward(std::span<CComplex> values) const;
    /// v[j] = Σ V[k] exp(2πi jk/size): not divided by the size, so that both in turn multiply by it.
    void Inverse(std::span<CComplex> values) const;

private:
    std::vector<std::size_t> m_order; // the index with its bits reversed
    std::vector<CComplex> m_turns;    // exp(-πi j/h) at h + j, for each power of two h and j < h
};

} // namespace CommonUI::Analysis

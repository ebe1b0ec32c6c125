#pragma once

#include "../../export/Export.h"
#include "../numeric/FourierTransform.h"

#include <cstddef>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// Linear Gaussian profile filter (ISO 16610-21): the weights s(x) = exp(-π (x / (α λc))²), α = √(ln 2 / π),
/// let half the amplitude pass at the cut-off λc.
///
/// The weights reach one cut-off to either side, which leaves out a ten millionth of them, and are divided by
/// their sum. Where they reach beyond an end of the profile or meet missing points, the sum is that of the
/// others alone; so a constant passes unchanged, while a slope bends within half a cut-off of an end.
///
/// Const functions may run in several threads at once.
class COMMONUIANALYSIS_API CGaussianFilter
{
public:
    using CComplex = CFourierTransform::CComplex; ///< a number of the transform

    /// @param points of each profile to filter
    /// @param cutoff in point spacings, greater than 0 and at most the number of points
    CGaussianFilter(std::size_t points, double cutoff);

    /// The mean line of a profile: what the filter lets pass, the profile's long waves.
    /// @param heights as many as the points, missing points NaN: they have no weight and stay missing
    std::vector<double> ComputeMeanLine(std::span<const double> heights) const;

    /// The weighted sums of two sequences at once, one in the real, one in the imaginary parts; beyond the
    /// ends there is 0. For a surface with missing points these are the heights (0 where missing) and the
    /// validity (1 or 0): their sums, over lines and then over columns, are divided at the end. Rounding
    /// errors are those of the larger sequence, so both should be of the same order.
    /// @param values as many as the points
    void Convolve(std::span<CComplex> values) const;

private:
    CFourierTransform m_transform;
    std::vector<double> m_transmission; // of the weights, divided by the transform's size
};

} // namespace CommonUI::Analysis

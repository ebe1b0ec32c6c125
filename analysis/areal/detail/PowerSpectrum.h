#pragma once

#include "analysis/surface/Surface.h"

#include <cstddef>
#include <vector>

namespace CommonUI::Analysis
{

/// A direction in the spectrum and what of it counts. Frequencies are in 1/m.
struct SRay {
    double x; ///< of the unit vector
    double y;
    double width; ///< standard deviation of the weights across the ray, 1/m
    double blur;  ///< or as an angle, if that is more
};

/// Power of the waves in a surface: the mean of that of squares of the shorter side, which overlap by half
/// (of a long strip 256, evenly spread), so that no direction is resolved better than another. In each the
/// heights are counted from their weighted mean and fade towards the edges (Hann window); missing points
/// count as points at the mean.
///
/// The waves are those from two spacings, the greater one, up to the shorter side: the same range in all
/// directions.
class CPowerSpectrum
{
public:
    /// Computes nothing if there is no such wave; IsEmpty then.
    explicit CPowerSpectrum(const SSurface& surface);

    bool IsEmpty() const { return m_values.empty(); }
    double GetLowest() const { return m_lowest; }
    double GetHighest() const { return m_highest; }

    /// The integral of the power times the frequency along a ray, as a sum over the frequencies beside it
    /// with normal weights, which depend on no direction of the grid.
    double Integrate(const SRay& ray) const;

    /// The sums of the power, and of 1, over half a circle of frequencies, for frequencies from 0 on in
    /// steps.
    struct SRadial {
        std::vector<double> power{};
        std::vector<double> counts{};
    };
    /// @param step from one to the next; a frequency between two is shared between them
    /// @param count of the steps
    SRadial SumCircles(double step, std::size_t count) const;

private:
    class CSections;
    void Add(const SSurface& section);
    double GetValue(std::ptrdiff_t column, std::ptrdiff_t row) const;

    double m_lowest;
    double m_highest;
    std::size_t m_lastColumn = 0;
    std::size_t m_height = 0;
    double m_unitX = 0;
    double m_unitY = 0;
    std::vector<double> m_values{}; // column after column, of the waves that run towards greater x
};

/// Where between values the greatest one lies, by a parabola. A circle has no ends.
double FindMaximum(const std::vector<double>& values, bool circle);

} // namespace CommonUI::Analysis

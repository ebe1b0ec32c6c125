#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// Of the heights within some points to either side of each the greatest, then of these the least (closing
/// with a horizontal line): fills what is narrower than the line. Beyond the ends there is nothing.
std::vector<double> Close(std::span<const double> profile, std::size_t toEitherSide);

/// Reference lines by robust Gaussian regression (ISO 16610-31): at each point a polynomial of order 0 or 2
/// is fitted with the weights exp(-π (x / (γ λc))²) times the weights of the heights, Tukey's biweight of
/// 4.4478 times the median absolute residual. γ = 0.4697 for order 0 and 0.7309 for order 2 let half the
/// amplitude pass at λc.
///
/// The first line is fitted to a closed profile, so that a profile with many valleys is not taken for one of
/// few hills. It ends when the median residual changes by less than 0.1 %, or after 20 rounds.
///
/// Sums run over the means of runs of λc / 32, and the line is interpolated between the middles of these. The
/// time by point is bounded whatever the cut-off: 200 terms a round, where the runs are single points.
class CRobustLine
{
public:
    /// @param cutoff λc in point spacings, above 2
    /// @param order 0 or 2
    CRobustLine(std::size_t points, double cutoff, int order);

    /// @param profile none missing
    /// @param closed the same closed
    std::vector<double> Compute(std::span<const double> profile, std::span<const double> closed) const;

private:
    struct SRun;

    std::vector<SRun> MakeRuns(std::span<const double> heights, std::span<const double> weights) const;
    double Fit(std::span<const SRun> runs, std::size_t at, double previous) const;
    void Regress(std::span<const double> heights, std::span<const double> weights,
                 std::vector<double>& nodes) const;
    std::vector<double> Interpolate(std::span<const double> nodes) const;
    double GetMiddle(std::size_t run) const;

    std::size_t m_points;
    std::size_t m_run; // points of each but the last
    int m_order;
    double m_scale;                  // γ λc
    std::vector<double> m_weights{}; // by distance in runs
};

} // namespace CommonUI::Analysis

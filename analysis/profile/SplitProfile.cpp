#include "analysis/profile/SplitProfile.h"

#include "analysis/form/Levelling.h"

#include <cmath>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_leastWidthShare = 0.01; // of the cut-off
constexpr double c_rounding = 1e-9;        // a cut-off of exactly n points may have come out a trifle longer

// @param cutoff in point spacings
bool IsUsable(std::size_t points, double cutoff)
{
    return cutoff > 2 * (1 + c_rounding) && cutoff <= static_cast<double>(points) * (1 + c_rounding);
}

} // namespace

double DefaultCutoff(std::size_t points, double dx)
{
    return static_cast<double>(points) * dx / 5;
}

double LeastWidth(std::size_t points, double dx, double cutoff)
{
    return IsUsable(points, cutoff / dx) ? c_leastWidthShare * (cutoff / dx)
                                         : c_leastWidthShare * DefaultCutoff(points, dx) / dx;
}

CProfileSplitter::CProfileSplitter(std::size_t points, double dx, double cutoff)
    : m_dx(dx)
    , m_leastWidth(LeastWidth(points, dx, cutoff))
    , m_cutoff(cutoff / dx)
{
    if (IsUsable(points, m_cutoff))
        m_filter.emplace(points, m_cutoff);
}

std::vector<double> CProfileSplitter::RemoveForm(std::span<const double> heights)
{
    SSurface line{.points = heights.size(), .lines = 1, .heights{heights.begin(), heights.end()}};
    Level(line, ELevelling::Plane); // the plane of a single line is a straight line
    return std::move(line.heights);
}

SProfiles CProfileSplitter::Split(std::span<const double> heights) const
{
    SProfiles profiles{.primary = RemoveForm(heights), .roughness{}, .waviness{}};
    if (m_filter)
        profiles.waviness = m_filter->ComputeMeanLine(profiles.primary);
    else
        profiles.waviness.assign(heights.size(), c_missing);
    profiles.roughness = profiles.primary;
    for (std::size_t i = 0; i < heights.size(); ++i)
        profiles.roughness[i] -= profiles.waviness[i];
    return profiles;
}

std::vector<double> CProfileSplitter::SplitFilled(std::span<const double> primary) const
{
    if (!m_filter)
        return std::vector<double>(primary.size(), c_missing);
    std::vector<double> filled = m_filter->ComputeMeanLine(primary);
    for (std::size_t i = 0; i < filled.size(); ++i)
        filled[i] = std::fmax(filled[i], primary[i]);
    std::vector<double> roughness = m_filter->ComputeMeanLine(filled);
    for (std::size_t i = 0; i < roughness.size(); ++i)
        roughness[i] = primary[i] - roughness[i];
    return roughness;
}

std::vector<std::span<const double>>
CProfileSplitter::GetSamplingLengths(std::span<const double> profile) const
{
    if (!m_filter)
        return {profile};
    const auto points = static_cast<double>(profile.size());
    const auto count = static_cast<std::size_t>(points / m_cutoff * (1 + 2 * c_rounding));
    const double rest = std::max(points - static_cast<double>(count) * m_cutoff, 0.0);
    const auto getBegin = [&](std::size_t i) {
        const auto begin = std::lround(rest / 2 + static_cast<double>(i) * m_cutoff);
        return std::min(static_cast<std::size_t>(begin), profile.size());
    };
    std::vector<std::span<const double>> lengths;
    for (std::size_t i = 0; i < count; ++i)
        lengths.push_back(profile.subspan(getBegin(i), getBegin(i + 1) - getBegin(i)));
    return lengths;
}

} // namespace CommonUI::Analysis

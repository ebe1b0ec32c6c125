#include "examples/analysis/ProfileParameters.h"

#include "examples/analysis/HeightParameters.h"
#include "examples/analysis/Levelling.h"
#include "examples/analysis/ProfileElements.h"
#include "examples/analysis/Summation.h"

#include <algorithm>
#include <cmath>
#include <future>
#include <thread>

namespace SurfaceAnalysis
{

namespace
{

double ComputeSlope(std::span<const double> z, double dx)
{
    if (z.size() < 7)
        return c_undefined;
    const auto [squares, points] =
        PairwiseSum(3, z.size() - 3, [&](std::size_t i) {
            const double slope =
                (z[i + 3] - 9 * z[i + 2] + 45 * z[i + 1] - 45 * z[i - 1] + 9 * z[i - 2] - z[i - 3]) /
                (60 * dx);
            return std::isnan(slope + z[i]) ? SSums<2>{} : SSums<2>{slope * slope, 1};
        }).values;
    return std::sqrt(squares / points);
}

// The heights about their mean; empty if one is missing.
std::vector<double> GetUnbroken(std::span<const double> heights, const SHeightParameters& parameters)
{
    std::vector<double> profile;
    if (parameters.count != heights.size())
        return profile;
    profile.reserve(heights.size());
    for (const double z : heights)
        profile.push_back(z - parameters.mean);
    return profile;
}

std::vector<SValue> ComputeUnfiltered(std::span<const double> heights, double dx)
{
    const SHeightParameters h = ComputeHeightParameters(heights);
    const std::vector<double> profile = GetUnbroken(heights, h);
    return {
        {"Ra", h.average},
        {"Rq", h.rms},
        {"Rsk", h.skewness},
        {"Rku", h.kurtosis},
        {"Rp", h.GetPeak()},
        {"Rv", h.GetPit()},
        {"Rz", ComputeTenPointHeight(profile)},
        {"Rt", h.highest - h.lowest},
        {"Rmean", h.mean},
        {"Rmin", h.lowest},
        {"Rmax", h.highest},
        {"RSm", ComputeElements(profile).spacing * dx},
        {"Rdq", ComputeSlope(heights, dx)},
    };
}

std::vector<SValue> ComputePrimary(std::span<const double> heights, double dx)
{
    const SHeightParameters h = ComputeHeightParameters(heights);
    const SProfileElements elements = ComputeElements(GetUnbroken(heights, h));
    return {
        {"4287Pa", h.average},
        {"4287Pq", h.rms},
        {"4287Psk", h.skewness},
        {"4287Pku", h.kurtosis},
        {"4287Pp", h.GetPeak()},
        {"4287Pv", h.GetPit()},
        {"4287Pz", h.highest - h.lowest},
        {"4287Pc", elements.height},
        {"4287Pt", h.highest - h.lowest},
        {"4287PSm", elements.spacing * dx},
        {"4287Pdq", ComputeSlope(heights, dx)},
    };
}

} // namespace

std::vector<SValue> ComputeProfile(std::span<const double> heights, double dx)
{
    std::vector<SValue> values = ComputeUnfiltered(heights, dx);
    SSurface line{.points = heights.size(), .lines = 1, .heights{heights.begin(), heights.end()}};
    Level(line, ELevelling::Plane); // the plane of a single line is a straight line
    const std::vector<SValue> primary = ComputePrimary(line.heights, dx);
    values.insert(values.end(), primary.begin(), primary.end());
    return values;
}

std::vector<SLineValues> ComputeProfiles(const SSurface& surface)
{
    std::vector<std::vector<SValue>> lines(surface.lines);
    const auto compute = [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i)
            lines[i] = ComputeProfile(surface.GetLine(i), surface.dx);
    };
    const std::size_t threads = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, 16);
    std::vector<std::future<void>> shares;
    for (std::size_t i = 0; i < threads; ++i)
        shares.push_back(std::async(compute, surface.lines * i / threads, surface.lines * (i + 1) / threads));
    for (auto& share : shares)
        share.get();

    std::vector<SLineValues> table;
    for (const std::vector<SValue>& values : lines) {
        table.resize(values.size());
        for (std::size_t i = 0; i < values.size(); ++i) {
            table[i].key = values[i].key;
            table[i].values.push_back(values[i].value);
        }
    }
    return table;
}

} // namespace SurfaceAnalysis

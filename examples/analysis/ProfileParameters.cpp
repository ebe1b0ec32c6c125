#include "examples/analysis/ProfileParameters.h"

#include "examples/analysis/HeightParameters.h"
#include "examples/analysis/Levelling.h"
#include "examples/analysis/ProfileElements.h"
#include "examples/analysis/Summation.h"

#include <cmath>

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
    if (parameters.count != static_cast<double>(heights.size()))
        return profile;
    profile.reserve(heights.size());
    for (const double z : heights)
        profile.push_back(z - parameters.mean);
    return profile;
}

void AddUnfiltered(std::span<const double> heights, double dx, std::vector<SValue>& values)
{
    const SHeightParameters h = ComputeHeightParameters(heights);
    const std::vector<double> profile = GetUnbroken(heights, h);
    values.insert(values.end(), {
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
                                });
}

void AddPrimary(std::span<const double> heights, double dx, std::vector<SValue>& values)
{
    const SHeightParameters h = ComputeHeightParameters(heights);
    const SProfileElements elements = ComputeElements(GetUnbroken(heights, h));
    values.insert(values.end(), {
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
                                });
}

} // namespace

std::vector<SValue> ComputeProfile(std::span<const double> heights, double dx)
{
    std::vector<SValue> values;
    AddUnfiltered(heights, dx, values);
    SSurface line{.points = heights.size(), .lines = 1, .heights{heights.begin(), heights.end()}};
    Level(line, ELevelling::Plane); // the plane of a single line is a straight line
    AddPrimary(line.heights, dx, values);
    return values;
}

std::vector<SLineValues> ComputeProfiles(const SSurface& surface)
{
    std::vector<SLineValues> table;
    for (std::size_t line = 0; line < surface.lines; ++line) {
        const std::vector<SValue> values = ComputeProfile(surface.GetLine(line), surface.dx);
        table.resize(values.size());
        for (std::size_t i = 0; i < values.size(); ++i) {
            table[i].key = values[i].key;
            table[i].values.push_back(values[i].value);
        }
    }
    return table;
}

} // namespace SurfaceAnalysis

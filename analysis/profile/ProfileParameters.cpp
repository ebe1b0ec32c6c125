#include "analysis/profile/ProfileParameters.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/numeric/detail/Parallel.h"
#include "analysis/profile/Iso4287.h"
#include "analysis/profile/ProfileElements.h"

namespace CommonUI::Analysis
{

namespace
{

std::vector<SValue> ComputeUnfiltered(std::span<const double> heights, const CProfileSplitter& splitter)
{
    const double dx = splitter.GetSpacing();
    const SHeightParameters h = ComputeHeightParameters(heights);
    const std::vector<double> profile = GetUnbroken(heights, h.mean);
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
        {"RSm", ComputeElements(profile, splitter.GetLeastWidth()).spacing * dx},
        {"Rdq", ComputeSlope(heights, dx)},
    };
}

std::vector<SValue> ComputeLine(std::span<const double> heights, const CProfileSplitter& splitter)
{
    std::vector<SValue> values = ComputeUnfiltered(heights, splitter);
    const std::vector<SValue> filtered = ComputeIso4287(splitter.Split(heights), splitter);
    values.insert(values.end(), filtered.begin(), filtered.end());
    return values;
}

CProfileSplitter MakeSplitter(std::size_t points, double dx, std::optional<double> cutoff)
{
    return CProfileSplitter(points, dx, cutoff.value_or(DefaultCutoff(points, dx)));
}

} // namespace

std::vector<SValue> ComputeProfile(std::span<const double> heights, double dx, std::optional<double> cutoff)
{
    return ComputeLine(heights, MakeSplitter(heights.size(), dx, cutoff));
}

std::vector<SLineValues> ComputeProfiles(const SSurface& surface, std::optional<double> cutoff)
{
    const CProfileSplitter splitter = MakeSplitter(surface.points, surface.dx, cutoff);
    std::vector<std::vector<SValue>> lines(surface.lines);
    ComputeInShares(surface.lines, [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i)
            lines[i] = ComputeLine(surface.GetLine(i), splitter);
    });

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

} // namespace CommonUI::Analysis

#include "analysis/profile/ProfileParameters.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/numeric/detail/Parallel.h"
#include "analysis/profile/Iso4287.h"
#include "analysis/profile/ProfileElements.h"

namespace CommonUI::Analysis
{

namespace
{

// What the parameters of the profile as it is are read off.
struct SProfile {
    SHeightParameters heights{};
    double tenPointHeight = c_undefined;
    double spacing = c_undefined;
    double slope = c_undefined;
};

struct SRow {
    std::string_view key;
    double (*get)(const SProfile&);
};

constexpr SRow c_rows[] = {
    {"Ra", [](auto& p) { return p.heights.average; }},
    {"Rq", [](auto& p) { return p.heights.rms; }},
    {"Rsk", [](auto& p) { return p.heights.skewness; }},
    {"Rku", [](auto& p) { return p.heights.kurtosis; }},
    {"Rp", [](auto& p) { return p.heights.GetPeak(); }},
    {"Rv", [](auto& p) { return p.heights.GetPit(); }},
    {"Rz", [](auto& p) { return p.tenPointHeight; }},
    {"Rt", [](auto& p) { return p.heights.highest - p.heights.lowest; }},
    {"Rmean", [](auto& p) { return p.heights.mean; }},
    {"Rmin", [](auto& p) { return p.heights.lowest; }},
    {"Rmax", [](auto& p) { return p.heights.highest; }},
    {"RSm", [](auto& p) { return p.spacing; }},
    {"Rdq", [](auto& p) { return p.slope; }},
};

std::vector<SValue> ComputeLine(std::span<const double> heights, const CProfileSplitter& splitter)
{
    const double dx = splitter.GetSpacing();
    SProfile profile{.heights = ComputeHeightParameters(heights)};
    const std::vector<double> unbroken = GetUnbroken(heights, profile.heights.mean);
    profile.tenPointHeight = ComputeTenPointHeight(unbroken);
    profile.spacing = ComputeElements(unbroken, splitter.GetLeastWidth()).spacing * dx;
    profile.slope = ComputeSlope(heights, dx);
    std::vector<SValue> values;
    values.reserve(std::size(c_rows));
    for (const SRow& row : c_rows)
        values.push_back({row.key, row.get(profile)});
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

std::vector<SQuantity> GetProfileQuantities()
{
    std::vector<SQuantity> quantities;
    quantities.reserve(std::size(c_rows));
    for (const SRow& row : c_rows)
        quantities.push_back({row.key, ENeed::Heights});
    const std::vector<SQuantity> filtered = GetIso4287Quantities();
    quantities.insert(quantities.end(), filtered.begin(), filtered.end());
    return quantities;
}

std::vector<SValues> ComputeProfiles(const SSurface& surface, std::span<const std::string_view> keys,
                                     std::optional<double> cutoff)
{
    std::vector<SQuantity> wanted = GetProfileQuantities();
    std::erase_if(wanted, [keys](const SQuantity& quantity) { return !IsAmong(quantity.key, keys); });
    if (wanted.empty())
        return {};
    const bool isFiltered = std::ranges::any_of(wanted, &SQuantity::IsFiltered);
    std::vector<SValues> table = ComputeProfiles(surface, isFiltered ? cutoff : c_undefined);
    std::erase_if(table, [keys](const SValues& values) { return !IsAmong(values.key, keys); });
    return table;
}

std::vector<SValues> ComputeProfiles(const SSurface& surface, std::optional<double> cutoff)
{
    const CProfileSplitter splitter = MakeSplitter(surface.points, surface.dx, cutoff);
    std::vector<SValues> table;
    if (surface.lines == 0)
        return table;
    for (const SQuantity& quantity : GetProfileQuantities())
        table.push_back({quantity.key, std::vector<double>(surface.lines)});
    ComputeInShares(surface.lines, [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i) {
            const std::vector<SValue> values = ComputeLine(surface.GetLine(i), splitter);
            for (std::size_t k = 0; k < values.size(); ++k)
                table[k].values[i] = values[k].value;
        }
    });
    return table;
}

} // namespace CommonUI::Analysis

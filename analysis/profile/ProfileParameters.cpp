#include "analysis/profile/ProfileParameters.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/numeric/detail/Parallel.h"
#include "analysis/profile/Iso13565.h"
#include "analysis/profile/Iso4287.h"
#include "analysis/profile/ProfileElements.h"

#include <iterator>

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

std::vector<SQuantity> GetUnfilteredQuantities()
{
    std::vector<SQuantity> quantities;
    for (const SRow& row : c_rows)
        quantities.push_back({row.key, ENeed::Heights});
    return quantities;
}

// What the lines of a surface are evaluated with.
struct STools {
    STools(std::size_t points, double dx, const SProfileMethod& method)
        : splitter(points, dx, method.cutoff.value_or(DefaultCutoff(points, dx)))
        , limits(method.motifLimits.value_or(DefaultMotifLimits(points, dx)))
        , valleys(method.valleys)
    {
    }

    CProfileSplitter splitter;
    SMotifLimits limits;
    SValleyMethod valleys;
};

// A line with what several families need of it, made when the first of them asks for it.
class CLine
{
public:
    CLine(std::span<const double> heights, const STools& tools)
        : m_heights(heights)
        , m_tools(tools)
    {
    }

    const STools& GetTools() const { return m_tools; }
    std::span<const double> GetHeights() const { return m_heights; }

    const SProfiles& GetProfiles()
    {
        if (!m_profiles) {
            m_profiles = m_tools.splitter.Split(m_heights);
            m_primary = m_profiles->primary;
        }
        return *m_profiles;
    }

    // Alone it takes no filter.
    const std::vector<double>& GetPrimary()
    {
        if (!m_primary)
            m_primary = CProfileSplitter::RemoveForm(m_heights);
        return *m_primary;
    }

private:
    std::span<const double> m_heights;
    const STools& m_tools;
    std::optional<SProfiles> m_profiles{};
    std::optional<std::vector<double>> m_primary{};
};

std::vector<SValue> ComputeUnfiltered(CLine& line)
{
    const CProfileSplitter& splitter = line.GetTools().splitter;
    const double dx = splitter.GetSpacing();
    SProfile profile{.heights = ComputeHeightParameters(line.GetHeights())};
    const std::vector<double> unbroken = GetUnbroken(line.GetHeights(), profile.heights.mean);
    profile.tenPointHeight = ComputeTenPointHeight(unbroken);
    profile.spacing = ComputeElements(unbroken, splitter.GetLeastWidth()).spacing * dx;
    profile.slope = ComputeSlope(line.GetHeights(), dx);
    std::vector<SValue> values;
    values.reserve(std::size(c_rows));
    for (const SRow& row : c_rows)
        values.push_back({row.key, row.get(profile)});
    return values;
}

// Parameters that are computed together.
struct SFamily {
    std::vector<SQuantity> (*getQuantities)();
    std::vector<SValue> (*compute)(CLine& line); // in the order of the quantities
};

using enum ENeed;

constexpr SFamily c_families[] = {
    {GetUnfilteredQuantities, ComputeUnfiltered},
    {[] { return GetIso4287Quantities(RoughnessProfile); },
     [](CLine& l) {
         return ComputeIso4287(RoughnessProfile, l.GetProfiles().roughness, l.GetTools().splitter);
     }},
    {[] { return GetIso4287Quantities(WavinessProfile); },
     [](CLine& l) {
         return ComputeIso4287(WavinessProfile, l.GetProfiles().waviness, l.GetTools().splitter);
     }},
    {[] { return GetIso4287Quantities(PrimaryProfile); },
     [](CLine& l) { return ComputeIso4287(PrimaryProfile, l.GetPrimary(), l.GetTools().splitter); }},
    {GetIso13565Quantities,
     [](CLine& l) { return ComputeIso13565(l.GetTools().splitter.SplitFilled(l.GetPrimary())); }},
    {GetMotifQuantities,
     [](CLine& l) {
         return ComputeMotifs(l.GetPrimary(), l.GetTools().splitter.GetSpacing(), l.GetTools().limits);
     }},
    {GetValleyQuantities,
     [](CLine& l) { return ComputeValleys(l.GetPrimary(), l.GetTools().splitter, l.GetTools().valleys); }},
};

// The values of the families for each line.
std::vector<SValues> ComputeFamilies(const SSurface& surface, const std::vector<const SFamily*>& families,
                                     const SProfileMethod& method)
{
    const STools tools(surface.points, surface.dx, method);
    std::vector<SValues> table;
    for (const SFamily* family : families)
        for (const SQuantity& quantity : family->getQuantities())
            table.push_back({quantity.key, std::vector<double>(surface.lines)});
    ComputeInShares(surface.lines, [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i) {
            CLine line(surface.GetLine(i), tools);
            std::size_t column = 0;
            for (const SFamily* family : families)
                for (const SValue& value : family->compute(line))
                    table[column++].values[i] = value.value;
        }
    });
    return table;
}

} // namespace

std::vector<SValue> ComputeProfile(std::span<const double> heights, double dx, const SProfileMethod& method)
{
    const STools tools(heights.size(), dx, method);
    CLine line(heights, tools);
    std::vector<SValue> values;
    for (const SFamily& family : c_families)
        std::ranges::copy(family.compute(line), std::back_inserter(values));
    return values;
}

SValue ComputeProfileValue(std::span<const double> heights, double dx, std::string_view key,
                           const SProfileMethod& method)
{
    const STools tools(heights.size(), dx, method);
    CLine line(heights, tools);
    for (const SFamily& family : c_families) {
        const std::vector<SQuantity> quantities = family.getQuantities();
        const auto found = std::ranges::find(quantities, key, &SQuantity::key);
        if (found != quantities.end())
            return family.compute(line)[static_cast<std::size_t>(found - quantities.begin())];
    }
    return {"", c_undefined};
}

std::vector<SQuantity> GetProfileQuantities()
{
    std::vector<SQuantity> quantities;
    for (const SFamily& family : c_families)
        std::ranges::copy(family.getQuantities(), std::back_inserter(quantities));
    return quantities;
}

std::vector<SValues> ComputeProfiles(const SSurface& surface, std::span<const std::string_view> keys,
                                     const SProfileMethod& method)
{
    std::vector<const SFamily*> families;
    for (const SFamily& family : c_families)
        if (std::ranges::any_of(family.getQuantities(),
                                [keys](const SQuantity& quantity) { return IsAmong(quantity.key, keys); }))
            families.push_back(&family);
    if (families.empty() || surface.lines == 0)
        return {};
    std::vector<SValues> table = ComputeFamilies(surface, families, method);
    std::erase_if(table, [keys](const SValues& values) { return !IsAmong(values.key, keys); });
    return table;
}

std::vector<SValues> ComputeProfiles(const SSurface& surface, const SProfileMethod& method)
{
    std::vector<std::string_view> keys;
    for (const SQuantity& quantity : GetProfileQuantities())
        keys.push_back(quantity.key);
    return ComputeProfiles(surface, keys, method);
}

} // namespace CommonUI::Analysis

#include "analysis/areal/TemplateParameters.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/areal/MaterialRatio.h"
#include "analysis/numeric/detail/Parallel.h"
#include "analysis/profile/SplitProfile.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

using TValues = std::span<const double>;

struct SFormula {
    std::string_view name;
    std::size_t count;    // of the values
    std::size_t percents; // how many of them are percents; these come first
    double (*compute)(const CMaterialRatio& curve, double mean, TValues values);
};

double GetRatio(const CMaterialRatio& curve, double mean, TValues values)
{
    return curve.GetRatio(mean + values[0]);
}

double GetFall(const CMaterialRatio& curve, double, TValues values)
{
    return curve.GetHeight(values[0]) - curve.GetHeight(values[1]);
}

constexpr SFormula c_areal[] = {
    {"Smr", 1, 0, GetRatio},
    {"Smc", 1, 1, [](auto& curve, double mean, TValues v) { return curve.GetHeight(v[0]) - mean; }},
    {"Sdc", 2, 2, GetFall},
    {"Vm", 1, 1, [](auto& curve, double, TValues v) { return curve.GetMaterialVolume(v[0]); }},
    {"Vv", 1, 1, [](auto& curve, double, TValues v) { return curve.GetVoidVolume(v[0]); }},
    {"Sch", 1, 1, [](auto& curve, double mean, TValues v) { return curve.GetHeight(100 - v[0]) - mean; }},
};

constexpr SFormula c_profile[] = {
    {"mr", 1, 0, GetRatio},
    {"dc", 2, 2, GetFall},
    {"mr2", 2, 1,
     [](auto& curve, double, TValues v) { return curve.GetRatio(curve.GetHeight(v[0]) - v[1]); }},
};

// Null if there is none with this name or the values do not suit it.
const SFormula* FindFormula(std::span<const SFormula> formulas, std::string_view name, TValues values)
{
    const auto found = std::find_if(formulas.begin(), formulas.end(),
                                    [&](const SFormula& formula) { return formula.name == name; });
    if (found == formulas.end() || found->count != values.size())
        return nullptr;
    const auto percents = values.first(found->percents);
    const bool isSuited =
        std::none_of(values.begin(), values.end(), [](double v) { return std::isnan(v); }) &&
        std::all_of(percents.begin(), percents.end(), [](double v) { return v >= 0 && v <= 100; });
    return isSuited ? &*found : nullptr;
}

double Compute(const SFormula& formula, std::span<const double> heights, double mean, TValues values)
{
    return FindRange(heights).count == 0 ? c_undefined
                                         : formula.compute(CMaterialRatio(heights), mean, values);
}

double ComputeAboutMean(const SFormula& formula, std::span<const double> heights, TValues values)
{
    return Compute(formula, heights, ComputeHeightParameters(heights).mean, values);
}

// The family of a profile's key and the name of its formula.
std::pair<std::string_view, std::string_view> SplitKey(std::string_view key)
{
    for (const std::string_view family : {"R", "4287R", "4287W", "4287P"})
        if (key.starts_with(family))
            return {family, key.substr(family.size())};
    return {};
}

double ComputeLine(std::string_view family, const SFormula& formula, std::span<const double> heights,
                   const CProfileSplitter& splitter, TValues values)
{
    if (family == "R")
        return ComputeAboutMean(formula, heights, values);
    const SProfiles profiles = splitter.Split(heights);
    if (family == "4287P")
        return ComputeAboutMean(formula, profiles.primary, values);
    return Compute(formula, family == "4287R" ? profiles.roughness : profiles.waviness, 0, values);
}

} // namespace

double ComputeTemplate(const SSurface& surface, std::string_view key, std::span<const double> values)
{
    const SFormula* const formula = FindFormula(c_areal, key, values);
    return formula ? ComputeAboutMean(*formula, surface.heights, values) : c_undefined;
}

std::vector<double> ComputeLineTemplates(const SSurface& surface, std::string_view key,
                                         std::span<const double> values, std::optional<double> cutoff)
{
    std::vector<double> results(surface.lines, c_undefined);
    const auto [family, name] = SplitKey(key);
    const SFormula* const formula = FindFormula(c_profile, name, values);
    if (!formula)
        return results;
    const CProfileSplitter splitter(surface.points, surface.dx,
                                    cutoff.value_or(DefaultCutoff(surface.points, surface.dx)));
    ComputeInShares(surface.lines, [&, family = family](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i)
            results[i] = ComputeLine(family, *formula, surface.GetLine(i), splitter, values);
    });
    return results;
}

} // namespace CommonUI::Analysis

#include "analysis/areal/TemplateParameters.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/areal/MaterialRatio.h"
#include "analysis/numeric/detail/Parallel.h"
#include "analysis/profile/SplitProfile.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Analysis
{

namespace
{

using CInputs = std::span<const double>;

struct SFormula : SQuantity {
    std::size_t count;    // of the values
    std::size_t percents; // how many of them are percents; these come first
    double (*compute)(const CMaterialRatio& curve, double mean, CInputs values);
};

double GetRatio(const CMaterialRatio& curve, double mean, CInputs values)
{
    return curve.GetRatio(mean + values[0]);
}

double GetFall(const CMaterialRatio& curve, double, CInputs values)
{
    return curve.GetHeight(values[0]) - curve.GetHeight(values[1]);
}

double GetRatioBelow(const CMaterialRatio& curve, double, CInputs values)
{
    return curve.GetRatio(curve.GetHeight(values[0]) - values[1]);
}

using enum ENeed;

constexpr SFormula c_areal[] = {
    {{"Smr", MaterialRatio}, 1, 0, GetRatio},
    {{"Smc", MaterialRatio},
     1,
     1,
     [](auto& curve, double mean, CInputs v) { return curve.GetHeight(v[0]) - mean; }},
    {{"Sdc", MaterialRatio}, 2, 2, GetFall},
    {{"Vm", MaterialRatio},
     1,
     1,
     [](auto& curve, double, CInputs v) { return curve.GetMaterialVolume(v[0]); }},
    {{"Vv", MaterialRatio}, 1, 1, [](auto& curve, double, CInputs v) { return curve.GetVoidVolume(v[0]); }},
    {{"Sch", MaterialRatio},
     1,
     1,
     [](auto& curve, double mean, CInputs v) { return curve.GetHeight(100 - v[0]) - mean; }},
};

constexpr SFormula c_line[] = {
    {{"Rmr", MaterialRatio}, 1, 0, GetRatio},
    {{"Rdc", MaterialRatio}, 2, 2, GetFall},
    {{"Rmr2", MaterialRatio}, 2, 1, GetRatioBelow},
    {{"4287Rmr", RoughnessProfile}, 1, 0, GetRatio},
    {{"4287Rdc", RoughnessProfile}, 2, 2, GetFall},
    {{"4287Rmr2", RoughnessProfile}, 2, 1, GetRatioBelow},
    {{"4287Wmr", WavinessProfile}, 1, 0, GetRatio},
    {{"4287Wdc", WavinessProfile}, 2, 2, GetFall},
    {{"4287Wmr2", WavinessProfile}, 2, 1, GetRatioBelow},
    {{"4287Pmr", PrimaryProfile}, 1, 0, GetRatio},
    {{"4287Pdc", PrimaryProfile}, 2, 2, GetFall},
    {{"4287Pmr2", PrimaryProfile}, 2, 1, GetRatioBelow},
};

// Why the values do not suit a formula; empty if they do.
std::string_view FindFault(const SFormula& formula, CInputs values)
{
    if (formula.count != values.size())
        return "the number of inputs is not its own";
    if (std::any_of(values.begin(), values.end(), [](double v) { return std::isnan(v); }))
        return "an input is no number";
    const auto percents = values.first(formula.percents);
    return std::all_of(percents.begin(), percents.end(), [](double v) { return v >= 0 && v <= 100; })
               ? ""
               : "a material ratio lies outside 0 to 100 %";
}

// Null if there is none of this key or the values do not suit it.
const SFormula* FindFormula(std::span<const SFormula> formulas, std::string_view key, CInputs values)
{
    const auto found = std::ranges::find(formulas, key, &SFormula::key);
    return found == formulas.end() || !FindFault(*found, values).empty() ? nullptr : &*found;
}

double Compute(const SFormula& formula, std::span<const double> heights, double mean, CInputs values)
{
    return FindRange(heights).count == 0 ? c_undefined
                                         : formula.compute(CMaterialRatio(heights), mean, values);
}

double ComputeAboutMean(const SFormula& formula, std::span<const double> heights, CInputs values)
{
    return Compute(formula, heights, ComputeHeightParameters(heights).mean, values);
}

double ComputeLine(const SFormula& formula, std::span<const double> heights, const CProfileSplitter& splitter,
                   CInputs values)
{
    if (formula.need == MaterialRatio)
        return ComputeAboutMean(formula, heights, values);
    const SProfiles profiles = splitter.Split(heights);
    if (formula.need == PrimaryProfile)
        return ComputeAboutMean(formula, profiles.primary, values);
    return Compute(formula, formula.need == RoughnessProfile ? profiles.roughness : profiles.waviness, 0,
                   values);
}

} // namespace

std::vector<SQuantity> GetTemplates()
{
    return {std::begin(c_areal), std::end(c_areal)};
}

std::vector<SQuantity> GetLineTemplates()
{
    return {std::begin(c_line), std::end(c_line)};
}

std::string_view ExplainTemplate(std::string_view key, std::span<const double> values)
{
    for (const std::span<const SFormula> formulas : {std::span<const SFormula>(c_areal), {c_line}}) {
        const auto found = std::ranges::find(formulas, key, &SFormula::key);
        if (found != formulas.end())
            return FindFault(*found, values);
    }
    return {};
}

double ComputeTemplate(const SSurface& surface, std::string_view key, std::span<const double> values)
{
    const SFormula* const formula = FindFormula(c_areal, key, values);
    return formula ? ComputeAboutMean(*formula, surface.heights, values) : c_undefined;
}

std::vector<double> ComputeLineTemplates(const SSurface& surface, std::string_view key,
                                         std::span<const double> values, std::optional<double> cutoff)
{
    std::vector<double> results(surface.lines, c_undefined);
    const SFormula* const formula = FindFormula(c_line, key, values);
    if (!formula)
        return results;
    const CProfileSplitter splitter(surface.points, surface.dx,
                                    cutoff.value_or(DefaultCutoff(surface.points, surface.dx)));
    ComputeInShares(surface.lines, [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i)
            results[i] = ComputeLine(*formula, surface.GetLine(i), splitter, values);
    });
    return results;
}

} // namespace CommonUI::Analysis

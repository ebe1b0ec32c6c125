#include "analysis/areal/ArealParameters.h"

#include "analysis/areal/Autocorrelation.h"
#include "analysis/areal/detail/HybridParameters.h"
#include "analysis/areal/detail/SpectralParameters.h"
#include "analysis/areal/HeightParameters.h"
#include "analysis/areal/MaterialRatio.h"
#include "analysis/feature/FeatureParameters.h"
#include "analysis/numeric/detail/Parallel.h"

#include <algorithm>
#include <cmath>
#include <future>
#include <iterator>
#include <optional>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

// What the quantities are read off. What nothing needs is not computed.
struct SStages {
    SHeightParameters heights{};
    SHybridParameters hybrid{};
    SDecay to20{};
    SDecay to37{};
    std::optional<CMaterialRatio> curve{};
    SCore core{};
    std::vector<SValue> values{}; // that are read off by key
    std::vector<std::pair<std::string_view, double>> ofCurve{};

    double Fall(double first, double second) const
    {
        return curve->GetHeight(first) - curve->GetHeight(second);
    }
};

struct SRow : SQuantity {
    double (*get)(const SStages&) = nullptr; // none of what is read off by key
};

using enum ENeed;

constexpr SRow c_rows[] = {
    {{"Sa"}, [](auto& s) { return s.heights.average; }},
    {{"Sq"}, [](auto& s) { return s.heights.rms; }},
    {{"Ssk"}, [](auto& s) { return s.heights.skewness; }},
    {{"Sku"}, [](auto& s) { return s.heights.kurtosis; }},
    {{"Sp"}, [](auto& s) { return s.heights.GetPeak(); }},
    {{"Sv"}, [](auto& s) { return s.heights.GetPit(); }},
    {{"Sz"}, [](auto& s) { return s.heights.highest - s.heights.lowest; }},
    {{"Smean"}, [](auto& s) { return s.heights.mean; }},
    {{"Smin"}, [](auto& s) { return s.heights.lowest; }},
    {{"Smax"}, [](auto& s) { return s.heights.highest; }},
    {{"Sal", Autocorrelation}, [](auto& s) { return s.to20.shortest; }},
    {{"Str", Autocorrelation}, [](auto& s) { return s.to20.shortest / s.to20.longest; }},
    {{"Std", Spectrum}},
    {{"Scl20", Autocorrelation}, [](auto& s) { return s.to20.shortest; }},
    {{"Scl37", Autocorrelation}, [](auto& s) { return s.to37.shortest; }},
    {{"Str20", Autocorrelation}, [](auto& s) { return s.to20.shortest / s.to20.longest; }},
    {{"Str37", Autocorrelation}, [](auto& s) { return s.to37.shortest / s.to37.longest; }},
    {{"Stdi", Spectrum}},
    {{"Srw", Spectrum}},
    {{"Srwi", Spectrum}},
    {{"Sfd", Spectrum}},
    {{"Sdq", Slopes}, [](auto& s) { return s.hybrid.slope; }},
    {{"Sdr", Slopes}, [](auto& s) { return s.hybrid.excess; }},
    {{"S2A", Slopes}, [](auto& s) { return s.hybrid.projectedArea; }},
    {{"S3A", Slopes}, [](auto& s) { return s.hybrid.developedArea; }},
    {{"Sk", MaterialRatio}, [](auto& s) { return s.core.Sk; }},
    {{"Spk", MaterialRatio}, [](auto& s) { return s.core.Spk; }},
    {{"Svk", MaterialRatio}, [](auto& s) { return s.core.Svk; }},
    {{"Smr1", MaterialRatio}, [](auto& s) { return s.core.Smr1; }},
    {{"Smr2", MaterialRatio}, [](auto& s) { return s.core.Smr2; }},
    {{"Sxp", MaterialRatio}, [](auto& s) { return s.Fall(2.5, 50); }},
    {{"Vmp", MaterialRatio}, [](auto& s) { return s.curve->GetMaterialVolume(10); }},
    {{"Vmc", MaterialRatio},
     [](auto& s) { return s.curve->GetMaterialVolume(80) - s.curve->GetMaterialVolume(10); }},
    {{"Vvc", MaterialRatio}, [](auto& s) { return s.curve->GetVoidVolume(10) - s.curve->GetVoidVolume(80); }},
    {{"Vvv", MaterialRatio}, [](auto& s) { return s.curve->GetVoidVolume(80); }},
    {{"Sdc0_5", MaterialRatio}, [](auto& s) { return s.Fall(0, 5); }},
    {{"Sdc5_10", MaterialRatio}, [](auto& s) { return s.Fall(5, 10); }},
    {{"Sdc10_50", MaterialRatio}, [](auto& s) { return s.Fall(10, 50); }},
    {{"Sdc50_95", MaterialRatio}, [](auto& s) { return s.Fall(50, 95); }},
    {{"Spd", Features}},
    {{"Spc", Features}},
    {{"S5p", Features}},
    {{"S5v", Features}},
    {{"S10z", Features}},
    {{"Sda", Features}},
    {{"Sha", Features}},
    {{"Sdv", Features}},
    {{"Shv", Features}},
    {{"Count"}, [](auto& s) { return static_cast<double>(s.heights.count); }},
};

// Reads off the curve what is read off it, and lets go of it: it takes as much memory as the surface.
void ReadCurve(const std::vector<const SRow*>& rows, SStages& stages)
{
    for (const SRow* row : rows)
        if (row->need == MaterialRatio)
            stages.ofCurve.emplace_back(row->key, row->get(stages));
    stages.curve.reset();
}

SStages ComputeStages(const SSurface& surface, const std::vector<const SRow*>& rows)
{
    const auto isNeeded = [&rows](ENeed need) {
        return std::ranges::find(rows, need, [](const SRow* row) { return row->need; }) != rows.end();
    };
    SStages stages;
    // Sorting the heights takes a while.
    std::future<void> sorted;
    if (isNeeded(MaterialRatio))
        sorted = ComputeBeside([&] {
            stages.curve.emplace(surface.heights);
            stages.core = stages.curve->ComputeCore();
        });
    stages.heights = ComputeHeightParameters(surface.heights);
    if (stages.heights.count == 0)
        throw ENoPoints();
    if (isNeeded(Slopes))
        stages.hybrid = ComputeHybridParameters(surface);
    if (sorted.valid()) {
        sorted.get();
        ReadCurve(rows, stages);
    }
    if (isNeeded(Autocorrelation)) {
        const CAutocorrelation autocorrelation(surface, stages.heights.mean);
        stages.to20 = autocorrelation.ComputeDecay(0.20);
        stages.to37 = autocorrelation.ComputeDecay(0.37);
    }
    if (isNeeded(Spectrum))
        stages.values = ComputeSpectralParameters(surface);
    if (isNeeded(Features))
        std::ranges::copy(ComputeFeatureParameters(surface), std::back_inserter(stages.values));
    return stages;
}

double GetValue(const SRow& row, const SStages& stages)
{
    return row.need == MaterialRatio
               ? std::ranges::find(stages.ofCurve, row.key, [](const auto& value) { return value.first; })
                     ->second
               : row.get(stages);
}

// How far the autocorrelation of a quantity has to fall, and whether it has to in all directions.
std::string_view FindDecayReason(std::string_view key)
{
    const bool inAll = key.starts_with("Str");
    if (key.ends_with("37"))
        return inAll ? "the autocorrelation does not fall to 0.37 in all directions within the surface"
                     : "the autocorrelation does not fall to 0.37 within the surface";
    return inAll ? "the autocorrelation does not fall to 0.2 in all directions within the surface"
                 : "the autocorrelation does not fall to 0.2 within the surface";
}

// Why a quantity is not defined.
std::string_view FindReason(const SRow& row, const SSurface& surface, const SStages& stages)
{
    if (row.need == Slopes)
        return "nowhere are four neighbouring points valid";
    if (stages.heights.highest == stages.heights.lowest)
        return "the surface is flat";
    const bool isStrip = surface.points < 2 || surface.lines < 2;
    switch (row.need) {
    case Autocorrelation:
        return isStrip ? "the surface is a single line" : FindDecayReason(row.key);
    case Spectrum:
        return isStrip ? "the surface is a single line"
                       : "the surface has no waves that its size and spacing show";
    default:
        return "the surface has too few valid points";
    }
}

std::vector<SValue> Compute(const SSurface& surface, const std::vector<const SRow*>& rows)
{
    const SStages stages = ComputeStages(surface, rows);
    std::vector<SValue> values;
    values.reserve(rows.size());
    for (const SRow* row : rows) {
        if (row->get) {
            const double value = GetValue(*row, stages);
            values.push_back({row->key, value, std::isnan(value) ? FindReason(*row, surface, stages) : ""});
        } else {
            values.push_back(*std::ranges::find(stages.values, row->key, &SValue::key));
        }
    }
    return values;
}

} // namespace

std::vector<SQuantity> GetArealQuantities()
{
    return {std::begin(c_rows), std::end(c_rows)};
}

std::vector<SValue> ComputeAreal(const SSurface& surface)
{
    std::vector<const SRow*> rows;
    rows.reserve(std::size(c_rows));
    for (const SRow& row : c_rows)
        rows.push_back(&row);
    return Compute(surface, rows);
}

std::vector<SValue> ComputeAreal(const SSurface& surface, std::span<const std::string_view> keys)
{
    std::vector<const SRow*> rows;
    for (const SRow& row : c_rows)
        if (IsAmong(row.key, keys))
            rows.push_back(&row);
    return Compute(surface, rows);
}

} // namespace CommonUI::Analysis

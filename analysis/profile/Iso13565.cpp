#include "analysis/profile/Iso13565.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/areal/MaterialRatio.h"

#include <string_view>

namespace CommonUI::Analysis
{

namespace
{

struct SRow {
    std::string_view key;
    double SCore::*value;
};

constexpr SRow c_rows[] = {
    {"p13565_2Rk", &SCore::Sk},     {"p13565_2Rpk", &SCore::Spk},   {"p13565_2Rvk", &SCore::Svk},
    {"p13565_2Rmr1", &SCore::Smr1}, {"p13565_2Rmr2", &SCore::Smr2},
};

constexpr std::size_t c_leastPoints = 4; // for the straight line through the core

} // namespace

std::vector<SValue> ComputeIso13565(std::span<const double> profile)
{
    const std::size_t count = FindRange(profile).count;
    const std::string_view reason = count == 0 ? "the cut-off does not suit the profile, or it has no point"
                                    : count < c_leastPoints ? "the profile has fewer than four points"
                                                            : "";
    const SCore core = count < c_leastPoints ? SCore() : CMaterialRatio(profile).ComputeCore();
    std::vector<SValue> values;
    for (const SRow& row : c_rows)
        values.push_back({row.key, core.*row.value, reason});
    return values;
}

std::vector<SQuantity> GetIso13565Quantities()
{
    std::vector<SQuantity> quantities;
    for (const SRow& row : c_rows)
        quantities.push_back({row.key, ENeed::CoreProfile});
    return quantities;
}

} // namespace CommonUI::Analysis

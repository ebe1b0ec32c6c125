#pragma once

#include <algorithm>
#include <span>
#include <string_view>

namespace CommonUI::Analysis
{

/// Of what a quantity is computed.
enum class ENeed {
    Heights,          ///< the heights as they are
    Slopes,           ///< differences of neighbours
    MaterialRatio,    ///< the material ratio curve, for which the heights are sorted
    Autocorrelation,  ///< takes longer than all of the above
    Spectrum,         ///< of the waves in a surface; takes as long
    Features,         ///< hills and dales; takes as long
    PrimaryProfile,   ///< a line without its form
    RoughnessProfile, ///< what the profile filter holds back of it
    WavinessProfile   ///< what the profile filter lets through
};

/// A row of the tables of what is computed.
struct SQuantity {
    std::string_view key; ///< such as "Sa"; refers to a string literal
    ENeed need = ENeed::Heights;

    /// Whether it depends on the cut-off of the profile filter.
    bool IsFiltered() const noexcept
    {
        return need == ENeed::RoughnessProfile || need == ENeed::WavinessProfile;
    }
};

/// Whether a key is among others.
inline bool IsAmong(std::string_view key, std::span<const std::string_view> keys)
{
    return std::ranges::find(keys, key) != keys.end();
}

} // namespace CommonUI::Analysis

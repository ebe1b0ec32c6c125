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
    WavinessProfile,  ///< what the profile filter lets through
    CoreProfile,      ///< a line less what the profile filter lets through of it once its valleys are filled
    Motifs,           ///< the motifs of the primary profile and of its upper envelope
    Valleys           ///< what lies below a robust reference line of the primary profile
};

/// A row of the tables of what is computed.
struct SQuantity {
    std::string_view key;        ///< such as "Sa"; refers to a string literal
    ENeed need = ENeed::Heights; ///< of what it is computed

    /// Whether it depends on the cut-off of the profile filter.
    bool IsFiltered() const noexcept
    {
        using enum ENeed;
        return need == RoughnessProfile || need == WavinessProfile || need == CoreProfile || need == Valleys;
    }
};

/// Whether a key is among others.
inline bool IsAmong(std::string_view key, std::span<const std::string_view> keys)
{
    return std::ranges::find(keys, key) != keys.end();
}

} // namespace CommonUI::Analysis

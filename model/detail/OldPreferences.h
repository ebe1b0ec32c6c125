#pragma once

#include "common/ini/Inifile.h"
#include "common/Unit.h"
#include "model/Analysis.h"

#include <optional>
#include <span>
#include <string_view>

namespace CommonUI
{

/// What a key of the earlier layout became.
enum class EOldTarget { WriteToFile, WriteToDB, HeightUnit, Preprocessing, ReportOption, Parameter, Output };

/// A key of the layout in which all analyses shared one section.
struct SOldKey {
    std::u16string_view key;
    unsigned analyses; ///< bit n for analysis n
    EOldTarget target;
    int id = 0; ///< of the parameter or output

    constexpr bool IsOf(EAnalysis analysis) const
    {
        return (analyses >> static_cast<unsigned>(analysis)) & 1;
    }
};

/// All keys of the earlier layout; one that stood for several parameters has a row for each.
std::span<const SOldKey> GetOldKeys();

/// The section that has a key of the earlier layout for the analysis: the current one, or the one whose name
/// remains when "_" and the analysis's name are taken from its end. Without a value when neither has any.
std::optional<CStr> FindOldSection(CInifile& ini, EAnalysis analysis);

/// Reads a unit that is stored as a text ("nm") or as the number of a unit factor.
void ReadOldUnit(const CInifile& ini, const CStr& key, CUnit& unit);

} // namespace CommonUI

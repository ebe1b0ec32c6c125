#pragma once

#include "../../export/Export.h"
#include "../AnalysisPreferencesData.h"

#include <span>

namespace CommonUI
{

/// What the user of a selection dialog chooses besides the lists of parameters, statistics and outputs.
enum class ESelectionOption {
    HeightUnit,
    Preprocessing,
    FormRemoval,
    MufuFilter,
    MufuSeed,
    MufuRatio,
    WriteToFile,
    WriteToDB,
    Report,
    BarParameter,
    BarCount,
    BarAutoScale,
    BarLower,
    BarUpper,
    BarLimitsOn,
    BarLowerLimit,
    BarUpperLimit
};

/// All options, in the order of their numbers.
COMMONUI_API std::span<const ESelectionOption> GetSelectionOptions();

/// Whether the preferences have the option, and the application lets its users choose it. The form removal
/// and the MUFU options are those of profiles.
COMMONUI_API bool HasSelectionOption(const CAnalysisPreferencesData& data, ESelectionOption option);

/// The option as a number: that of an enumerator, 1 or 0 of a switch, a value at unit factor 1, and of the
/// unit of heights that of its factor. 0 where the preferences do not have it.
COMMONUI_API double GetSelectionOption(const CAnalysisPreferencesData& data, ESelectionOption option);

/// Gives the option a number.
/// @return false, and nothing changes, where the preferences do not have the option, or for a number that it
///     cannot have
COMMONUI_API bool SetSelectionOption(CAnalysisPreferencesData& data, ESelectionOption option, double number);

} // namespace CommonUI

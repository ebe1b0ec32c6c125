#pragma once

#include "../../export/Export.h"
#include "SelectionTab.h"

#include <vector>

namespace CommonUI
{

/// What of the grains' settings a form shows; the ids of the options are these numbers.
enum class EGrainOption { Kind = 100, Threshold, Value, MinimumArea, MinimumPoints, IncludeEdge };

/// The options of a tab with their values; the ids are the numbers of ESelectionOption and EGrainOption.
COMMONUI_API std::vector<SDialogOption> MakeTabOptions(ESelectionTab tab, const SSelectionSubject& subject);

/// The options of a tab that belong to the preferences, those of the grains not being preferences.
COMMONUI_API std::vector<ESelectionOption> GetTabOptions(ESelectionTab tab,
                                                         const CAnalysisPreferencesData& data);

/// Gives an option of the grains a number. A threshold of another kind starts with the value of its own kind:
/// the middle of percentages, and 0 of heights.
COMMONUI_API void SetGrainOption(SGrainThresholdSettings& settings, EGrainOption option, double number);

} // namespace CommonUI

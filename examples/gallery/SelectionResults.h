#pragma once

#include "model/AnalysisPreferencesManager.h"
#include "output/results/GridBaseOutputCtrl.h"
#include "output/results/ResultSet.h"
#include "settings/readers/GrainThresholdSettings.h"

namespace Gallery
{

/// Fills a table, in place of what it had, with what the preferences of an analysis ask for: computed of a
/// made-up surface for roughness, profiles and grains. Of the other analyses, which the library does not
/// compute, the values are made up.
void FillSelectionResults(const CommonUI::CAnalysisPreferencesManager& manager, CommonUI::EAnalysis analysis,
                          const CommonUI::SGrainThresholdSettings& grains,
                          CommonUI::CGridBaseOutputCtrl& table);

/// Whether the library computes an analysis.
bool IsComputed(CommonUI::EAnalysis analysis);
/// The same values of an analysis that is computed, for a result dialog.
CommonUI::SResultSet MakeSelectionResults(const CommonUI::CAnalysisPreferencesManager& manager,
                                          CommonUI::EAnalysis analysis,
                                          const CommonUI::SGrainThresholdSettings& grains);

} // namespace Gallery

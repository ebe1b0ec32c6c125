#pragma once

#include "model/Analysis.h"
#include "model/AnalysisPreferencesData.h"
#include "model/Parameter.h"

#include <string_view>
#include <vector>

namespace CommonUI
{

/// What an analysis is called and starts with, its lists aside.
struct SAnalysisDefaults {
    std::u16string_view iniName;
    int textId;
    bool writeToFile;
    bool writeToDB;
    std::u16string_view heightUnit;
    ERoughnessPreprocessingOptions preprocessing;
};

/// Null for a number that is no analysis.
const SAnalysisDefaults* FindAnalysisDefaults(EAnalysis analysis);

/// The lists that an analysis starts with, each in the order of its catalogue; see docs/analysis-defaults.md.
std::vector<CParameter> MakeDefaultParameters(EAnalysis analysis);
std::vector<CParameter> MakeDefaultStatistics(EAnalysis analysis);
std::vector<CParameter> MakeDefaultOutputs(EAnalysis analysis);

} // namespace CommonUI

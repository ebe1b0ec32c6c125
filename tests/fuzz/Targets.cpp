#include "tests/fuzz/Targets.h"

namespace Fuzz
{

std::span<const STarget> GetTargets()
{
    static constexpr STarget c_targets[] = {
        {"analysis-preferences", RunAnalysisPreferences, 30},
        {"animation", RunAnimation},
        {"batch-sequence", RunBatchSequence},
        {"color-scale", RunColorScale},
        {"command-line", RunCommandLine},
        {"filter", RunFilter},
        {"grain-threshold", RunGrainThreshold},
        {"ini-merge", RunIniMerge, 300},
        {"inifile", RunInifile},
        {"number-format", RunNumberFormat},
        {"number-text", RunNumberText},
        {"parameter-list", RunParameterList, 300},
        {"plane-correction", RunPlaneCorrection},
        {"preference-change", RunPreferenceChange, 100},
        {"preferences", RunPreferences},
        {"report-template", RunReportTemplate},
        {"roughness", RunRoughness, 500},
        {"surface", RunSurface, 500},
        {"text-format", RunTextFormat},
        {"tokens", RunTokens},
        {"user-specification", RunUserSpecification},
        {"x3p-description", RunX3pDescription, 500},
        {"xml", RunXml},
    };
    return c_targets;
}

} // namespace Fuzz

#include "model/Enumerations.h"

namespace CommonUI
{

namespace
{

constexpr SEnumRow c_analysisStandards[] = {
    {.value = 0, .iniName = u"None", .textId = 7808},
    {.value = 1, .iniName = u"VORNLegacy", .textId = 7810},
    {.value = 2, .iniName = u"ISO4287", .textId = 7812},
    {.value = 4, .iniName = u"ISO13565", .textId = 7814},
    {.value = 3, .iniName = u"ISO12085", .textId = 7816},
    {.value = 5, .iniName = u"MUFU", .textId = 0, .literal = u"MUFU"},
    {.value = 6, .iniName = u"RoughnessPlugIns", .textId = 7818},
};

constexpr SEnumRow c_roughnessFormRemoval[] = {
    {.value = 0, .iniName = u"Mean", .textId = 7449},
    {.value = 1, .iniName = u"Line", .textId = 7770},
    {.value = 2, .iniName = u"Parabola", .textId = 7771},
};

constexpr SEnumRow c_roughnessReportOption[] = {
    {.value = 0, .iniName = u"None", .textId = 7959},
    {.value = 1, .iniName = u"Word", .textId = 7960},
    {.value = 2, .iniName = u"HTML", .textId = 7961},
};

constexpr SEnumRow c_statistics[] = {
    {.value = 0, .iniName = u"None", .textId = 7331},
    {.value = 14, .iniName = u"Count", .textId = 7467},
    {.value = 16, .iniName = u"Total", .textId = 7446},
    {.value = 3, .iniName = u"Sum", .textId = 7962},
    {.value = 1, .iniName = u"Minimum", .textId = 7447},
    {.value = 2, .iniName = u"Maximum", .textId = 7448},
    {.value = 4, .iniName = u"Mean", .textId = 7449},
    {.value = 5, .iniName = u"Sd", .textId = 7450},
    {.value = 6, .iniName = u"SdPercent ", .textId = 7807},
    {.value = 7, .iniName = u"Median", .textId = 7451},
    {.value = 8, .iniName = u"Fractile", .textId = 7452},
    {.value = 9, .iniName = u"Mode", .textId = 7453},
    {.value = 10, .iniName = u"MeanWeightArea", .textId = 7454},
    {.value = 12, .iniName = u"SDWeightArea", .textId = 7455},
    {.value = 11, .iniName = u"MeanWeightVolume", .textId = 7456},
    {.value = 13, .iniName = u"SDWeightVolume", .textId = 7457},
    {.value = 15, .iniName = u"EntryCount", .textId = 0, .literal = u"EntryCount"},
};

constexpr SEnumRow c_tipEstimationArea[] = {
    {.value = 0, .iniName = u"teaWidth", .textId = 7468},
    {.value = 1, .iniName = u"teaDepth10", .textId = 7469},
    {.value = 2, .iniName = u"teaDepth20", .textId = 7470},
    {.value = 3, .iniName = u"teaDepth50", .textId = 7471},
    {.value = 4, .iniName = u"teaDepth100", .textId = 7472},
    {.value = 5, .iniName = u"teaDepth150", .textId = 7473},
};

constexpr SEnumRow c_mUFUFilterType[] = {
    {.value = 0, .iniName = u"None", .textId = 7331},
    {.value = 1, .iniName = u"RGR0", .textId = 7799},
    {.value = 2, .iniName = u"RGR2", .textId = 7768},
};

constexpr SEnumRow c_mUFURobustSeed[] = {
    {.value = 0, .iniName = u"Seed_Closing", .textId = 7769},
};

constexpr SEnumRow c_mUFUClosingCutOffRatio[] = {
    {.value = 0, .iniName = u"1", .textId = 0, .literal = u"1"},
    {.value = 1, .iniName = u"1_5", .textId = 0, .literal = u"1.5"},
    {.value = 2, .iniName = u"2", .textId = 0, .literal = u"2"},
    {.value = 3, .iniName = u"3", .textId = 0, .literal = u"3"},
    {.value = 4, .iniName = u"4", .textId = 0, .literal = u"4"},
    {.value = 5, .iniName = u"5", .textId = 0, .literal = u"5"},
};

constexpr SEnumRow c_measureSummaryItems[] = {
    {.value = 0, .iniName = u"msiGrainSettings", .textId = 7475},
    {.value = 1, .iniName = u"msiGrainTime", .textId = 7476},
    {.value = 2, .iniName = u"msiGrainStatus", .textId = 7477},
    {.value = 3, .iniName = u"msiCoverage", .textId = 7478},
    {.value = 4, .iniName = u"msiSegmentCount", .textId = 7479},
    {.value = 5, .iniName = u"msiModeNormalizedSegmentCount", .textId = 7480},
    {.value = 6, .iniName = u"msiFileName", .textId = 7481},
};

} // namespace

const CEnum<EAnalysisStandards>& GetAnalysisStandardsEnum()
{
    return GetEnumOfRows<EAnalysisStandards, c_analysisStandards>();
}

const CEnum<ERoughnessFormRemoval>& GetRoughnessFormRemovalEnum()
{
    return GetEnumOfRows<ERoughnessFormRemoval, c_roughnessFormRemoval>();
}

const CEnum<ERoughnessReportOption>& GetRoughnessReportOptionEnum()
{
    return GetEnumOfRows<ERoughnessReportOption, c_roughnessReportOption>();
}

const CEnum<EStatistics>& GetStatisticsEnum()
{
    return GetEnumOfRows<EStatistics, c_statistics>();
}

const CEnum<ETipEstimationArea>& GetTipEstimationAreaEnum()
{
    return GetEnumOfRows<ETipEstimationArea, c_tipEstimationArea>();
}

const CEnum<EMUFUFilterType>& GetMUFUFilterTypeEnum()
{
    return GetEnumOfRows<EMUFUFilterType, c_mUFUFilterType>();
}

const CEnum<EMUFURobustSeed>& GetMUFURobustSeedEnum()
{
    return GetEnumOfRows<EMUFURobustSeed, c_mUFURobustSeed>();
}

const CEnum<EMUFUClosingCutOffRatio>& GetMUFUClosingCutOffRatioEnum()
{
    return GetEnumOfRows<EMUFUClosingCutOffRatio, c_mUFUClosingCutOffRatio>();
}

const CEnum<EMeasureSummaryItems>& GetMeasureSummaryItemsEnum()
{
    return GetEnumOfRows<EMeasureSummaryItems, c_measureSummaryItems>();
}

} // namespace CommonUI

#pragma once

#include "../common/Enum.h"
#include "../export/Export.h"

namespace CommonUI
{

/// The standard to which a roughness parameter belongs.
enum class EAnalysisStandards {
    None = 0,
    VORNLegacy = 1, ///< the parameters of earlier versions: the areal ones, and profile ones without a filter
    ISO4287 = 2,
    ISO12085 = 3, ///< listed behind ISO13565
    ISO13565 = 4,
    MUFU = 5,            ///< valleys of a profile that hold a lubricant
    RoughnessPlugIns = 6 ///< parameters that plug-ins compute
};

/// The form that a profile roughness analysis removes before it evaluates.
enum class ERoughnessFormRemoval { Mean = 0, Line = 1, Parabola = 2 };

/// Where a roughness analysis sends its report.
enum class ERoughnessReportOption { None = 0, Word = 1, HTML = 2 };

/// The statistics that can be computed over a set of results. Their display order is not the numeric one.
enum class EStatistics {
    None = 0, ///< no statistic
    Minimum = 1,
    Maximum = 2,
    Sum = 3,
    Mean = 4,
    Sd = 5,        ///< standard deviation
    SdPercent = 6, ///< its key ends in a blank, as earlier files have it
    Median = 7,
    Fractile = 8,          ///< the value below which a given share of the values lies
    Mode = 9,              ///< the commonest value
    MeanWeightArea = 10,   ///< mean, weighted with the areas of the grains
    MeanWeightVolume = 11, ///< mean, weighted with their volumes
    SDWeightArea = 12,     ///< standard deviation, weighted with their areas
    SDWeightVolume = 13,   ///< standard deviation, weighted with their volumes
    Count = 14,
    EntryCount = 15,
    Total = 16
};

/// Which part of the image serves the estimation of a tip's shape: a width that the user gives, or what lies
/// within a depth below the tip's apex.
enum class ETipEstimationArea {
    Width = 0,
    Depth10 = 1,
    Depth20 = 2,
    Depth50 = 3,
    Depth100 = 4,
    Depth150 = 5
};

/// The filter in front of a MUFU evaluation: robust Gaussian regression of order 0 or 2, then a morphological
/// closing.
enum class EMUFUFilterType { None = 0, RGR0 = 1, RGR2 = 2 };

/// From what the robust regression of a MUFU evaluation starts.
enum class EMUFURobustSeed { Closing = 0 };

/// The ratio of the filter's cut-off to the length of the closing; the value 1.5 has the key "1_5".
enum class EMUFUClosingCutOffRatio {
    Ratio1 = 0,
    Ratio1_5 = 1,
    Ratio2 = 2,
    Ratio3 = 3,
    Ratio4 = 4,
    Ratio5 = 5
};

/// The lines of a grain analysis's summary.
enum class EMeasureSummaryItems {
    GrainSettings = 0,
    GrainTime = 1,
    GrainStatus = 2,
    Coverage = 3,
    SegmentCount = 4,
    ModeNormalizedSegmentCount = 5,
    FileName = 6
};

/// Each accessor builds its enumeration on the first call, with the texts of the language that is installed
/// then, and returns the same object ever after. Any thread may call.
COMMONUI_API const CEnum<EAnalysisStandards>& GetAnalysisStandardsEnum();
/// The forms that a profile roughness analysis can remove.
COMMONUI_API const CEnum<ERoughnessFormRemoval>& GetRoughnessFormRemovalEnum();
/// Where reports can go.
COMMONUI_API const CEnum<ERoughnessReportOption>& GetRoughnessReportOptionEnum();
/// The statistics, in the order in which they are shown.
COMMONUI_API const CEnum<EStatistics>& GetStatisticsEnum();
/// The parts of an image that can serve the estimation of a tip.
COMMONUI_API const CEnum<ETipEstimationArea>& GetTipEstimationAreaEnum();
/// The filters in front of a MUFU evaluation.
COMMONUI_API const CEnum<EMUFUFilterType>& GetMUFUFilterTypeEnum();
/// What the robust regression can start from.
COMMONUI_API const CEnum<EMUFURobustSeed>& GetMUFURobustSeedEnum();
/// The ratios of the filter's cut-off to the length of the closing.
COMMONUI_API const CEnum<EMUFUClosingCutOffRatio>& GetMUFUClosingCutOffRatioEnum();
/// The lines of a grain analysis's summary.
COMMONUI_API const CEnum<EMeasureSummaryItems>& GetMeasureSummaryItemsEnum();

} // namespace CommonUI

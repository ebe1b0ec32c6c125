#pragma once

#include "../common/Enum.h"
#include "../export/Export.h"

namespace CommonUI
{

/// The kind of tool that a settings set is for, and what its sets hold where the library reads them. The
/// numbers 14 and 15 are not given.
enum class ESettingType : int {
    Batch = 0,  ///< SBatchSequenceSettings
    Filter = 1, ///< SFilterSettings
    FFT = 2,
    Force = 3,
    PlaneCorr = 4,    ///< SPlaneCorrectionSettings
    ColorScale = 5,   ///< SColorScale
    PnP = 6,          ///< particles and pores: SGrainThresholdSettings
    ActiveReport = 7, ///< SReportTemplateSettings
    LinearityCorrection = 8,
    ZCalibration = 9,
    UnitCell = 10,
    ZCalibrationReference = 11,
    UnitCellReference = 12,
    Animation = 13,        ///< SAnimationSettings
    ProfileRoughness = 17, ///< SaveRoughnessSettings
    ImageRoughness = 16,   ///< the same
    Unknown = 18,
};

/// Where the user finds a settings set.
enum class ESettingCategory : int {
    All = -1,
    Recent = 0,
    Custom = 1,
    QuickLaunch = 2,
    Example = 3,
};

/// The types in the order of menus; Unknown stands for every number and key that is no type's.
COMMONUI_API const CEnum<ESettingType>& GetSettingTypeEnum();
/// The categories; All stands for every number and key that is no category's.
COMMONUI_API const CEnum<ESettingCategory>& GetSettingCategoryEnum();

} // namespace CommonUI

#pragma once

#include "../common/Enum.h"
#include "../export/Export.h"

namespace CommonUI
{

/// The kind of tool that a settings set is for. The numbers 14 and 15 are not given.
enum class ESettingType : int {
    Batch = 0,
    Filter = 1,
    FFT = 2,
    Force = 3,
    PlaneCorr = 4,
    ColorScale = 5,
    PnP = 6,
    ActiveReport = 7,
    LinearityCorrection = 8,
    ZCalibration = 9,
    UnitCell = 10,
    ZCalibrationReference = 11,
    UnitCellReference = 12,
    Animation = 13,
    ProfileRoughness = 17,
    ImageRoughness = 16,
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

#include "settings/catalogue/BuiltInSettingText.h"

#include "settings/catalogue/detail/BuiltInContents.h"

namespace CommonUI
{

namespace
{

void WriteContents(EBuiltInSetting setting, CInifile& ini)
{
    switch (GetSettingType(setting)) {
    case ESettingType::PlaneCorr:
        return WriteBuiltInPlaneCorrection(setting, ini);
    case ESettingType::ActiveReport:
        return WriteBuiltInReportTemplate(setting, ini);
    case ESettingType::Batch:
        return WriteBuiltInBatchSequence(setting, ini);
    case ESettingType::ImageRoughness:
        return WriteBuiltInImageRoughness(setting, ini);
    case ESettingType::ProfileRoughness:
        return WriteBuiltInProfileRoughness(setting, ini);
    case ESettingType::Filter:
        return WriteBuiltInFilter(setting, ini);
    case ESettingType::ColorScale:
        return WriteBuiltInColorScale(setting, ini);
    case ESettingType::PnP:
        return WriteBuiltInGrainThresholds(setting, ini);
    case ESettingType::Animation:
        return WriteBuiltInAnimation(setting, ini);
    default:
        return;
    }
}

} // namespace

CStr GetBuiltInSettingText(EBuiltInSetting setting)
{
    CInifile ini;
    WriteContents(setting, ini);
    return CStr::FromUtf8(ini.GetBytes());
}

} // namespace CommonUI

#include "settings/readers/AnimationSettings.h"
#include "settings/readers/BatchSequenceSettings.h"
#include "settings/readers/ColorScale.h"
#include "settings/readers/FilterSettings.h"
#include "settings/readers/GrainThresholdSettings.h"
#include "settings/readers/PlaneCorrectionSettings.h"
#include "settings/readers/ReportTemplateSettings.h"
#include "settings/readers/RoughnessSettings.h"
#include "tests/settings/SettingsTesting.h"

#include <set>

using namespace CommonUI;

namespace
{

// What the reader of the set's type makes of it, written again; empty for a set that it refuses.
template<class TSettings>
std::string ReadAndWritten(CInifile& ini)
{
    TSettings settings;
    CInifile written;
    if (settings.Load(ini))
        settings.Save(written);
    return written.GetBytes();
}

std::string RoughnessReadAndWritten(CInifile& ini, EAnalysis analysis)
{
    CRoughnessAnalysisPreferencesData data(analysis);
    CInifile written;
    if (LoadRoughnessSettings(ini, data))
        SaveRoughnessSettings(data, written);
    return written.GetBytes();
}

std::string ReadAndWritten(CInifile& ini, ESettingType type)
{
    switch (type) {
    case ESettingType::ActiveReport:
        return ReadAndWritten<SReportTemplateSettings>(ini);
    case ESettingType::Batch:
        return ReadAndWritten<SBatchSequenceSettings>(ini);
    case ESettingType::PlaneCorr:
        return ReadAndWritten<SPlaneCorrectionSettings>(ini);
    case ESettingType::ImageRoughness:
        return RoughnessReadAndWritten(ini, EAnalysis::Roughness);
    case ESettingType::ProfileRoughness:
        return RoughnessReadAndWritten(ini, EAnalysis::RoughnessProfile);
    case ESettingType::Filter:
        return ReadAndWritten<SFilterSettings>(ini);
    case ESettingType::ColorScale:
        return ReadAndWritten<SColorScale>(ini);
    case ESettingType::PnP:
        return ReadAndWritten<SGrainThresholdSettings>(ini);
    case ESettingType::Animation:
        return ReadAndWritten<SAnimationSettings>(ini);
    default:
        return {};
    }
}

} // namespace

TEST(BuiltInContents, AreReadByTheirTypesAndDifferFromEachOther)
{
    std::set<std::string> texts;
    for (const auto& row : GetBuiltInSettingEnum()) {
        const EBuiltInSetting setting{row.GetValue()};
        CInifile ini = Document(GetBuiltInSettingText(setting));
        const std::string text = GetBuiltInSettingText(setting).ToUtf8();
        EXPECT_FALSE(text.empty());
        EXPECT_EQ(ReadAndWritten(ini, GetSettingType(setting)), text);
        EXPECT_TRUE(texts.insert(text).second) << text;
    }
}

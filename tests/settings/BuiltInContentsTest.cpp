#include "settings/readers/AnimationSettings.h"
#include "settings/readers/BatchSequenceSettings.h"
#include "settings/readers/ColorScale.h"
#include "settings/readers/FilterSettings.h"
#include "settings/readers/GrainThresholdSettings.h"
#include "settings/readers/PlaneCorrectionSettings.h"
#include "settings/readers/ReportTemplateSettings.h"
#include "settings/readers/RoughnessSettings.h"
#include "tests/settings/SettingsTesting.h"
#include "tests/TestData.h"

#include <algorithm>
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

std::vector<EBuiltInSetting> Settings()
{
    std::vector<EBuiltInSetting> settings;
    for (const auto& row : GetBuiltInSettingEnum())
        settings.push_back(EBuiltInSetting{row.GetValue()});
    return settings;
}

std::string DefaultRoughnessText()
{
    CInifile ini;
    SaveRoughnessSettings(CRoughnessAnalysisPreferencesData(EAnalysis::Roughness), ini);
    SaveRoughnessSettings(CRoughnessAnalysisPreferencesData(EAnalysis::RoughnessProfile), ini);
    return ini.GetBytes();
}

// A set in one line, without what the preferences of the roughness analyses have by default: that is on
// record with them.
std::string LineOf(EBuiltInSetting setting)
{
    static const std::vector<std::string> defaults = SplitText(DefaultRoughnessText(), '\n');
    std::string text = std::to_string(static_cast<int>(setting));
    for (const std::string& line : SplitText(GetBuiltInSettingText(setting).ToUtf8(), '\n'))
        if (line.starts_with('[') || std::ranges::find(defaults, line) == defaults.end())
            text += " | " + line;
    return text;
}

} // namespace

// What is stored: a change here changes what people's sequences do.
TEST(BuiltInContents, AreThoseOnRecord)
{
    std::vector<std::string> lines;
    for (const EBuiltInSetting setting : Settings())
        lines.push_back(LineOf(setting));
    EXPECT_EQ(lines, ReadTestLines("built-in-contents.txt"));
}

TEST(BuiltInContents, AreReadByTheirTypesAndDifferFromEachOther)
{
    std::set<std::string> texts;
    for (const EBuiltInSetting setting : Settings()) {
        CInifile ini = Document(GetBuiltInSettingText(setting));
        const std::string text = GetBuiltInSettingText(setting).ToUtf8();
        EXPECT_FALSE(text.empty());
        EXPECT_EQ(ReadAndWritten(ini, GetSettingType(setting)), text);
        EXPECT_TRUE(texts.insert(text).second) << text;
    }
}

TEST(BuiltInContents, StepsOfSequencesApplySetsThatCanBeRead)
{
    for (const EBuiltInSetting setting : Settings()) {
        if (GetSettingType(setting) != ESettingType::Batch)
            continue;
        CInifile ini = Document(GetBuiltInSettingText(setting));
        SBatchSequenceSettings sequence;
        ASSERT_TRUE(sequence.Load(ini));
        for (const SBatchStep& step : sequence.steps) {
            if (step.operation != EBatchOperation::Apply)
                continue;
            const std::u16string_view key = step.settings.View().substr(std::size("BUILT-IN:") - 1);
            const EBuiltInSetting applied = GetBuiltInSettingEnum().GetValue(key);
            EXPECT_EQ(GetSettingType(applied), step.type);
            EXPECT_NE(step.type, ESettingType::Batch);
            CInifile appliedIni = Document(GetBuiltInSettingText(applied));
            EXPECT_FALSE(ReadAndWritten(appliedIni, step.type).empty());
        }
    }
}

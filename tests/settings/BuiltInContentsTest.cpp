#include "ReaderTesting.h"
#include "settings/AnimationSettings.h"
#include "settings/BatchSequenceSettings.h"
#include "settings/ColorScale.h"
#include "settings/GrainThresholdSettings.h"
#include "settings/PlaneCorrectionSettings.h"
#include "settings/ReportTemplateSettings.h"
#include "settings/RoughnessSettings.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

using namespace CommonUI;

namespace
{

std::vector<std::string> LinesOf(std::istream&& text)
{
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    return lines;
}

/// What the reader of the set's type makes of it, written again; empty for a set that it refuses.
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

/// All but plane corrections and filters, which are on record in a file of their own.
std::vector<EBuiltInSetting> Settings()
{
    std::vector<EBuiltInSetting> settings;
    for (const auto& row : GetBuiltInSettingEnum()) {
        const EBuiltInSetting setting{row.GetValue()};
        if (const ESettingType type = GetSettingType(setting);
            type != ESettingType::PlaneCorr && type != ESettingType::Filter)
            settings.push_back(setting);
    }
    return settings;
}

std::string DefaultRoughnessText()
{
    CInifile ini;
    SaveRoughnessSettings(CRoughnessAnalysisPreferencesData(EAnalysis::Roughness), ini);
    SaveRoughnessSettings(CRoughnessAnalysisPreferencesData(EAnalysis::RoughnessProfile), ini);
    return ini.GetBytes();
}

/// A set in one line, without what the preferences of the roughness analyses have by default: that is on
/// record with them.
std::string LineOf(EBuiltInSetting setting)
{
    static const std::vector<std::string> defaults = LinesOf(std::istringstream(DefaultRoughnessText()));
    std::string text = std::to_string(static_cast<int>(setting));
    for (const std::string& line : LinesOf(std::istringstream(GetBuiltInSettingText(setting).ToUtf8())))
        if (line.starts_with('[') || std::ranges::find(defaults, line) == defaults.end())
            text += " | " + line;
    return text;
}

} // namespace

TEST(BuiltInContents, AreThoseOnRecord)
{
    std::vector<std::string> lines;
    for (const EBuiltInSetting setting : Settings())
        lines.push_back(LineOf(setting));
    const auto record = LinesOf(std::ifstream(COMMONUI_TEST_DATA "/built-in-contents.txt"));
    ASSERT_EQ(lines.size(), record.size());
    for (std::size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(lines[i], record[i]);
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

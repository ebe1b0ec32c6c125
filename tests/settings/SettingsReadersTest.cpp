#include "settings/readers/AnimationSettings.h"
#include "settings/readers/BatchSequenceSettings.h"
#include "settings/readers/ColorScale.h"
#include "settings/readers/FilterSettings.h"
#include "settings/readers/GrainThresholdSettings.h"
#include "settings/readers/PlaneCorrectionSettings.h"
#include "settings/readers/ReportTemplateSettings.h"
#include "settings/readers/RoughnessSettings.h"
#include "tests/settings/SettingsTesting.h"

#include <map>
#include <set>

using namespace CommonUI;

namespace
{

// What the reader of a type makes of a set, written again; none for a set that it refuses.
using FReadAndWrite = std::optional<std::string> (*)(CInifile&);

// By way of built-in settings that differ from the default, and that a refused set leaves as they are.
template<class TSettings, int Number>
std::optional<std::string> ReadAndWrite(CInifile& ini)
{
    CInifile builtIn = Document(GetBuiltInSettingText(EBuiltInSetting{Number}));
    TSettings before;
    EXPECT_TRUE(before.Load(builtIn));
    TSettings settings = before;
    const bool isRead = settings.Load(ini);
    EXPECT_TRUE(isRead || settings == before);
    EXPECT_TRUE(ini.GetSection().IsEmpty());
    return isRead ? std::optional(Bytes(settings)) : std::nullopt;
}

template<EAnalysis Tool>
std::optional<std::string> ReadAndWriteRoughness(CInifile& ini)
{
    CRoughnessAnalysisPreferencesData data(Tool);
    data.SetFormRemoval(ERoughnessFormRemoval::Parabola);
    data.ClearModified();
    const auto before = data.Clone();
    if (!LoadRoughnessSettings(ini, data)) {
        EXPECT_TRUE(data.Compare(*before) == CAnalysisPreferencesData::SDifferences() && !data.IsModified());
        return {};
    }
    CInifile written;
    SaveRoughnessSettings(data, written);
    return written.GetBytes();
}

const std::map<ESettingType, FReadAndWrite> c_readers = {
    {ESettingType::ActiveReport, ReadAndWrite<SReportTemplateSettings, 22>},
    {ESettingType::Animation, ReadAndWrite<SAnimationSettings, 199>},
    {ESettingType::Batch, ReadAndWrite<SBatchSequenceSettings, 52>},
    {ESettingType::ColorScale, ReadAndWrite<SColorScale, 176>},
    {ESettingType::Filter, ReadAndWrite<SFilterSettings, 83>},
    {ESettingType::ImageRoughness, ReadAndWriteRoughness<EAnalysis::Roughness>},
    {ESettingType::PlaneCorr, ReadAndWrite<SPlaneCorrectionSettings, 2>},
    {ESettingType::PnP, ReadAndWrite<SGrainThresholdSettings, 197>},
    {ESettingType::ProfileRoughness, ReadAndWriteRoughness<EAnalysis::RoughnessProfile>},
};

} // namespace

// Each text of the record stands on a line behind its type; the lines below it say what is written again,
// behind "=>", or why it is refused.
TEST(SettingsReaders, ReadOrRefuseAsTheRecordSays)
{
    const std::vector<std::string> lines = ReadTestLines("settings-readers.txt");
    EXPECT_GT(lines.size(), 200u);
    for (auto line = lines.begin(); line != lines.end();) {
        SCOPED_TRACE(*line);
        const std::string type = line->substr(0, line->find(' '));
        const auto toText = [](const std::string& text) {
            return CStr::FromUtf8(text).Replace(u" | ", u"\n").TrimLeft();
        };
        CInifile ini = Document(toText(line->substr(type.size())));
        CDiagnosticsCapture warnings(u"Inifile");
        const auto written = c_readers.at(GetSettingTypeEnum().GetValue(CStr::FromUtf8(type)))(ini);
        std::vector<CStr> said;
        if (written)
            said.push_back(u" => " +
                           CStr::FromUtf8(written->substr(0, written->size() - 1)).Replace(u"\n", u" | "));
        for (const CStr& warning : warnings.Take())
            said.push_back(warning.Replace(u"Settings:", u""));
        std::vector<CStr> expected;
        while (++line != lines.end() && line->starts_with(" "))
            expected.push_back(CStr::FromUtf8(*line));
        EXPECT_EQ(said, expected);
    }
}

TEST(SettingsReaders, ReadBuiltInSetsWhichDifferFromEachOther)
{
    std::set<std::string> texts;
    for (const auto& row : GetBuiltInSettingEnum()) {
        const EBuiltInSetting setting{row.GetValue()};
        CInifile ini = Document(GetBuiltInSettingText(setting));
        const std::string text = GetBuiltInSettingText(setting).ToUtf8();
        EXPECT_EQ(c_readers.at(GetSettingType(setting))(ini), text);
        EXPECT_TRUE(texts.insert(text).second) << text;
    }
}

TEST(SettingsReaders, SavingReplacesTheSetAndNothingElse)
{
    CInifile ini = Document(u"; mine\n[PlaneCorrection]\n; note\nScope=Profile\nOrder=7\n[Other]\nKey=1\n");
    ini.SelectSection(u"Other");
    const SPlaneCorrectionSettings set{Analysis::ECorrectionScope::Linewise,
                                       Analysis::ECorrectionMethod::Offset};
    set.Save(ini);
    EXPECT_EQ(ini.GetBytes(),
              "; mine\n[PlaneCorrection]\n; note\nScope=Linewise\nMethod=Offset\n[Other]\nKey=1\n");
    EXPECT_EQ(ini.GetSection(), u"Other");
}

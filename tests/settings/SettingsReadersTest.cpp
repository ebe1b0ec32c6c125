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
    CInifile written;
    if (!LoadRoughnessSettings(ini, data))
        return {};
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

template<class TSettings>
void ExpectSaved(const TSettings& settings, const char* bytes)
{
    EXPECT_EQ(Bytes(settings), bytes);
    CInifile ini = Document(CStr::FromUtf8(bytes));
    TSettings read;
    EXPECT_TRUE(read.Load(ini));
    EXPECT_EQ(read, settings);
}

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

TEST(SettingsReaders, ReadWhatWasSaved)
{
    ExpectSaved(
        SBatchSequenceSettings{
            .steps = {{.type = ESettingType::Filter, .settings = u"FILE:C:\\sets\\my filter.flt"},
                      {.operation = EBatchOperation::InterpolateVoids},
                      {.operation = EBatchOperation::ShowProfiles, .profiles = 3},
                      {.type = ESettingType::ColorScale, .settings = u"BUILT-IN:CSQuickLaunchGrey"}}},
        "[Batch]\nStep1=Apply\nStep1_Type=Filter\nStep1_Settings=FILE:C:\\sets\\my filter.flt\n"
        "Step2=InterpolateVoids\nStep3=ShowProfiles\nStep3_Profiles=3\n"
        "Step4=Apply\nStep4_Type=ColorScale\nStep4_Settings=BUILT-IN:CSQuickLaunchGrey\n");
    ExpectSaved(SGrainThresholdSettings{.kind = Analysis::EGrainKind::Pore,
                                        .threshold = EGrainThreshold::Absolute,
                                        .value = -1.5e-7,
                                        .minimumArea = 2e-12,
                                        .minimumPoints = 9,
                                        .includeEdgeGrains = false},
                "[GrainThreshold]\nSide=Pores\nThreshold=Absolute\nValue=-1.5e-07\n"
                "MinimumArea=2e-12\nMinimumPoints=9\nIncludeEdgeGrains=0\n");
    ExpectSaved(
        SReportTemplateSettings{
            .format = EReportFormat::Doc,
            .orientation = EReportOrientation::Landscape,
            .scope = EReportScope::Batch,
            .columns = 3,
            .margin = 12.5,
            .title = u" Größe, \"Form\" ",
            .grainQuantities = {EMeasureParameters::Volume, EMeasureParameters::MaxHeight},
            .blocks = {EReportBlock::GrainTable, EReportBlock::Title, EReportBlock::GrainTable}},
        "[ReportTemplate]\nFormat=Doc\nOrientation=Landscape\nScope=Batch\nColumns=3\n"
        "Margin=12.5\nTitle=\" Größe, \\\"Form\\\" \"\nGrainQuantities=Volume,MaxHeight\n"
        "Blocks=GrainTable,Title,GrainTable\n");
    ExpectSaved(SColorScale{.interpolation = EColorInterpolation::Stripes,
                            .stops = {{0, {}}, {0.1, {200, 0, 0}}, {1.0 / 3, {0, 100, 0}}},
                            .missing = SColor{1, 2, 3},
                            .below = SColor{0, 0, 50},
                            .above = {}},
                "[ColorScale]\nInterpolation=Stripes\nMissing=1,2,3\nBelow=0,0,50\n"
                "Stop1=0,0,0,0\nStop2=0.1,200,0,0\nStop3=0.3333333333333333,0,100,0\n");
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

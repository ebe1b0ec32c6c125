#include "settings/readers/AnimationSettings.h"
#include "settings/readers/BatchSequenceSettings.h"
#include "settings/readers/ColorScale.h"
#include "settings/readers/FilterSettings.h"
#include "settings/readers/GrainThresholdSettings.h"
#include "settings/readers/PlaneCorrectionSettings.h"
#include "settings/readers/ReportTemplateSettings.h"
#include "tests/settings/SettingsTesting.h"
#include "tests/TestData.h"

#include <map>

using namespace CommonUI;

namespace
{

// Checks what a reader says of a text, and that it takes a refused text for nothing at all.
template<class TSettings, int BuiltInNumber>
void ExpectReads(const CStr& text, const std::vector<CStr>& reasons)
{
    SCOPED_TRACE(text.ToUtf8());
    const auto before = BuiltIn<TSettings>(BuiltInNumber);
    CDiagnosticsCapture refusals(u"Inifile");
    TSettings settings = before;
    CInifile ini = Document(text);
    EXPECT_EQ(settings.Load(ini), reasons.empty());
    EXPECT_EQ(settings == before, !reasons.empty());
    EXPECT_TRUE(ini.GetSection().IsEmpty());
    EXPECT_EQ(refusals.Take(), reasons);
}

template<class TSettings>
void ExpectSaved(const TSettings& settings, const char* bytes)
{
    CInifile ini;
    settings.Save(ini);
    EXPECT_EQ(ini.GetBytes(), bytes);
    TSettings read;
    EXPECT_TRUE(read.Load(ini));
    EXPECT_EQ(read, settings);
}

} // namespace

// Each text of the record stands on a line behind its type; the lines below it say why it is refused.
TEST(SettingsReaders, RefuseWhatIsUnusableAsTheRecordSays)
{
    const std::map<std::string, void (*)(const CStr&, const std::vector<CStr>&)> checks = {
        {"ActiveReport", ExpectReads<SReportTemplateSettings, 22>},
        {"Animation", ExpectReads<SAnimationSettings, 199>},
        {"Batch", ExpectReads<SBatchSequenceSettings, 52>},
        {"ColorScale", ExpectReads<SColorScale, 170>},
        {"Filter", ExpectReads<SFilterSettings, 83>},
        {"PlaneCorr", ExpectReads<SPlaneCorrectionSettings, 2>},
        {"PnP", ExpectReads<SGrainThresholdSettings, 197>},
    };
    const std::vector<std::string> lines = ReadTestLines("settings-readers.txt");
    EXPECT_GT(lines.size(), 200u);
    for (auto line = lines.begin(); line != lines.end();) {
        const std::string type = line->substr(0, line->find(' '));
        const CStr text = CStr::FromUtf8(line->substr(type.size())).Replace(u" | ", u"\n");
        std::vector<CStr> reasons;
        while (++line != lines.end() && line->starts_with(" "))
            reasons.push_back(u"Settings:" + CStr::FromUtf8(*line));
        checks.at(type)(text, reasons);
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
}

TEST(SettingsReaders, GrainThresholdsHaveDefaultsForWhatIsNotSaid)
{
    SGrainThresholdSettings read{.kind = Analysis::EGrainKind::Pore, .value = 7, .minimumPoints = 3};
    CInifile ini = Document(u"[GrainThreshold]\n");
    EXPECT_TRUE(read.Load(ini));
    EXPECT_EQ(read, SGrainThresholdSettings());
}

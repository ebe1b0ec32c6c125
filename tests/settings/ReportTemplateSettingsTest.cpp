#include "settings/ReportTemplateSettings.h"

#include "SettingTextTesting.h"

using namespace CommonUI;

TEST(ReportTemplateSettings, SavesAndLoads)
{
    const SReportTemplateSettings settings{
        .format = EReportFormat::Doc,
        .orientation = EReportOrientation::Landscape,
        .scope = EReportScope::Batch,
        .columns = 3,
        .margin = 12.5,
        .title = u" Größe, \"Form\" ",
        .grainQuantities = {EMeasureParameters::Volume, EMeasureParameters::MaxHeight},
        .blocks = {EReportBlock::GrainTable, EReportBlock::Title, EReportBlock::GrainTable}};
    CInifile ini;
    settings.Save(ini);
    EXPECT_EQ(ini.GetBytes(),
              "[ReportTemplate]\nFormat=Doc\nOrientation=Landscape\nScope=Batch\nColumns=3\n"
              "Margin=12.5\nTitle=\" Größe, \\\"Form\\\" \"\nGrainQuantities=Volume,MaxHeight\n"
              "Blocks=GrainTable,Title,GrainTable\n");
    SReportTemplateSettings read;
    EXPECT_TRUE(read.Load(ini));
    EXPECT_EQ(read, settings);
}

TEST(ReportTemplateSettings, RefusesWhatIsUnusable)
{
    const std::string good = "[ReportTemplate]\nBlocks=Title,Image\n";
    std::string tooMany = "[ReportTemplate]\nBlocks=Title";
    for (std::size_t i = 0; i < SReportTemplateSettings::c_mostBlocks; ++i)
        tooMany += ",Image";
    ExpectReads(SReportTemplateSettings{.columns = 2}, "ActiveReport: [ReportTemplate] ",
                {
                    {good},
                    {good + "GrainQuantities=\n"},
                    {"<html>\n", {"there is no such section"}},
                    {"[ReportTemplate]\n", {"Blocks: there is none"}},
                    {"[ReportTemplate]\nBlocks=\n", {"Blocks: there is none"}},
                    {"[ReportTemplate]\nBlocks=Title,Sound\n", {"Blocks: there is no \"Sound\""}},
                    {"[ReportTemplate]\nBlocks=Title,\"Image\n", {"Blocks: there is no \"\""}},
                    {tooMany, {"Blocks: there are too many"}},
                    {good + "GrainQuantities=Volume,Taste\n", {"GrainQuantities: there is no \"Taste\""}},
                    {good + "Columns=5\nMargin=-1\n",
                     {"Columns: no integer from 1 to 4", "Margin: no number from 0 to 100"}},
                    {good + "Format=PDF\n", {"Format: there is no \"PDF\""}},
                });
}

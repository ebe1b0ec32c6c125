#include "settings/ReportTemplateSettings.h"

#include "ReaderTesting.h"

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
    std::string tooMany = "Blocks=Title";
    for (std::size_t i = 0; i < SReportTemplateSettings::c_mostBlocks; ++i)
        tooMany += ",Image";
    ExpectReads(
        SReportTemplateSettings{.columns = 2}, "ReportTemplate",
        {
            {good},
            {good + "GrainQuantities=\n"},
            {"<html>\n", {"Blocks= is not a list of 1 to 64 blocks"}},
            {"[ReportTemplate]\nBlocks=\n", {"Blocks= is not a list of 1 to 64 blocks"}},
            {"[ReportTemplate]\nBlocks=Title,Sound\n",
             {"Blocks=Title,Sound is not a list of choices that are known"}},
            {"[ReportTemplate]\nBlocks=Title,\"Image\n",
             {"Blocks=Title,\"Image is not a list of choices that are known"}},
            {"[ReportTemplate]\n" + tooMany + "\n", {tooMany + " is not a list of 1 to 64 blocks"}},
            {good + "GrainQuantities=Volume,Taste\n",
             {"GrainQuantities=Volume,Taste is not a list of choices that are known"}},
            {good + "Columns=5\nMargin=-1\n",
             {"Columns=5 is not a whole number from 1 to 4", "Margin=-1 is not a number from 0 to 100"}},
            {good + "Format=PDF\n", {"Format=PDF is not a choice that is known"}},
        });
}

#include "settings/BatchSequenceSettings.h"

#include "ReaderTesting.h"

using namespace CommonUI;

TEST(BatchSequenceSettings, SavesAndLoads)
{
    const SBatchSequenceSettings settings{
        .steps = {{.type = ESettingType::Filter, .settings = u"FILE:C:\\sets\\my filter.flt"},
                  {.operation = EBatchOperation::InterpolateVoids},
                  {.operation = EBatchOperation::ShowProfiles, .profiles = 3},
                  {.type = ESettingType::ColorScale, .settings = u"BUILT-IN:CSQuickLaunchGrey"}}};
    CInifile ini;
    settings.Save(ini);
    EXPECT_EQ(ini.GetBytes(),
              "[Batch]\nStep1=Apply\nStep1_Type=Filter\nStep1_Settings=FILE:C:\\sets\\my filter.flt\n"
              "Step2=InterpolateVoids\nStep3=ShowProfiles\nStep3_Profiles=3\n"
              "Step4=Apply\nStep4_Type=ColorScale\nStep4_Settings=BUILT-IN:CSQuickLaunchGrey\n");
    SBatchSequenceSettings read;
    EXPECT_TRUE(read.Load(ini));
    EXPECT_EQ(read, settings);
}

TEST(BatchSequenceSettings, RefusesWhatIsUnusable)
{
    const auto apply = [](const std::string& type, const std::string& settings) {
        return "[Batch]\nStep1=Apply\nStep1_Type=" + type + "\nStep1_Settings=" + settings + "\n";
    };
    const auto noSet = [](const std::string& settings) {
        return std::vector<std::string>{"Step1_Settings=" + settings + " is not a set of this type"};
    };
    const auto noType = [](const std::string& type) {
        return std::vector<std::string>{"Step1_Type=" + type + " is not a type that a step can apply"};
    };
    ExpectReads(SBatchSequenceSettings{}, "Batch",
                {
                    {apply("Filter", "FILE:x")}, // whether there is such a file is seen when the step is done
                    {"[Batch]\nStep1=ShowProfiles\nStep3=nonsense\n"},
                    {"", {"no step"}},
                    {"[Batch]\n", {"no step"}},
                    {"[Batch]\nStep1=apply\n", {"Step1=apply is not a choice that is known"}},
                    {"[Batch]\nStep1=Apply\n", {"Step1_Type= is not a choice that is known"}},
                    {apply("Unknown", "FILE:x"), noType("Unknown")},
                    {apply("Batch", "BUILT-IN:bisBatchQuickLaunchBasicDoc"), noType("Batch")},
                    {apply("Filters", "FILE:x"), {"Step1_Type=Filters is not a choice that is known"}},
                    {apply("Filter", ""), noSet("")},
                    {apply("Filter", "FILE:"), noSet("FILE:")},
                    {apply("Filter", "x.flt"), noSet("x.flt")},
                    {apply("Filter", "BUILT-IN:CSQuickLaunchGray"), noSet("BUILT-IN:CSQuickLaunchGray")},
                    {apply("Filter", "BUILT-IN:CSQuickLaunchGrey"), noSet("BUILT-IN:CSQuickLaunchGrey")},
                    {"[Batch]\nStep1=ShowProfiles\nStep1_Profiles=0\n",
                     {"Step1_Profiles=0 is not a whole number from 1 to 16"}},
                });
}

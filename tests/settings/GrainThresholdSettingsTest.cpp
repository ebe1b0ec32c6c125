#include "settings/GrainThresholdSettings.h"

#include "ReaderTesting.h"

using namespace CommonUI;

TEST(GrainThresholdSettings, SavesAndLoads)
{
    const SGrainThresholdSettings settings{.side = EGrainSide::Pores,
                                           .threshold = EGrainThreshold::Absolute,
                                           .value = -1.5e-7,
                                           .minimumArea = 2e-12,
                                           .minimumPoints = 9,
                                           .includeEdgeGrains = false};
    CInifile ini;
    settings.Save(ini);
    EXPECT_EQ(ini.GetBytes(), "[GrainThreshold]\nSide=Pores\nThreshold=Absolute\nValue=-1.5e-07\n"
                              "MinimumArea=2e-12\nMinimumPoints=9\nIncludeEdgeGrains=0\n");
    SGrainThresholdSettings read;
    EXPECT_TRUE(read.Load(ini));
    EXPECT_EQ(read, settings);
}

TEST(GrainThresholdSettings, DefaultsForWhatIsNotSaid)
{
    SGrainThresholdSettings read{.side = EGrainSide::Pores, .value = 7, .minimumPoints = 3};
    CInifile ini = Document(u"[GrainThreshold]\n");
    EXPECT_TRUE(read.Load(ini));
    EXPECT_EQ(read, SGrainThresholdSettings());
}

TEST(GrainThresholdSettings, RefusesWhatIsUnusable)
{
    const std::string section = "[GrainThreshold]\n";
    const std::string absolute = section + "Threshold=Absolute\n";
    ExpectReads(
        SGrainThresholdSettings{.value = 12}, "GrainThreshold",
        {
            {absolute + "Value=-1e300\n"},
            {section + "Threshold=Otsu\nValue=1000\n"},
            {"[Other]\n", {"there is no such section"}},
            {absolute + "Value=1 nm\n", {"Value=1 nm is not a number from -1.79769E+308 to 1.79769E+308"}},
            {absolute + "Value=inf\n", {"Value=inf is not a number from -1.79769E+308 to 1.79769E+308"}},
            {section + "Value=101\n", {"Value=101 is not a number from 0 to 100"}},
            {section + "Threshold=Percentile\nValue=-1\n", {"Value=-1 is not a number from 0 to 100"}},
            {section + "Threshold=\nSide=Islands\n",
             {"Side=Islands is not a choice that is known", "Threshold= is not a choice that is known"}},
            {section + "MinimumArea=-1\n", {"MinimumArea=-1 is not a number from 0 to 1.79769E+308"}},
            {section + "MinimumPoints=0\n", {"MinimumPoints=0 is not a whole number from 1 to 2147483647"}},
            {section + "MinimumPoints=1.5\n",
             {"MinimumPoints=1.5 is not a whole number from 1 to 2147483647"}},
            {section + "IncludeEdgeGrains=maybe\n", {"IncludeEdgeGrains=maybe is not 1 or 0"}},
        });
}

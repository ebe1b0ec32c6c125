#include "model/Enumerations.h"

#include <gtest/gtest.h>

#include <vector>

using namespace CommonUI;

namespace
{

struct SRow {
    int value;
    const char16_t* key;
    const char16_t* text;
};

using CRows = std::vector<SRow>;

/// Everything that files and lists see of an enumeration, in order.
template<class E>
void ExpectRows(const CEnum<E>& values, const CRows& rows)
{
    ASSERT_EQ(values.GetCount(), rows.size());
    auto value = values.begin();
    for (const SRow& row : rows) {
        SCOPED_TRACE(CStr(row.key).ToUtf8());
        EXPECT_EQ(value->GetValue(), row.value);
        EXPECT_EQ(value->GetIniName(), row.key);
        EXPECT_EQ(value->GetFriendlyString(), row.text);
        EXPECT_EQ(value->GetShortFriendlyString(), row.text);
        EXPECT_EQ(value->GetStandard(), 0);
        ++value;
    }
    EXPECT_TRUE(values.GetIniName(99).IsEmpty());
    EXPECT_TRUE(values.GetShortFriendlyString(99).IsEmpty());
    EXPECT_EQ(values.Find(99), values.end());
}

} // namespace

TEST(Enumerations, RowsStandAsFilesAndListsKnowThem)
{
    ExpectRows(GetAnalysisStandardsEnum(), {{0, u"None", u"No Standard"},
                                            {1, u"VORNLegacy", u"VORN Classic"},
                                            {2, u"ISO4287", u"ISO 4287"},
                                            {4, u"ISO13565", u"ISO 13565-2"},
                                            {3, u"ISO12085", u"ISO 12085"},
                                            {5, u"MUFU", u"MUFU"},
                                            {6, u"RoughnessPlugIns", u"Plug-in Parameters"}});
    ExpectRows(GetRoughnessFormRemovalEnum(),
               {{0, u"Mean", u"Mean"}, {1, u"Line", u"Line"}, {2, u"Parabola", u"Parabola"}});
    ExpectRows(GetRoughnessReportOptionEnum(),
               {{0, u"None", u"No Report"}, {1, u"Word", u"To Word"}, {2, u"HTML", u"To HTML"}});
    ExpectRows(GetStatisticsEnum(), {{0, u"None", u"None"},
                                     {14, u"Count", u"Count"},
                                     {16, u"Total", u"Total"},
                                     {3, u"Sum", u"Sum"},
                                     {1, u"Minimum", u"Minimum"},
                                     {2, u"Maximum", u"Maximum"},
                                     {4, u"Mean", u"Mean"},
                                     {5, u"Sd", u"Std. Dev."},
                                     {6, u"SdPercent ", u"Std. Dev. %"},
                                     {7, u"Median", u"Median"},
                                     {8, u"Fractile", u"Percentile"},
                                     {9, u"Mode", u"Mode"},
                                     {10, u"MeanWeightArea", u"Area Weighted Mean"},
                                     {12, u"SDWeightArea", u"Area Weighted Std. Dev."},
                                     {11, u"MeanWeightVolume", u"Volume Weighted Mean"},
                                     {13, u"SDWeightVolume", u"Volume Weighted Std. Dev."},
                                     {15, u"EntryCount", u"EntryCount"}});
    ExpectRows(GetTipEstimationAreaEnum(), {{0, u"teaWidth", u"User Defined Width"},
                                            {1, u"teaDepth10", u"10 nm Depth"},
                                            {2, u"teaDepth20", u"20 nm Depth"},
                                            {3, u"teaDepth50", u"50 nm Depth"},
                                            {4, u"teaDepth100", u"100 nm Depth"},
                                            {5, u"teaDepth150", u"150 nm Depth"}});
    ExpectRows(
        GetMUFUFilterTypeEnum(),
        {{0, u"None", u"None"}, {1, u"RGR0", u"RGR0 with closing"}, {2, u"RGR2", u"RGR2 with closing"}});
    ExpectRows(GetMUFURobustSeedEnum(), {{0, u"Seed_Closing", u"Closing"}});
    ExpectRows(GetMUFUClosingCutOffRatioEnum(), {{0, u"1", u"1"},
                                                 {1, u"1_5", u"1.5"},
                                                 {2, u"2", u"2"},
                                                 {3, u"3", u"3"},
                                                 {4, u"4", u"4"},
                                                 {5, u"5", u"5"}});
    ExpectRows(GetMeasureSummaryItemsEnum(),
               {{0, u"msiGrainSettings", u"Particle & Pore Analysis Settings"},
                {1, u"msiGrainTime", u"Particle & Pore Analysis Time"},
                {2, u"msiGrainStatus", u"Particle & Pore Analysis Status"},
                {3, u"msiCoverage", u"Coverage"},
                {4, u"msiSegmentCount", u"Shape Count"},
                {5, u"msiModeNormalizedSegmentCount", u"Mode Normalized Shape Count"},
                {6, u"msiFileName", u"File Name"}});
}

TEST(Enumerations, AreBuiltOnce)
{
    EXPECT_EQ(&GetStatisticsEnum(), &GetStatisticsEnum());
    EXPECT_EQ(&GetAnalysisStandardsEnum(), &GetAnalysisStandardsEnum());
}

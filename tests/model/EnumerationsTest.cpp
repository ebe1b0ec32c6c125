#include "model/Enumerations.h"
#include "model/MeasureParameters.h"
#include "model/Parameter.h"

#include <gtest/gtest.h>

#include "tests/TestData.h"

using namespace CommonUI;

namespace
{

// What files and lists see of a value: number, key and text.
std::string Describe(const CEnumValue<int>& value)
{
    EXPECT_EQ(value.GetStandard(), 0);
    EXPECT_EQ(value.GetShortFriendlyString(), value.GetFriendlyString());
    return CStr::Format(u"%d|%s|%s", value.GetValue(), value.GetIniName(), value.GetFriendlyString())
        .ToUtf8();
}

template<class T>
std::string DescribeAll(const char* name, const CEnum<T>& values)
{
    std::string lines = "[" + std::string(name) + "]\n";
    for (const auto& value : values)
        lines += Describe(value) + "\n";
    EXPECT_TRUE(values.GetIniName(99).IsEmpty() && values.GetShortFriendlyString(99).IsEmpty());
    EXPECT_EQ(values.Find(99), values.end());
    return lines;
}

std::string Physics(int number)
{
    const auto parameter = static_cast<EMeasureParameters>(number);
    double lower = 77;
    double upper = 77;
    MeasureParameter2NaturalLimits(parameter, lower, upper);
    return CStr::Format(u"|%d|%G|%G", MeasureParameter2Dimension(parameter), lower, upper).ToUtf8();
}

} // namespace

TEST(Enumerations, RowsStandAsFilesAndListsKnowThem)
{
    std::string lines = DescribeAll("GetAnalysisStandardsEnum", GetAnalysisStandardsEnum());
    lines += DescribeAll("GetRoughnessFormRemovalEnum", GetRoughnessFormRemovalEnum());
    lines += DescribeAll("GetRoughnessReportOptionEnum", GetRoughnessReportOptionEnum());
    lines += DescribeAll("GetStatisticsEnum", GetStatisticsEnum());
    lines += DescribeAll("GetTipEstimationAreaEnum", GetTipEstimationAreaEnum());
    lines += DescribeAll("GetMUFUFilterTypeEnum", GetMUFUFilterTypeEnum());
    lines += DescribeAll("GetMUFURobustSeedEnum", GetMUFURobustSeedEnum());
    lines += DescribeAll("GetMUFUClosingCutOffRatioEnum", GetMUFUClosingCutOffRatioEnum());
    lines += DescribeAll("GetMeasureSummaryItemsEnum", GetMeasureSummaryItemsEnum());
    lines += DescribeAll("GetFormatSpecifierEnum", GetFormatSpecifierEnum());
    EXPECT_EQ(lines, ReadTestData("enumerations.txt"));
    EXPECT_EQ(&GetStatisticsEnum(), &GetStatisticsEnum());
}

TEST(MeasureParameters, CatalogueHasItsRowsInDisplayOrder)
{
    std::string lines;
    for (const auto& value : GetMeasureParametersEnum())
        lines += Describe(value) + Physics(value) + "\n";
    EXPECT_EQ(lines, ReadTestData("measure-parameters.txt"));
    auto output = GetMeasureOutputsEnum().begin();
    for (CEnumValue<int> value : GetMeasureParametersEnum()) {
        value.SetIniName(value.GetIniName() + u"Out");
        EXPECT_EQ(Describe(*output++), Describe(value));
    }
    EXPECT_EQ(output, GetMeasureOutputsEnum().end());
}

TEST(MeasureParameters, NumbersOutsideTheCatalogue)
{
    for (const int missing : {66, 67, 68, 69, 71, 74, 80, -1}) {
        EXPECT_TRUE(GetMeasureParametersEnum().GetFriendlyString(missing).IsEmpty()) << missing;
        EXPECT_EQ(Physics(missing), missing == 71 ? "|5|0|NAN" : "|0|NAN|NAN") << missing;
    }
}

#include "model/MeasureParameters.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace CommonUI;

namespace
{

constexpr double c_none = CParameter::c_NoLimit;

struct SMeasureRow {
    int value;
    const char16_t* key;
    const char16_t* text;
    int dimension;
    double lower;
    double upper;
};

constexpr SMeasureRow c_rows[] = {
    {0, u"None", u"None", 0, c_none, c_none},
    {1, u"Type", u"Type", 0, 0, 2},
    {2, u"PlateauIndex", u"Plateau Index", 0, -1, 1},
    {3, u"Length", u"Length", 1, 0, c_none},
    {4, u"Breadth", u"Breadth", 1, 0, c_none},
    {5, u"XExtent", u"X Extent", 2, 0, c_none},
    {6, u"YExtent", u"Y Extent", 3, 0, c_none},
    {7, u"HeywoodDiameter", u"Diameter", 1, 0, c_none},
    {8, u"HeywoodRadius", u"Radius", 1, 0, c_none},
    {9, u"Perimeter", u"Perimeter", 1, 0, c_none},
    {10, u"MaxFeret", u"Maximum Caliber", 1, 0, c_none},
    {11, u"FiberWidth", u"Fiber Width", 1, 0, c_none},
    {12, u"FiberLength", u"Fiber Length", 1, 0, c_none},
    {13, u"TotalFiberLength", u"Skeleton Length", 1, 0, c_none},
    {14, u"AreaExHoles", u"Area", 5, 0, c_none},
    {72, u"CGAreaX", u"X Center of Gravity, Area", 2, c_none, c_none},
    {73, u"CGAreaY", u"Y Center of Gravity, Area", 3, c_none, c_none},
    {48, u"CGPolygonX", u"X Geometric Center", 2, c_none, c_none},
    {49, u"CGPolygonY", u"Y Geometric Center", 3, c_none, c_none},
    {50, u"CGVolumeX", u"X Center of Gravity, Material", 2, c_none, c_none},
    {51, u"CGVolumeY", u"Y Center of Gravity, Material", 3, c_none, c_none},
    {52, u"CGVoidVolumeX", u"X Center of Gravity, Void", 2, c_none, c_none},
    {53, u"CGVoidVolumeY", u"Y Center of Gravity, Void", 3, c_none, c_none},
    {15, u"MatVoidVolume", u"Volume", 6, 0, c_none},
    {16, u"Volume", u"Material Volume", 6, 0, c_none},
    {17, u"VoidVolume", u"Void Volume", 6, 0, c_none},
    {18, u"NettoVolume", u"Net Volume", 6, c_none, c_none},
    {19, u"MaxHeight", u"Maximum Height", 4, 0, c_none},
    {20, u"AverageHeight", u"Mean Height", 4, 0, c_none},
    {21, u"MedianHeight", u"Median Height", 4, 0, c_none},
    {22, u"StdHeight", u"Std. Dev. of Height", 4, 0, c_none},
    {23, u"MaxDepth", u"Maximum Depth", 4, 0, c_none},
    {24, u"AverageDepth", u"Mean Depth", 4, 0, c_none},
    {25, u"MedianDepth", u"Median Depth", 4, 0, c_none},
    {26, u"SDDepth", u"Std. Dev. of Depth", 4, 0, c_none},
    {27, u"MinAbsHeight", u"Z Minimum", 4, c_none, c_none},
    {28, u"MaxAbsHeight", u"Z Maximum", 4, c_none, c_none},
    {29, u"RangeAbsHeight", u"Z Range", 4, c_none, c_none},
    {31, u"MedianAbsHeight", u"Z Median", 4, c_none, c_none},
    {30, u"MeanAbsHeight", u"Z Mean", 4, c_none, c_none},
    {32, u"SdAbsHeight", u"Z Std. Dev.", 4, 0, c_none},
    {34, u"AbsMaterialVolume", u"Z Material Volume", 6, 0, c_none},
    {35, u"AbsVoidVolume", u"Z Void Volume", 6, 0, c_none},
    {36, u"AbsNetVolume", u"Z Net Volume", 6, c_none, c_none},
    {33, u"AbsMatVoidVolume", u"Z Volume", 6, 0, c_none},
    {37, u"MinCntrHeight", u"Minimum Contour Height", 4, c_none, c_none},
    {38, u"MaxCntrHeight", u"Maximum Contour Height", 4, c_none, c_none},
    {39, u"AveCntrHeight", u"Mean Contour Height", 4, c_none, c_none},
    {40, u"AspectRatio", u"Aspect Ratio", 0, 1, c_none},
    {41, u"Orientation", u"Orientation", 9, 0, 180},
    {42, u"Roundness", u"Roundness", 0, 0, 1},
    {43, u"FormFactor", u"Form Factor", 0, 0, 1},
    {44, u"Compactness", u"Compactness", 0, 0, 1},
    {45, u"Convexity", u"Convexity", 0, 0, 1},
    {46, u"Elongation", u"Elongation", 0, 0, 1},
    {47, u"Solidity", u"Solidity", 0, 0, 1},
    {70, u"AreaPixel", u"Pixel Area", 0, c_none, c_none},
    {65, u"Angle", u"Angle", 9, -180, 180},
    {54, u"MinZPosX", u"X Position, Z Min", 2, c_none, c_none},
    {55, u"MinZPosY", u"Y Position, Z Min", 3, c_none, c_none},
    {56, u"MaxZPosX", u"X Position, Z Max", 2, c_none, c_none},
    {57, u"MaxZPosY", u"Y Position, Z Max", 3, c_none, c_none},
    {58, u"BoundRectMinX", u"X Min", 2, c_none, c_none},
    {60, u"BoundRectMinY", u"Y Min", 3, c_none, c_none},
    {59, u"BoundRectMaxX", u"X Max", 2, c_none, c_none},
    {61, u"BoundRectMaxY", u"Y Max", 3, c_none, c_none},
    {62, u"NearestNeighbourID", u"Neighbour Id", 0, 0, c_none},
    {63, u"NearestNeighbourDist", u"Neighbour Distance", 1, 0, c_none},
    {64, u"NearestNeighbourAngle", u"Neighbour Angle", 9, -180, 180},
    {75, u"ID", u"ID", 0, c_none, c_none},
};

void ExpectPhysics(const SMeasureRow& row)
{
    const auto parameter = static_cast<EMeasureParameters>(row.value);
    EXPECT_EQ(static_cast<int>(MeasureParameter2Dimension(parameter)), row.dimension) << row.value;
    double lower = 77;
    double upper = 77;
    MeasureParameter2NaturalLimits(parameter, lower, upper);
    const auto same = [](double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); };
    EXPECT_TRUE(same(lower, row.lower) && same(upper, row.upper))
        << row.value << ": " << lower << ", " << upper;
}

} // namespace

TEST(MeasureParameters, CatalogueHasItsRowsInDisplayOrder)
{
    ASSERT_EQ(GetMeasureParametersEnum().GetCount(), std::size(c_rows));
    auto value = GetMeasureParametersEnum().begin();
    auto output = GetMeasureOutputsEnum().begin();
    for (const SMeasureRow& row : c_rows) {
        EXPECT_EQ(value->GetValue(), row.value);
        EXPECT_EQ(value->GetIniName(), row.key);
        EXPECT_EQ(value->GetFriendlyString(), row.text);
        EXPECT_EQ(value->GetStandard(), 0);
        EXPECT_EQ(output->GetValue(), row.value);
        EXPECT_EQ(output->GetIniName(), CStr(row.key) + u"Out");
        EXPECT_EQ(output->GetFriendlyString(), row.text);
        ExpectPhysics(row);
        ++value;
        ++output;
    }
    EXPECT_EQ(output, GetMeasureOutputsEnum().end());
}

TEST(MeasureParameters, NumbersOutsideTheCatalogue)
{
    for (const int missing : {66, 67, 68, 69, 71, 74, 80, -1})
        EXPECT_TRUE(GetMeasureParametersEnum().GetFriendlyString(missing).IsEmpty()) << missing;
    ExpectPhysics({71, u"", u"", 5, 0, c_none});
    ExpectPhysics({74, u"", u"", 0, c_none, c_none});
    ExpectPhysics({80, u"", u"", 0, c_none, c_none});
    ExpectPhysics({-1, u"", u"", 0, c_none, c_none});
}

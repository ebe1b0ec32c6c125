#include "model/MeasureParameters.h"

#include <algorithm>
#include <iterator>

namespace CommonUI
{

namespace
{

using EDimension = CParameter::EDimension;

constexpr SEnumRow c_measureParameters[] = {
    {0, u"None", 7331},
    {1, u"Type", 7389},
    {2, u"PlateauIndex", 7390},
    {3, u"Length", 7340},
    {4, u"Breadth", 7341},
    {5, u"XExtent", 7397},
    {6, u"YExtent", 7398},
    {7, u"HeywoodDiameter", 7354},
    {8, u"HeywoodRadius", 7358},
    {9, u"Perimeter", 7339},
    {10, u"MaxFeret", 7343},
    {11, u"FiberWidth", 7444},
    {12, u"FiberLength", 7441},
    {13, u"TotalFiberLength", 7443},
    {14, u"AreaExHoles", 7399},
    {72, u"CGAreaX", 7332},
    {73, u"CGAreaY", 7333},
    {48, u"CGPolygonX", 7334},
    {49, u"CGPolygonY", 7335},
    {50, u"CGVolumeX", 7336},
    {51, u"CGVolumeY", 7337},
    {52, u"CGVoidVolumeX", 7375},
    {53, u"CGVoidVolumeY", 7376},
    {15, u"MatVoidVolume", 7400},
    {16, u"Volume", 7344},
    {17, u"VoidVolume", 7374},
    {18, u"NettoVolume", 7378},
    {19, u"MaxHeight", 7346},
    {20, u"AverageHeight", 7347},
    {21, u"MedianHeight", 7485},
    {22, u"StdHeight", 7348},
    {23, u"MaxDepth", 7380},
    {24, u"AverageDepth", 7382},
    {25, u"MedianDepth", 7486},
    {26, u"SDDepth", 7383},
    {27, u"MinAbsHeight", 7359},
    {28, u"MaxAbsHeight", 7360},
    {29, u"RangeAbsHeight", 7361},
    {31, u"MedianAbsHeight", 7391},
    {30, u"MeanAbsHeight", 7392},
    {32, u"SdAbsHeight", 7393},
    {34, u"AbsMaterialVolume", 7394},
    {35, u"AbsVoidVolume", 7395},
    {36, u"AbsNetVolume", 7396},
    {33, u"AbsMatVoidVolume", 7413},
    {37, u"MinCntrHeight", 7362},
    {38, u"MaxCntrHeight", 7363},
    {39, u"AveCntrHeight", 7364},
    {40, u"AspectRatio", 7342},
    {41, u"Orientation", 7377},
    {42, u"Roundness", 7352},
    {43, u"FormFactor", 7351},
    {44, u"Compactness", 7349},
    {45, u"Convexity", 7350},
    {46, u"Elongation", 7353},
    {47, u"Solidity", 7355},
    {70, u"AreaPixel", 7356},
    {65, u"Angle", 7733},
    {54, u"MinZPosX", 7401},
    {55, u"MinZPosY", 7402},
    {56, u"MaxZPosX", 7403},
    {57, u"MaxZPosY", 7404},
    {58, u"BoundRectMinX", 7405},
    {60, u"BoundRectMinY", 7406},
    {59, u"BoundRectMaxX", 7407},
    {61, u"BoundRectMaxY", 7408},
    {62, u"NearestNeighbourID", 7409},
    {63, u"NearestNeighbourDist", 7410},
    {64, u"NearestNeighbourAngle", 7411},
    {75, u"ID", 7484},
};
static_assert(std::size(c_measureParameters) == 70);

// Numbers from `first` to `last` share what the table says of them.
struct SDimensionRow {
    int first;
    int last;
    EDimension dimension;
};

constexpr SDimensionRow c_dimensions[] = {
    {3, 4, EDimension::Length},    {5, 5, EDimension::LengthX},   {6, 6, EDimension::LengthY},
    {7, 13, EDimension::Length},   {14, 14, EDimension::Area},    {15, 18, EDimension::Volume},
    {19, 32, EDimension::LengthZ}, {33, 36, EDimension::Volume},  {37, 39, EDimension::LengthZ},
    {41, 41, EDimension::Angle},   {48, 48, EDimension::LengthX}, {49, 49, EDimension::LengthY},
    {50, 50, EDimension::LengthX}, {51, 51, EDimension::LengthY}, {52, 52, EDimension::LengthX},
    {53, 53, EDimension::LengthY}, {54, 54, EDimension::LengthX}, {55, 55, EDimension::LengthY},
    {56, 56, EDimension::LengthX}, {57, 57, EDimension::LengthY}, {58, 59, EDimension::LengthX},
    {60, 61, EDimension::LengthY}, {63, 63, EDimension::Length},  {64, 65, EDimension::Angle},
    {71, 71, EDimension::Area},    {72, 72, EDimension::LengthX}, {73, 73, EDimension::LengthY},
};

constexpr double c_none = CParameter::c_NoLimit;

struct SLimitsRow {
    int first;
    int last;
    double lower;
    double upper;
};

// Uneven on purpose: depths are bounded like heights, absolute heights, net volumes and positions are not.
constexpr SLimitsRow c_limits[] = {
    {1, 1, 0, 2},        {2, 2, -1, 1},       {3, 17, 0, c_none},  {19, 26, 0, c_none},
    {32, 35, 0, c_none}, {40, 40, 1, c_none}, {41, 41, 0, 180},    {42, 47, 0, 1},
    {62, 63, 0, c_none}, {64, 65, -180, 180}, {71, 71, 0, c_none},
};

// The row whose numbers hold the parameter's, or null.
template<class TRows>
auto FindRow(const TRows& rows, EMeasureParameters parameter)
{
    const int number = static_cast<int>(parameter);
    const auto found = std::ranges::find_if(
        rows, [number](const auto& row) { return row.first <= number && number <= row.last; });
    return found == std::end(rows) ? nullptr : &*found;
}

CEnum<EMeasureParameters> MakeOutputs()
{
    CEnum<EMeasureParameters> outputs;
    for (const auto& parameter : GetMeasureParametersEnum())
        outputs.Add({parameter.GetValue(), parameter.GetIniName() + u"Out", parameter.GetFriendlyString(),
                     CStr(), 0});
    return outputs;
}

} // namespace

const CEnum<EMeasureParameters>& GetMeasureParametersEnum()
{
    return GetEnumOfRows<EMeasureParameters, c_measureParameters>();
}

const CEnum<EMeasureParameters>& GetMeasureOutputsEnum()
{
    static const auto& outputs = *new CEnum<EMeasureParameters>(MakeOutputs());
    return outputs;
}

CParameter::EDimension MeasureParameter2Dimension(EMeasureParameters parameter)
{
    const SDimensionRow* row = FindRow(c_dimensions, parameter);
    return row ? row->dimension : EDimension::None;
}

void MeasureParameter2NaturalLimits(EMeasureParameters parameter, double& lower, double& upper)
{
    const SLimitsRow* row = FindRow(c_limits, parameter);
    lower = row ? row->lower : c_none;
    upper = row ? row->upper : c_none;
}

} // namespace CommonUI

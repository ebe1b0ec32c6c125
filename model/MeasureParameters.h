#pragma once

#include "../common/Enum.h"
#include "../export/Export.h"
#include "Parameter.h"

namespace CommonUI
{

/// The quantities by which grain analysis measures a grain (a particle, a pore or an island of a surface).
/// The numbers 66 to 69, 71 and 74 are not in the catalogue; they are not given to new quantities.
enum class EMeasureParameters {
    None = 0,
    Type = 1,
    PlateauIndex = 2,
    Length = 3,
    Breadth = 4,
    XExtent = 5,
    YExtent = 6,
    HeywoodDiameter = 7,
    HeywoodRadius = 8,
    Perimeter = 9,
    MaxFeret = 10,
    FiberWidth = 11,
    FiberLength = 12,
    TotalFiberLength = 13,
    AreaExHoles = 14,
    MatVoidVolume = 15,
    Volume = 16,
    VoidVolume = 17,
    NettoVolume = 18,
    MaxHeight = 19,
    AverageHeight = 20,
    MedianHeight = 21,
    StdHeight = 22,
    MaxDepth = 23,
    AverageDepth = 24,
    MedianDepth = 25,
    SDDepth = 26,
    MinAbsHeight = 27,
    MaxAbsHeight = 28,
    RangeAbsHeight = 29,
    MeanAbsHeight = 30,
    MedianAbsHeight = 31,
    SdAbsHeight = 32,
    AbsMatVoidVolume = 33,
    AbsMaterialVolume = 34,
    AbsVoidVolume = 35,
    AbsNetVolume = 36,
    MinCntrHeight = 37,
    MaxCntrHeight = 38,
    AveCntrHeight = 39,
    AspectRatio = 40,
    Orientation = 41,
    Roundness = 42,
    FormFactor = 43,
    Compactness = 44,
    Convexity = 45,
    Elongation = 46,
    Solidity = 47,
    CGPolygonX = 48,
    CGPolygonY = 49,
    CGVolumeX = 50,
    CGVolumeY = 51,
    CGVoidVolumeX = 52,
    CGVoidVolumeY = 53,
    MinZPosX = 54,
    MinZPosY = 55,
    MaxZPosX = 56,
    MaxZPosY = 57,
    BoundRectMinX = 58,
    BoundRectMaxX = 59,
    BoundRectMinY = 60,
    BoundRectMaxY = 61,
    NearestNeighbourID = 62,
    NearestNeighbourDist = 63,
    NearestNeighbourAngle = 64,
    Angle = 65,
    AreaPixel = 70,
    CGAreaX = 72,
    CGAreaY = 73,
    ID = 75,
};

/// The catalogue of 70 quantities in display order, which is not the numeric one.
COMMONUI_API const CEnum<EMeasureParameters>& GetMeasureParametersEnum();

/// The keys under which the outputs of the quantities are stored: the same numbers, order and display texts
/// as GetMeasureParametersEnum, each key followed by "Out".
COMMONUI_API const CEnum<EMeasureParameters>& GetMeasureOutputsEnum();

/// The physical dimension of a quantity; dimensionless for a number that has no meaning. The retired number
/// 71, an area, still has its dimension and its limits.
COMMONUI_API CParameter::EDimension MeasureParameter2Dimension(EMeasureParameters parameter);

/// The bounds that the definition of a quantity sets to its values, in the unit of its dimension at factor 1,
/// angles in degrees. Both are always written; a bound that does not exist is CParameter::c_NoLimit.
COMMONUI_API void MeasureParameter2NaturalLimits(EMeasureParameters parameter, double& lower, double& upper);

} // namespace CommonUI

#pragma once

#include "../common/Enum.h"
#include "../export/Export.h"
#include "Parameter.h"

namespace CommonUI
{

/// The quantities by which grain analysis measures a grain (a particle, a pore or an island of a surface).
/// The numbers 66 to 69, 71 and 74 are not in the catalogue; they are not given to new quantities.
enum class EMeasureParameters {
    None = 0, ///< no quantity
    Type = 1, ///< 0 particle, 1 pore
    PlateauIndex =
        2, ///< 2 mean / maximum - 1 of the heights from the threshold: 1 for a flat top, 0 for a paraboloid
    Length = 3,          ///< Feret diameter at right angles to Breadth, in m
    Breadth = 4,         ///< least Feret diameter, in m
    XExtent = 5,         ///< width of the bounding rectangle, in m
    YExtent = 6,         ///< height of the bounding rectangle, in m
    HeywoodDiameter = 7, ///< diameter of the circle of the same area, in m
    HeywoodRadius = 8,   ///< half of HeywoodDiameter
    Perimeter = 9,       ///< length of the outer outline, in m; holes do not count
    MaxFeret = 10,       ///< greatest Feret diameter, in m
    FiberWidth = 11,     ///< shorter side of the rectangle of the same perimeter and area, holes filled, in m
    FiberLength = 12,    ///< longer side of this rectangle, in m
    TotalFiberLength = 13,      ///< length of the skeleton with all its branches, in m
    AreaExHoles = 14,           ///< area without holes, in m²
    MatVoidVolume = 15,         ///< Volume and VoidVolume together, in m³
    Volume = 16,                ///< volume of a particle above the threshold, in m³
    VoidVolume = 17,            ///< volume of a pore below the threshold, in m³
    NettoVolume = 18,           ///< Volume less VoidVolume, in m³
    MaxHeight = 19,             ///< greatest height above the threshold, in m
    AverageHeight = 20,         ///< mean height above the threshold, in m
    MedianHeight = 21,          ///< median of the heights above the threshold, in m
    StdHeight = 22,             ///< standard deviation of the heights above the threshold, in m
    MaxDepth = 23,              ///< greatest depth below the threshold, in m
    AverageDepth = 24,          ///< mean depth below the threshold, in m
    MedianDepth = 25,           ///< median of the depths below the threshold, in m
    SDDepth = 26,               ///< standard deviation of the depths below the threshold, in m
    MinAbsHeight = 27,          ///< least height, in m
    MaxAbsHeight = 28,          ///< greatest height, in m
    RangeAbsHeight = 29,        ///< MaxAbsHeight less MinAbsHeight
    MeanAbsHeight = 30,         ///< mean height, in m
    MedianAbsHeight = 31,       ///< median of the heights, in m
    SdAbsHeight = 32,           ///< standard deviation of the heights, in m
    AbsMatVoidVolume = 33,      ///< AbsMaterialVolume and AbsVoidVolume together
    AbsMaterialVolume = 34,     ///< volume between the height 0 and the points above it, in m³
    AbsVoidVolume = 35,         ///< volume between the height 0 and the points below it, in m³
    AbsNetVolume = 36,          ///< AbsMaterialVolume less AbsVoidVolume
    MinCntrHeight = 37,         ///< least height along the outer outline, in m
    MaxCntrHeight = 38,         ///< greatest height along the outer outline, in m
    AveCntrHeight = 39,         ///< mean height along the outer outline, in m
    AspectRatio = 40,           ///< Length / Breadth, at least 1
    Orientation = 41,           ///< direction of Length, from 0 to below 180 degrees
    Roundness = 42,             ///< 4 area / (π MaxFeret²)
    FormFactor = 43,            ///< 4π area / Perimeter²
    Compactness = 44,           ///< the root of Roundness
    Convexity = 45,             ///< perimeter of the convex hull / Perimeter
    Elongation = 46,            ///< 1 - Breadth / Length
    Solidity = 47,              ///< area / area of the convex hull
    CGPolygonX = 48,            ///< centroid of what the outer outline encloses, holes included, in m
    CGPolygonY = 49,            ///< likewise
    CGVolumeX = 50,             ///< centroid of Volume, in m
    CGVolumeY = 51,             ///< likewise
    CGVoidVolumeX = 52,         ///< centroid of VoidVolume, in m
    CGVoidVolumeY = 53,         ///< likewise
    MinZPosX = 54,              ///< position of the lowest point, in m
    MinZPosY = 55,              ///< likewise
    MaxZPosX = 56,              ///< position of the highest point, in m
    MaxZPosY = 57,              ///< likewise
    BoundRectMinX = 58,         ///< left edge of the bounding rectangle, in m
    BoundRectMaxX = 59,         ///< right edge of the bounding rectangle, in m
    BoundRectMinY = 60,         ///< its edge of the least y, in m
    BoundRectMaxY = 61,         ///< its edge of the greatest y, in m
    NearestNeighbourID = 62,    ///< ID of the grain whose centroid of area is nearest
    NearestNeighbourDist = 63,  ///< distance of the two centroids, in m
    NearestNeighbourAngle = 64, ///< direction to the neighbour, -180 to 180 degrees
    Angle = 65,                 ///< direction of Length towards the end farther from the centroid, in degrees
    AreaPixel = 70,             ///< number of points
    CGAreaX = 72,               ///< centroid of the area, in m
    CGAreaY = 73,               ///< likewise
    ID = 75,                    ///< number of the grain, from 1
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

#include "analysis/grain/detail/GrainRecord.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_pi = std::numbers::pi;

constexpr SGrainMeasure c_measures[] = {
    {"Type", [](const SGrain& g) { return g.isPore ? 1.0 : 0.0; }},
    {"PlateauIndex", [](const SGrain& g) { return g.GetPlateauIndex(); }},
    {"Length", [](const SGrain& g) { return g.hull.length; }},
    {"Breadth", [](const SGrain& g) { return g.hull.breadth; }},
    {"XExtent", [](const SGrain& g) { return g.hull.maxX - g.hull.minX; }},
    {"YExtent", [](const SGrain& g) { return g.hull.maxY - g.hull.minY; }},
    {"HeywoodDiameter", [](const SGrain& g) { return g.GetHeywoodDiameter(); }},
    {"HeywoodRadius", [](const SGrain& g) { return g.GetHeywoodDiameter() / 2; }},
    {"Perimeter", [](const SGrain& g) { return g.outline.perimeter; }},
    {"MaxFeret", [](const SGrain& g) { return g.hull.maxFeret; }},
    {"FiberWidth", [](const SGrain& g) { return g.outline.area / g.GetFiberLength(); }},
    {"FiberLength", [](const SGrain& g) { return g.GetFiberLength(); }},
    {c_skeletonKey, nullptr},
    {"AreaExHoles", [](const SGrain& g) { return g.area; }},
    {"CGAreaX", [](const SGrain& g) { return g.centre.x; }},
    {"CGAreaY", [](const SGrain& g) { return g.centre.y; }},
    {"CGPolygonX", [](const SGrain& g) { return g.outline.centreX; }},
    {"CGPolygonY", [](const SGrain& g) { return g.outline.centreY; }},
    {"CGVolumeX", [](const SGrain& g) { return g.OfParticle(g.heights.centreX); }},
    {"CGVolumeY", [](const SGrain& g) { return g.OfParticle(g.heights.centreY); }},
    {"CGVoidVolumeX", [](const SGrain& g) { return g.OfPore(g.heights.centreX); }},
    {"CGVoidVolumeY", [](const SGrain& g) { return g.OfPore(g.heights.centreY); }},
    {"MatVoidVolume", [](const SGrain& g) { return g.heights.volume; }},
    {"Volume", [](const SGrain& g) { return g.isPore ? 0 : g.heights.volume; }},
    {"VoidVolume", [](const SGrain& g) { return g.isPore ? g.heights.volume : 0; }},
    {"NettoVolume", [](const SGrain& g) { return g.isPore ? -g.heights.volume : g.heights.volume; }},
    {"MaxHeight", [](const SGrain& g) { return g.OfParticle(g.heights.highest - g.threshold); }},
    {"AverageHeight", [](const SGrain& g) { return g.OfParticle(g.heights.meanOffset); }},
    {"MedianHeight", [](const SGrain& g) { return g.OfParticle(g.heights.median - g.threshold); }},
    {"StdHeight", [](const SGrain& g) { return g.OfParticle(g.heights.sd); }},
    {"MaxDepth", [](const SGrain& g) { return g.OfPore(g.threshold - g.heights.lowest); }},
    {"AverageDepth", [](const SGrain& g) { return g.OfPore(-g.heights.meanOffset); }},
    {"MedianDepth", [](const SGrain& g) { return g.OfPore(g.threshold - g.heights.median); }},
    {"SDDepth", [](const SGrain& g) { return g.OfPore(g.heights.sd); }},
    {"MinAbsHeight", [](const SGrain& g) { return g.heights.lowest; }},
    {"MaxAbsHeight", [](const SGrain& g) { return g.heights.highest; }},
    {"RangeAbsHeight", [](const SGrain& g) { return g.heights.highest - g.heights.lowest; }},
    {"MedianAbsHeight", [](const SGrain& g) { return g.heights.median; }},
    {"MeanAbsHeight", [](const SGrain& g) { return g.heights.mean; }},
    {"SdAbsHeight", [](const SGrain& g) { return g.heights.sd; }},
    {"AbsMaterialVolume", [](const SGrain& g) { return g.heights.volumeAboveZero; }},
    {"AbsVoidVolume", [](const SGrain& g) { return g.heights.volumeBelowZero; }},
    {"AbsNetVolume", [](const SGrain& g) { return g.heights.volumeAboveZero - g.heights.volumeBelowZero; }},
    {"AbsMatVoidVolume",
     [](const SGrain& g) { return g.heights.volumeAboveZero + g.heights.volumeBelowZero; }},
    {"MinCntrHeight", [](const SGrain& g) { return g.outline.lowest; }},
    {"MaxCntrHeight", [](const SGrain& g) { return g.outline.highest; }},
    {"AveCntrHeight", [](const SGrain& g) { return g.outline.mean; }},
    {"AspectRatio", [](const SGrain& g) { return g.hull.length / g.hull.breadth; }},
    {"Orientation", [](const SGrain& g) { return g.hull.orientation; }},
    {"Roundness", [](const SGrain& g) { return 4 * g.area / (c_pi * g.hull.maxFeret * g.hull.maxFeret); }},
    {"FormFactor",
     [](const SGrain& g) { return 4 * c_pi * g.area / (g.outline.perimeter * g.outline.perimeter); }},
    {"Compactness", [](const SGrain& g) { return g.GetHeywoodDiameter() / g.hull.maxFeret; }},
    // The two perimeters of a convex grain are the same but for rounding.
    {"Convexity", [](const SGrain& g) { return std::min(g.hull.perimeter / g.outline.perimeter, 1.0); }},
    {"Elongation", [](const SGrain& g) { return 1 - g.hull.breadth / g.hull.length; }},
    {"Solidity", [](const SGrain& g) { return std::min(g.area / g.hull.area, 1.0); }},
    {"AreaPixel", [](const SGrain& g) { return static_cast<double>(g.points); }},
    {"Angle", [](const SGrain& g) { return g.GetAngle(); }},
    {"MinZPosX", [](const SGrain& g) { return g.GetX(g.heights.lowestPoint); }},
    {"MinZPosY", [](const SGrain& g) { return g.GetY(g.heights.lowestPoint); }},
    {"MaxZPosX", [](const SGrain& g) { return g.GetX(g.heights.highestPoint); }},
    {"MaxZPosY", [](const SGrain& g) { return g.GetY(g.heights.highestPoint); }},
    {"BoundRectMinX", [](const SGrain& g) { return g.hull.minX; }},
    {"BoundRectMinY", [](const SGrain& g) { return g.hull.minY; }},
    {"BoundRectMaxX", [](const SGrain& g) { return g.hull.maxX; }},
    {"BoundRectMaxY", [](const SGrain& g) { return g.hull.maxY; }},
    {"NearestNeighbourID", nullptr},
    {"NearestNeighbourDist", nullptr},
    {"NearestNeighbourAngle", nullptr},
    {"ID", [](const SGrain& g) { return static_cast<double>(g.id); }},
};

constexpr SNeighbourMeasure c_neighbourMeasures[] = {
    {"NearestNeighbourID", [](const SNeighbour& n) { return static_cast<double>(n.index + 1); }},
    {"NearestNeighbourDist", [](const SNeighbour& n) { return n.distance; }},
    {"NearestNeighbourAngle", [](const SNeighbour& n) { return n.angle; }},
};

} // namespace

double SGrain::GetHeywoodDiameter() const
{
    return std::sqrt(4 * area / c_pi);
}

double SGrain::GetFiberLength() const
{
    const double square = outline.perimeter * outline.perimeter;
    const double difference = square - 16 * outline.area;
    if (difference < -1e-12 * square) // less is the rounding of a square
        return c_undefined;
    return (outline.perimeter + std::sqrt(std::max(difference, 0.0))) / 4;
}

double SGrain::GetPlateauIndex() const
{
    const double highest = isPore ? heights.lowest - threshold : heights.highest - threshold;
    // Rounding must not lift the mean of equal heights off them.
    return 2 * std::min(heights.meanOffset / highest, 1.0) - 1; // 0 / 0 on the threshold
}

double SGrain::GetAngle() const
{
    const double radians = hull.orientation * c_pi / 180;
    const double middle = centre.x * std::cos(radians) + centre.y * std::sin(radians);
    const double ahead = hull.lastAlong - middle;
    const double behind = middle - hull.firstAlong;
    // Of a symmetric grain both are the same but for rounding.
    return behind > ahead + 1e-9 * hull.length ? hull.orientation - 180 : hull.orientation;
}

std::span<const SGrainMeasure> GetGrainMeasures()
{
    return c_measures;
}

std::span<const SNeighbourMeasure> GetNeighbourMeasures()
{
    return c_neighbourMeasures;
}

} // namespace CommonUI::Analysis

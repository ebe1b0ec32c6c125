#include "analysis/grain/UndefinedGrain.h"

namespace CommonUI::Analysis
{

std::string_view ExplainGrain(std::string_view key, EGrainKind kind)
{
    if (key == "NearestNeighbourAngle")
        return "there is no other grain, or its centroid is the same";
    if (key.starts_with("NearestNeighbour"))
        return "there is no other grain";
    if (key.starts_with("Fiber"))
        return "the outline is rounder than a square";
    const bool isOfPores = key.ends_with("Depth") || key.starts_with("CGVoidVolume");
    if (kind == EGrainKind::Particle && isOfPores)
        return "particles have no depths below the threshold";
    const bool isOfParticles =
        key.starts_with("CGVolume") || (key.ends_with("Height") && key.find("Abs") == key.npos);
    if (kind == EGrainKind::Pore && isOfParticles)
        return "pores have no heights above the threshold";
    return "the grain has no volume or extent";
}

} // namespace CommonUI::Analysis

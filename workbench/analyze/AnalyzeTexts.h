#pragma once

#include "workbench/TextOf.h"

namespace Workbench
{

/// The texts of the choice of analyses.
enum class EAnalyzeText {
    Analysis = 12101,
    SecondSurface = 12081,
    NoSurface,
    Pitch,
    PitchX,
    PitchY,
    Step,
    NoReference,
    NeedsSurface,
    NeedsSecond,
    Particles,
    Pores,

    GrainSet = 11970,
    GrainKind,
    Threshold,
    GrainCount,
    NoGrainSet,

    PitchMethod = 12195,
    Fourier,
    Centroid,
    TipArea,
    TipWidth,
    TipNoise,
};

} // namespace Workbench

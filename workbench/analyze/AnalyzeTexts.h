#pragma once

#include "common/StringTable.h"
#include "qt/QtText.h"

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

inline CommonUI::CStr Text(EAnalyzeText text)
{
    return CommonUI::GetString(static_cast<int>(text));
}

inline QString QText(EAnalyzeText text)
{
    return CommonUI::ToQString(Text(text));
}

} // namespace Workbench

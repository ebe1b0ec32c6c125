#pragma once

#include "../../analysis/grain/Grains.h"
#include "../../analysis/grain/GrainThreshold.h"
#include "../../common/Enum.h"
#include "../../common/ini/Inifile.h"
#include "../../export/Export.h"

namespace CommonUI
{

/// The kinds of grains and of thresholds, with the names under which they are stored.
COMMONUI_API const CEnum<Analysis::EGrainKind>& GetGrainKindEnum();
/// See GetGrainKindEnum.
COMMONUI_API const CEnum<Analysis::EGrainThreshold>& GetGrainThresholdEnum();

/// What the particle and pore analysis looks for. The stored form, and how a threshold is found in a surface,
/// are described in docs/grain-threshold-settings.md, what a grain is in docs/grain-measures.md. The defaults
/// here are those of reading; the thresholds that users are offered are in
/// catalogue/BuiltInGrainThresholds.cpp.
struct COMMONUI_API SGrainThresholdSettings {
    /// Whether grains stand above the threshold or lie below it.
    Analysis::EGrainKind kind = Analysis::EGrainKind::Particle;
    Analysis::EGrainThreshold threshold = Analysis::EGrainThreshold::Relative; ///< what `value` means
    /// Absolute: in m. Relative and Percentile: 0 to 100 percent. Otsu: means nothing.
    double value = 50;
    double minimumArea = 0;        ///< in m²; smaller grains are left out
    int minimumPoints = 1;         ///< grains of fewer points are left out
    bool includeEdgeGrains = true; ///< those cut off by the border of the surface

    /// Reads the section "GrainThreshold" of a set, which replaces these settings.
    /// @return false, with the reason in the diagnostics and these settings unchanged, for an unusable set
    bool Load(CInifile& ini);
    /// Writes the section "GrainThreshold" in place of what is in it. Both leave the current section
    /// selected.
    void Save(CInifile& ini) const;

    friend bool operator==(const SGrainThresholdSettings&, const SGrainThresholdSettings&) = default;
};

} // namespace CommonUI

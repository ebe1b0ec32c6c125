#pragma once

#include "../analysis/form/Levelling.h"
#include "../analysis/surface/Surface.h"
#include "../export/Export.h"
#include "Steps.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace CommonUI::Measurement
{

/// Applies the set of a step to a surface.
/// @throws ERequest when it does not fit the surface
COMMONUIMEASUREMENT_API void Apply(const SStep& step, Analysis::SSurface& surface);

/// Whether a step is a Gaussian filter of ISO 16610.
COMMONUIMEASUREMENT_API bool IsGaussian(const SStep& step);
/// The cut-off in m that a step has on a surface, if it is such a filter.
COMMONUIMEASUREMENT_API std::optional<double> FindCutoff(const SStep& step,
                                                         const Analysis::SSurface& surface);

/// The cut-off of a step of an input.
struct SStepCutoff {
    std::size_t step; ///< its number, from 1
    double cutoff;    ///< m
};

/// A surface and what was done to it.
struct SInput {
    Analysis::SSurface surface{}; ///< as it is analysed
    /// As it was read, to be shown beside the other; only where steps were applied.
    std::optional<Analysis::SSurface> raw{};
    Analysis::ELevelling levelling = Analysis::ELevelling::None; ///< what was done first
    std::vector<CStr> steps{}; ///< the names of what was applied then, in this order
    /// Labels and texts of what else there is to say of it.
    std::vector<std::pair<CStr, CStr>> notes{};
    std::vector<SStepCutoff> cutoffs{}; ///< of the Gaussian filters among the steps
    std::string sha256{}; ///< of the file, in hexadecimal digits; empty where nobody has computed it
};

/// Levels a surface and applies steps to it, one after the other.
/// @param keepsRaw whether the surface as it was read is wanted even where there are no steps
/// @throws ERequest when one does not fit the surface
COMMONUIMEASUREMENT_API SInput Process(Analysis::SSurface surface, Analysis::ELevelling levelling,
                                       const std::vector<SStep>& steps, bool keepsRaw = false);

} // namespace CommonUI::Measurement

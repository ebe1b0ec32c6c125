#pragma once

#include "../analysis/form/Levelling.h"
#include "../export/Export.h"
#include "ApplySteps.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace CommonUI::Measurement
{

/// Where results come from, as facts; the summary says the same in words.
struct SOrigin {
    std::string fileName{};  ///< UTF-8, without folder
    std::string sha256{};    ///< of the file; empty where nobody has computed it
    std::string date{};      ///< that the file states; empty where it states none
    std::string channel{};   ///< that was read of the file; empty where it names none
    std::size_t points = 0;  ///< of each line
    std::size_t lines = 0;   ///< of the surface; 1 of a profile
    std::size_t missing = 0; ///< points
    double dx = 0;           ///< m
    double dy = 0;           ///< m
    Analysis::ELevelling levelling = Analysis::ELevelling::None; ///< what was done first
    std::vector<CStr> steps{};          ///< the names of what was applied then, in this order
    std::vector<SStepCutoff> cutoffs{}; ///< of the Gaussian filters among the steps
    std::optional<double> cutoff{};     ///< of the profile filter, m; nothing where it was not needed
    std::optional<double> threshold{};  ///< of the grains, m
};

/// What Gaussian filters do at the ends of a profile and the borders of a surface.
constexpr const char16_t* c_endTreatment = u"weights of the points that are there";

/// What a levelling does, for a summary.
COMMONUIMEASUREMENT_API CStr DescribeLevelling(Analysis::ELevelling levelling);

} // namespace CommonUI::Measurement

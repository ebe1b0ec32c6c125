#pragma once

#include "../export/Export.h"
#include "ApplySteps.h"
#include "Choices.h"
#include "Columns.h"

#include <utility>
#include <vector>

namespace CommonUI::Measurement
{

/// What the analysis of a surface has come to.
struct SResults {
    CStr title{};
    /// Labels and texts of what was measured and how.
    std::vector<std::pair<CStr, CStr>> summary{};
    /// One value each; or two, that of the raw surface and that of the processed one. Of a surface of one
    /// line, which is a profile, these are the parameters of profiles, and there are no rows.
    std::vector<SColumn> surface{};
    bool isProfile = false;
    CStr rowName{};                       ///< what the rows of the columns are: profiles or grains
    std::vector<SColumn> columns{};       ///< a value for each row, and statistics of them
    std::vector<CParameter> statistics{}; ///< which of these are shown: those that are on
};

/// Analyses a surface: its roughness, beside that of the raw one, and that of its profiles, or its grains.
/// Nothing is computed that the choices do not show.
/// @throws ERequest when the cut-off that was asked for does not fit the profiles
/// @throws Analysis::ENoPoints when the roughness is asked for and all points are missing
COMMONUIMEASUREMENT_API SResults ComputeResults(const SInput& input, const SChoices& choices);

} // namespace CommonUI::Measurement

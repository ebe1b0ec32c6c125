#pragma once

#include "../export/Export.h"
#include "ApplySteps.h"
#include "Choices.h"
#include "Columns.h"
#include "Origin.h"
#include "RowValues.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace CommonUI::Measurement
{

/// The grains that were measured.
struct SFoundGrains {
    SGrainLimit limit{};       ///< within which they were found
    Analysis::SGrainMap map{}; ///< without those that do not count
};

/// What the analysis of a surface has come to.
struct SResults {
    CStr title{}; ///< the name of the surface's file
    /// Labels and texts of what was measured and how.
    std::vector<std::pair<CStr, CStr>> summary{};
    SOrigin origin{}; ///< the same facts for programs
    /// One value each; or two, that of the raw surface and that of the processed one. Of a surface of one
    /// line, which is a profile, these are the parameters of profiles, and there are no rows.
    std::vector<SColumn> surface{};
    bool isProfile = false;   ///< whether the surface has one line only
    CStr rowName{};           ///< what the rows of the columns are: profiles or grains
    std::size_t rowCount = 0; ///< 0 for a profile
    /// Statistics of the rows' values, and these themselves unless computePart is set.
    std::vector<SColumn> columns{};
    std::vector<CParameter> statistics{}; ///< which of these are shown: those that are on
    /// Set where the rows have so many values that they are not kept: computes them again. It refers to the
    /// surface that was analysed.
    FComputePart computePart{};
    /// How many columns of all rows may be computed at once without much room.
    std::size_t columnsAtOnce = 0;
    std::shared_ptr<const SFoundGrains> grains{}; ///< null where no grains were measured
    std::shared_ptr<const SOutputs> outputs{};    ///< of a further analysis; null for others

    /// Says why the value of a column is not defined in a row. It refers to the surface that was analysed.
    std::function<std::string_view(std::size_t column, std::size_t row)> explain{};

    /// What a value of a row stands for. @param value of that column and row
    COMMONUIMEASUREMENT_API SValueState GetState(std::size_t column, std::size_t row, double value) const;
    /// Of how many parameters the computation has failed.
    COMMONUIMEASUREMENT_API std::size_t CountFailures() const;
    /// The values of a part of the rows, kept or not.
    COMMONUIMEASUREMENT_API CPartValues GetValues(const SPart& part) const;
};

/// Analyses a surface: its roughness, beside that of the raw one, and that of its profiles, or its grains; or
/// it does a further analysis, with values of its own for each line or column where a profile has them, too.
/// Nothing is computed that the choices do not show. Memory is a few times that of the heights, in whatever
/// shape they lie.
/// @param input must live as long as the results
/// @throws ERequest when the cut-off that was asked for does not fit the profiles
/// @throws Analysis::ENoPoints when the roughness is asked for and all points are missing
COMMONUIMEASUREMENT_API SResults ComputeResults(const SInput& input, const SChoices& choices);
SResults ComputeResults(SInput&& input, const SChoices& choices) = delete;

} // namespace CommonUI::Measurement

#pragma once

#include "examples/surface_report/Options.h"

#include "examples/analysis/ProfileParameters.h"
#include "examples/analysis/Value.h"
#include "model/Parameter.h"

#include <span>
#include <string_view>
#include <vector>

namespace SurfaceReport
{

/// A parameter of the catalogue with the values that the analysis has computed of it.
struct SColumn {
    CommonUI::CParameter parameter; ///< at the unit factor in which the values are shown
    std::vector<double> values;     ///< at unit factor 1; NaN where not defined

    /// The unit as shown; empty for dimensionless parameters.
    CommonUI::CStr GetUnitText() const;
    /// A value of the parameter as text, without its unit.
    CommonUI::CStr GetText(double value) const;
};

/// The parameters of a report: one value each of the surface, one for each line of the profiles.
struct SColumns {
    std::vector<SColumn> surface;
    std::vector<SColumn> profiles;
};

/// Pairs the computed values with the catalogue's parameters, those that the options ask for, in the order of
/// the catalogue.
/// @throws EUsage for a key that is not in the catalogue or not computed
SColumns SelectColumns(std::span<const SurfaceAnalysis::SValue> surface,
                       std::span<const SurfaceAnalysis::SLineValues> profiles, const SOptions& options);

} // namespace SurfaceReport

#pragma once

#include "programs/surface_report/Options.h"

#include "model/Parameter.h"

#include <functional>
#include <vector>

namespace SurfaceReport
{

/// A parameter with the values that the analysis has computed of it.
struct SColumn {
    CommonUI::CParameter parameter; ///< at the unit factor in which the values are shown
    std::vector<double> values;     ///< at unit factor 1; NaN where not defined

    /// The unit as shown; empty for dimensionless parameters.
    CommonUI::CStr GetUnitText() const;
    /// A value of the parameter as text, without its unit.
    CommonUI::CStr GetText(double value) const;
};

/// Computes the values of a parameter; none for one that is not computed.
using CValuesOf = std::function<std::vector<double>(const CommonUI::CParameter&)>;

/// The columns of those parameters that are on and computed.
/// @param automaticUnits whether each column is shown in the unit that suits it, unless the options name one
std::vector<SColumn> MakeColumns(const std::vector<CommonUI::CParameter>& parameters,
                                 const CValuesOf& valuesOf, const SOptions& options, bool automaticUnits);

/// Finds fault with keys of the options that no column shows.
/// @param columns the columns of all tables, one behind the other
/// @throws EUsage
void CheckKeys(const SOptions& options, const std::vector<const std::vector<SColumn>*>& columns);

} // namespace SurfaceReport

#pragma once

#include "../../export/Export.h"
#include "../../output/results/ResultSet.h"
#include "Series.h"

#include <vector>

namespace CommonUI::Measurement
{

/// Up to how many surfaces that failed a table tells the reason of each.
inline constexpr std::size_t c_mostNoted = 5;

/// The table of a series for a result dialog: a row for each surface, with the number of grains in front
/// where grains are measured, and the statistics over the surfaces. The reason of a surface that failed is
/// that of its empty cells.
/// @param request with the choices of which the rows have values
/// @param shown the same choices, or those of now: with other units, formats, order, statistics, or without
///     some parameters
/// @param name see SResultSet
/// @param shortReason the reason of all that failed where they are more than c_mostNoted: each reason is a
///     note below the table
COMMONUIMEASUREMENT_API SResultSet MakeSeriesSet(const std::vector<SSeriesRow>& rows,
                                                 const SSeriesRequest& request, const SChoices& shown,
                                                 const CStr& name, const CStr& shortReason);

/// Whether the rows have values of all parameters of the choices.
COMMONUIMEASUREMENT_API bool HasAllValues(const SSeriesRequest& request, const SChoices& shown);

} // namespace CommonUI::Measurement

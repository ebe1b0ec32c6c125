#pragma once

#include "../../export/Export.h"
#include "../Columns.h"

#include <span>
#include <string>

namespace CommonUI::Measurement
{

/// Draws how often the values of a column are, in percent for each of up to 32 classes, and where their mean
/// lies.
/// @param values of the column at unit factor 1; NaN values are left out
/// @return an SVG element; empty without a value
COMMONUIMEASUREMENT_API std::string DrawValueHistogram(const SColumn& column, std::span<const double> values);

/// Draws the values of a column over their rows, with their mean; gaps are left open.
/// @param values as above
/// @param rowName what a row is, such as u"profile"
/// @return an SVG element; empty for fewer than two values
COMMONUIMEASUREMENT_API std::string DrawValuesOverRows(const SColumn& column, std::span<const double> values,
                                                       const CStr& rowName);

} // namespace CommonUI::Measurement

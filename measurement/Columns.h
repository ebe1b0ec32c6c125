#pragma once

#include "../analysis/surface/Value.h"
#include "../export/Export.h"
#include "../model/Parameter.h"
#include "../output/results/ValueState.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace CommonUI::Measurement
{

/// The state of one of many values that are there otherwise.
struct SIndexedState {
    std::size_t index; ///< of the value among the column's
    SValueState state; ///< what stands in its place
};

/// A parameter with the values that the analysis has computed of it.
struct COMMONUIMEASUREMENT_API SColumn {
    CParameter parameter;                       ///< at the unit factor in which the values are shown
    std::vector<double> values;                 ///< at unit factor 1; NaN where not defined
    std::vector<Analysis::SValue> statistics{}; ///< of the values; the keys are those of GetStatisticsEnum
    /// Of the surface's values that are not defined. Those of rows are found by SResults::GetState.
    std::vector<SIndexedState> exceptions{};
    /// What all values of the rows stand for where nobody has computed them, or that has failed.
    SValueState absent{};

    /// The unit as shown; empty for dimensionless parameters.
    CStr GetUnitText() const;
    /// A value of the parameter as text, without its unit.
    CStr GetText(double value) const;
    /// The unit of the values as they are kept: "m", "m²", "m³", "1/m", "1/m²", "°", "%"; empty for
    /// dimensionless parameters.
    CStr GetBaseUnitText() const;
    /// By what machines know the parameter, see Measurement::GetKey.
    CStr GetKey() const;
};

/// By what machines know a parameter: its key, that of a parameter from a template with the values of its
/// variables behind it, such as "Sdc(10,50)".
COMMONUIMEASUREMENT_API CStr GetKey(const CParameter& parameter);

/// The unit of a column's statistic as it is kept, of which the key is that of GetStatisticsEnum.
COMMONUIMEASUREMENT_API CStr GetStatisticUnitText(const SColumn& column, const CParameter& statistic);
/// By what machines know a statistic: its key, that of a fractile with its percentage, such as
/// "Fractile(95)".
COMMONUIMEASUREMENT_API CStr GetStatisticKey(const CParameter& statistic);

/// @param automaticUnits whether the values are shown in the unit that suits them
COMMONUIMEASUREMENT_API SColumn MakeColumn(const CParameter& parameter, std::vector<double> values,
                                           bool automaticUnits);

/// Computes the values of a parameter.
using FValuesOf = std::function<std::vector<double>(const CParameter&)>;

/// A column for each parameter that has values.
/// @param automaticUnits whether each column is shown in the unit that suits it
COMMONUIMEASUREMENT_API std::vector<SColumn> MakeColumns(const std::vector<CParameter>& parameters,
                                                         const FValuesOf& valuesOf, bool automaticUnits);

} // namespace CommonUI::Measurement

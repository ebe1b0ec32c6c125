#pragma once

#include "../../export/Export.h"
#include "../../model/Parameter.h"
#include "../Results.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace CommonUI::Measurement
{

/// What one of many surfaces has of some parameters.
struct SSurfaceValues {
    std::vector<double> values{}; ///< at unit factor 1, NaN where not defined; empty where there is no result
    /// Why values are not defined, by their index, UTF-8.
    std::map<std::size_t, std::string> reasons{};
};

/// Those of a surface as it is analysed, that is of the processed one where there is a raw one.
/// @param columns of the surface, in the order of the parameters, of which some may be left out
COMMONUIMEASUREMENT_API SSurfaceValues TakeSurfaceValues(const std::vector<SColumn>& columns,
                                                         const std::vector<CParameter>& parameters);

/// The means over the rows of a surface, its profiles or grains.
/// @param parameters of which the columns of the rows are some, in the same order
COMMONUIMEASUREMENT_API SSurfaceValues TakeMeans(const SResults& results,
                                                 const std::vector<CParameter>& parameters);

} // namespace CommonUI::Measurement

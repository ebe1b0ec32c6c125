#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace CommonUI::Measurement
{

/// Some columns of some rows, the ends not included.
struct SPart {
    std::size_t firstColumn; ///< the first one of the part
    std::size_t lastColumn;  ///< the one behind the part's last
    std::size_t firstRow;    ///< the first one of the part
    std::size_t lastRow;     ///< the one behind the part's last
};

/// The values of a part, column by column.
using CPartValues = std::vector<std::vector<double>>;

/// Computes the values of a part.
using FComputePart = std::function<CPartValues(const SPart&)>;

} // namespace CommonUI::Measurement

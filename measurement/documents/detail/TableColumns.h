#pragma once

#include "output/results/GridBaseOutputCtrl.h"

#include <cstddef>
#include <vector>

namespace CommonUI::Measurement
{

/// How wide the columns of a table are: the longest line of their texts, in characters.
std::vector<double> GetColumnLengths(const CGridBaseOutputCtrl::CCells& cells);

/// Takes a table apart that is wider than a page: each part has the names of the rows in front of some of the
/// columns. Cells of one column each.
/// @param most characters of a line
std::vector<CGridBaseOutputCtrl::CCells> SplitColumns(CGridBaseOutputCtrl::CCells cells, double most);

} // namespace CommonUI::Measurement

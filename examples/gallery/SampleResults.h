#pragma once

#include "output/results/GridBaseOutputCtrl.h"

namespace Gallery
{

/// Fills a table with the parameters of that many made-up profiles, and another one with their mean, minimum
/// and maximum, in place of what the tables had.
void FillSampleResults(int profiles, CommonUI::CGridBaseOutputCtrl& results,
                       CommonUI::CGridBaseOutputCtrl& statistics);

} // namespace Gallery

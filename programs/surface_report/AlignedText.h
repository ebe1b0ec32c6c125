#pragma once

#include "output/results/GridBaseOutputCtrl.h"

namespace SurfaceReport
{

/// A table as lines of a terminal: columns as wide as their widest cell, numbers to the right, texts to the
/// left, and a rule below the headers. Cells of one column each, with one line of text.
CommonUI::CStr AlignedText(const CommonUI::CGridBaseOutputCtrl::CCells& cells);

} // namespace SurfaceReport

#pragma once

#include "../../export/Export.h"

#include <string>

namespace CommonUI::Measurement
{

/// Where a picture stands in for a page's elements.
struct SStandaloneSvg {
    std::string bytes{}; ///< a file of its own, UTF-8
    double width = 0;    ///< of its coordinates
    double height = 0;   ///< of its coordinates
};

/// Makes a file of an element that CSvg has written for a page: with the colours of paper in place of the
/// page's classes, and a size, so that programs that know no style sheets show it alike.
COMMONUIMEASUREMENT_API SStandaloneSvg MakeStandaloneSvg(const std::string& element);

} // namespace CommonUI::Measurement

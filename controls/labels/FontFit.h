#pragma once

#include "../../common/Rect.h"
#include "../../export/Export.h"

#include <functional>

namespace CommonUI
{

/// Gives the size that a text takes in a font of a size. A larger font does not make it smaller.
using FMeasureFont = std::function<SSize(double)>;

/// The sizes that a font may have.
struct SFontRange {
    double least = 6;     ///< in the unit of the measure
    double greatest = 96; ///< in the unit of the measure
    double step = 0.5;    ///< more than 0; sizes are whole steps above the least
};

/// The largest font in which a text has room; the least one where none does. It asks for about ten sizes.
/// @param room where the text is to go, in the unit of the measure
COMMONUI_API double FitFont(const SSize& room, const SFontRange& range, const FMeasureFont& measure);

} // namespace CommonUI

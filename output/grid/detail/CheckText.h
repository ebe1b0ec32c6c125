#pragma once

#include "common/StringTable.h"
#include "output/grid/GridPainter.h"

namespace CommonUI
{

/// A text with the state of the check box beside it, as a screen reader says it.
inline CStr SpeakCheck(const CStr& text, EGridCheck state)
{
    constexpr int c_unchecked = 10243;
    const CStr spoken = GetString(c_unchecked + static_cast<int>(state));
    return text.IsEmpty() ? spoken : text + u", " + spoken;
}

} // namespace CommonUI

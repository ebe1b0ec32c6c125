#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <functional>
#include <string_view>

/// @file
/// Texts for places that are too narrow for them. What is left out is shown by an ellipsis; letters stay
/// whole, with their accents, and so do characters beyond the basic plane.

namespace CommonUI
{

/// Gives the width of a text, in the unit of the room. A longer text is not narrower.
using FMeasureText = std::function<double(std::u16string_view)>;

/// Where a text is cut.
enum class EElision {
    Right,  ///< names: their beginning counts
    Middle, ///< names that differ at their end, too
    Path    ///< paths: folders in the middle go first; the last part counts most
};

/// The text itself if it has room; otherwise as much of it as has; at least the ellipsis.
COMMONUI_API CStr ElideText(std::u16string_view text, double room, EElision elision,
                            const FMeasureText& measure);

/// What a label of a value says: "Root Mean Square Height: 35.2 nm".
struct COMMONUI_API SValueText {
    CStr caption{}; ///< may be empty
    CStr number{};  ///< with its decimals, as it is shown
    CStr unit{};    ///< may be empty

    /// All of it, with a colon behind the caption and a no-break space before the unit.
    CStr GetText() const;
    /// The number with its unit.
    CStr GetValueText() const;

    friend bool operator==(const SValueText&, const SValueText&) = default;
};

/// What of a value has room. A number is never cut, nor parted from its unit, as what is left of it would be
/// another value: the caption is elided first, then goes, and then the value makes way for an ellipsis.
COMMONUI_API CStr ElideValue(const SValueText& value, double room, const FMeasureText& measure);

} // namespace CommonUI

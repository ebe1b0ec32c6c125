#pragma once

#include "../../common/Color.h"
#include "../../common/Str.h"
#include "../../export/Export.h"

#include <span>
#include <string_view>

namespace CommonUI
{

/// A colour that has a name.
struct SNamedColor {
    std::u16string_view key; ///< as CSS calls it; files may store it
    SColor color;            ///< opaque
    int textId;              ///< of its display name in the string table
};

/// The colours that pickers offer, in rows of c_namedColorsInRow from grey to violet.
COMMONUI_API std::span<const SNamedColor> GetNamedColors();
/// How many of them stand in a row.
constexpr int c_namedColorsInRow = 8;

/// The display name of a colour; empty when it has none.
COMMONUI_API CStr GetColorName(const SColor& color);

} // namespace CommonUI

#pragma once

#include "../../export/Export.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace CommonUI
{

/// Where a text was found.
struct STextMatch {
    std::size_t position = 0; ///< the first code unit of the occurrence
    bool isWrapped = false;   ///< beyond the end at which the search arrived

    friend bool operator==(const STextMatch&, const STextMatch&) = default;
};

/// How a text is looked for.
struct STextSearch {
    bool isForward = true;    ///< towards the end of the text; else towards its beginning
    bool matchesCase = false; ///< else capitals are those of ToSmall
};

/// Finds the next occurrence that begins at `from` or behind it, or, backward, the last one that begins
/// before it; where there is none, the first from the other end.
/// @return nothing where the text has none, and for an empty `what`
COMMONUI_API std::optional<STextMatch> FindInText(std::u16string_view text, std::u16string_view what,
                                                  std::size_t from, const STextSearch& search = {});

} // namespace CommonUI

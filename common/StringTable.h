#pragma once

#include "../export/Export.h"
#include "Str.h"

#include <span>
#include <string_view>

namespace CommonUI
{

/// One display text with the number under which the code asks for it.
struct SStringTableRow {
    int id;                   ///< unique in its table; never used for another text
    std::u16string_view text; ///< must live as long as the row
};

/// The display text of an id, in the language that is installed; empty when no table has the id. The first
/// call settles the language for the rest of the process. Any thread may call.
COMMONDLL_API CStr GetString(int id);

/// Installs the texts of another language in place of the built-in English ones. Ids that `rows` does not
/// have keep their English text, so that a translation that lags behind leaves no blank label; rows of
/// unknown ids are kept, too. Of two rows of one id the later counts. The texts are copied.
/// @return false, and nothing changes, once a text has been asked for: what is shown must not mix two
///     languages.
COMMONDLL_API bool ReplaceStringTable(std::span<const SStringTableRow> rows);

/// The built-in English texts in rising order of their ids: what a translator starts from.
COMMONDLL_API std::span<const SStringTableRow> GetEnglishStringTable();

/// The built-in German texts, in the order of the English ones. UseLanguage of Language.h installs them.
COMMONDLL_API std::span<const SStringTableRow> GetGermanStringTable();

} // namespace CommonUI

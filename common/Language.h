#pragma once

#include "../export/Export.h"
#include "StringTable.h"

#include <span>
#include <string_view>

namespace CommonUI
{

/// A language that the library has all of its texts in.
struct SLanguage {
    std::string_view tag;     ///< its code of ISO 639-1, such as "de"
    std::u16string_view name; ///< in the language itself, for a list that the user chooses from
    std::span<const SStringTableRow> (*getTexts)(); ///< all of its rows in rising order of ids
};

/// The built-in languages, English first.
COMMONDLL_API std::span<const SLanguage> GetLanguages();

/// The built-in language of a tag: a language alone ("de"), with its country ("de-AT") or as the name of a
/// locale ("de_DE.UTF-8"), in capital or small letters. What follows the language does not count.
/// @return null for any other language, and for what is no language, as the locale "C" is
COMMONDLL_API const SLanguage* FindLanguage(std::string_view tag);

/// Installs the texts of the language that FindLanguage gives, or the English ones where it gives none. Call
/// it before anything of the library is used; of several calls the last one counts. Who never calls it has
/// English texts, and of the others no more than the room that they take in the library. Any thread may call.
/// @return false for a language that is not built in, and, without a change, once a text has been asked for
COMMONDLL_API bool UseLanguage(std::string_view tag);

} // namespace CommonUI

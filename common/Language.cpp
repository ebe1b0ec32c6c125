#include "common/Language.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

constexpr SLanguage c_languages[] = {
    {"en", u"English", GetEnglishStringTable},
    {"de", u"Deutsch", GetGermanStringTable},
};

// Whatever locale the process runs under: a Turkish one would make another letter of an I.
char ToSmallLetter(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

} // namespace

std::span<const SLanguage> GetLanguages()
{
    return c_languages;
}

const SLanguage* FindLanguage(std::string_view tag)
{
    const std::string_view language = tag.substr(0, tag.find_first_of("-_.@"));
    const auto* const found = std::ranges::find_if(c_languages, [language](const SLanguage& row) {
        return std::ranges::equal(row.tag, language, {}, {}, ToSmallLetter);
    });
    return found == std::end(c_languages) ? nullptr : found;
}

bool UseLanguage(std::string_view tag)
{
    const SLanguage* const language = FindLanguage(tag);
    const bool installed =
        ReplaceStringTable(language ? language->getTexts() : std::span<const SStringTableRow>());
    return installed && language;
}

} // namespace CommonUI

#pragma once

#include "common/Str.h"

#include <cstddef>
#include <string_view>

namespace CommonUI
{

// A character that HTML names, such as "&amp;" or "&#38;".
struct SHtmlReference {
    char32_t character = 0;
    std::size_t length = 0; // of the reference; 0 where there is none
};

// The reference at the beginning of a text.
SHtmlReference ReadHtmlReference(std::u16string_view text);

// The text of an attribute.
CStr DecodeHtmlReferences(std::u16string_view text);

void AppendCharacter(CStr& text, char32_t character);

} // namespace CommonUI

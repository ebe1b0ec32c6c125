#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <cstddef>
#include <string_view>

namespace CommonUI
{

/// @file
/// HTML from somewhere else, made harmless: nothing in it runs, loads or hides. All of this takes time
/// proportional to the length of its input, whatever that is.

/// What is left of a piece of HTML that may be shown within a page: paragraphs, lists, quotations, emphasis,
/// code, line breaks, and links to the web. Headings are of the fourth level. Of other elements the content
/// remains, but for what is not meant to be read, such as scripts and styles. Attributes go, except where
/// links lead. Every element that is opened is closed.
/// @param html may be broken in any way
/// @param page the address of the page it comes from, for links that need it
/// @param mostCharacters how many code units of text remain; what is cut off ends in an ellipsis
COMMONUI_API CStr MakeSafeHtml(std::u16string_view html, std::u16string_view page,
                               std::size_t mostCharacters);

/// The text of a piece of HTML, in one line and without markup; it is not HTML any more, and needs EscapeHtml
/// to be shown within it.
COMMONUI_API CStr GetTextOfHtml(std::u16string_view html, std::size_t mostCharacters);

/// HTML that shows a text as it is.
COMMONUI_API CStr EscapeHtml(std::u16string_view text);

} // namespace CommonUI

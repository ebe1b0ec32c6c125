#pragma once

#include "../../common/Str.h"

namespace CommonUI
{

/// A text that may stand in HTML: what comes from a file may hold characters of markup.
inline CStr EscapeMarkup(const CStr& text)
{
    return text.Replace(u"&", u"&amp;").Replace(u"<", u"&lt;").Replace(u">", u"&gt;");
}

} // namespace CommonUI

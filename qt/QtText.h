#pragma once

#include "../common/Str.h"

#include <QString>

namespace CommonUI
{

/// The same code units; also a text that is not well-formed stays what it is.
inline QString ToQString(std::u16string_view text)
{
    // Not fromUtf16, which takes a byte order mark out.
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

/// The same code units.
inline CStr FromQString(const QString& text)
{
    return std::u16string_view(reinterpret_cast<const char16_t*>(text.utf16()),
                               static_cast<std::size_t>(text.size()));
}

} // namespace CommonUI

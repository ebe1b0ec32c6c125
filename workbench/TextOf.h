#pragma once

#include "common/StringTable.h"
#include "qt/QtText.h"

#include <type_traits>

namespace Workbench
{

/// The text of the string table that an enumeration of texts names, in the language of the program.
template<class T>
requires std::is_enum_v<T> CommonUI::CStr Text(T text)
{
    return CommonUI::GetString(static_cast<int>(text));
}

/// The same for Qt.
template<class T>
requires std::is_enum_v<T> QString QText(T text)
{
    return CommonUI::ToQString(Text(text));
}

} // namespace Workbench

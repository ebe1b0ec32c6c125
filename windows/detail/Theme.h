#pragma once

#include "windows/detail/Api.h"

#include <optional>

namespace CommonUI
{

/// A number of the user's registry; empty where there is none.
std::optional<DWORD> ReadUserNumber(const wchar_t* key, const wchar_t* name);
/// Whether the user has chosen a scheme of few colours far apart.
bool IsHighContrast();
/// Whether programs are to be dark, other than by high contrast.
bool WantsDarkPrograms();

} // namespace CommonUI

#pragma once

#include "common/Str.h"

namespace CommonUI
{

/// The folder in which the user's own settings are looked for, with a separator at its end; empty, with a
/// warning, when no text leads to it.
CStr GetCustomSettingsFolder();

} // namespace CommonUI

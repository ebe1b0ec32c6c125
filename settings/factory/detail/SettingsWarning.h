#pragma once

#include "common/Str.h"

namespace CommonUI
{

/// Writes a warning of the settings factory to the diagnostics.
void WarnOfSettings(const CStr& text);

} // namespace CommonUI

#pragma once

#include "common/Str.h"

namespace CommonUI
{

/// The latest report of progress in the process, whichever dialog it was for. Any thread may call.
void SetLatestReport(float increment, const CStr& text);
float GetLatestIncrement();
/// Empty where the report had no text.
CStr GetLatestText();

} // namespace CommonUI

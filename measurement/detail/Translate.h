#pragma once

#include "common/Str.h"

namespace CommonUI::Measurement
{

// What people are shown in place of an English text of this library, in the language that is installed. Any
// other text stays as it is.
CStr Translate(const CStr& english);

} // namespace CommonUI::Measurement

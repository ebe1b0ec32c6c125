#pragma once

#include "common/Str.h"

namespace CommonUI::Measurement
{

/// A length with the unit that suits it.
CStr DescribeLength(double metres);

} // namespace CommonUI::Measurement

#pragma once

#include "model/Parameter.h"

namespace CommonUI
{

/// Puts the values of an instance's variables in place of the template's letters, in both display texts:
/// "Rmr(c0,dc), Relative Material Ratio" becomes "Rmr(5 %, 1 µm), Relative Material Ratio". Texts that are
/// not the template's stay.
void NameByVariables(CParameter& instance, const CParameter& parent);

} // namespace CommonUI

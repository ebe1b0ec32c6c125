#pragma once

#include "analysis/surface/Surface.h"
#include "analysis/surface/Value.h"

#include <vector>

namespace CommonUI::Analysis
{

/// Std, Stdi, Srw, Srwi and Sfd in this order, with the reason where one is not defined; see ComputeAreal.
std::vector<SValue> ComputeSpectralParameters(const SSurface& surface);

} // namespace CommonUI::Analysis

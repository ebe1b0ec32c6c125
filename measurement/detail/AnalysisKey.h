#pragma once

#include "model/Parameter.h"

#include <string>

namespace CommonUI::Measurement
{

/// The key by which the analysis knows a parameter: that of its template where it is made from one.
std::string AnalysisKey(const CParameter& parameter);

} // namespace CommonUI::Measurement

#pragma once

#include "common/Str.h"
#include "model/AnalysisPreferencesManager.h"

#include <vector>

namespace CommonUI::Measurement
{

/// A parameter made from a template.
struct STemplateValues {
    CStr key{};                   ///< of the template
    std::vector<double> values{}; ///< of its variables
};

/// Makes the parameter that a text such as "Sdc(10,50)" names, in every analysis that has the template.
/// @throws ERequest
STemplateValues AddFromTemplate(CAnalysisPreferencesManager& manager, const CStr& text);

} // namespace CommonUI::Measurement

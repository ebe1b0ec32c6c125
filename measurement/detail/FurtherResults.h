#pragma once

#include "analysis/surface/Value.h"
#include "measurement/Choices.h"
#include "measurement/Results.h"

#include <string_view>
#include <vector>

namespace CommonUI::Measurement
{

/// What a further analysis of a surface has come to.
struct SEvaluation {
    std::vector<Analysis::SValue> values{};
    /// The same quantities of the lines of the surface, or of its columns; none of other analyses.
    std::vector<std::vector<Analysis::SValue>> sections{};
    CStr sectionName{};
    std::vector<std::pair<CStr, CStr>> notes{}; ///< labels and texts for the summary
    SOutputs outputs{};
};

/// @param outputs the keys of the outputs that are wanted
SEvaluation Evaluate(const Analysis::SSurface& surface, const SFurtherAnalysis& further,
                     const std::vector<CParameter>& outputs);

/// Adds what the further analysis of the choices comes to.
void AddFurther(const SInput& input, const SChoices& choices, SResults& results);

} // namespace CommonUI::Measurement

#pragma once

#include "../../export/Export.h"
#include "../../model/AnalysisPreferencesManager.h"
#include "../Choices.h"
#include "ReportDocument.h"

#include <optional>
#include <string>

namespace CommonUI::Measurement
{

/// What the blocks of a template ask the analyses for.
struct STemplateChoices {
    SChoices choices{}; ///< of the grains, where the template is about them and there is a way to find them
    std::optional<SChoices> roughness{}; ///< beside those of grains, where the template has blocks of both
};

/// @param request with the grains that blocks of grains shall have
/// @throws ERequest
COMMONUIMEASUREMENT_API STemplateChoices ChooseForTemplate(const SReportTemplateSettings& layout,
                                                           const SRequest& request,
                                                           const CAnalysisPreferencesManager& manager);

/// Computes the report of a surface, whole. Any thread may call.
/// @return the bytes of a file of the format that GetDocumentFile says
/// @throws ERequest, Analysis::ENoPoints see ComputeResults
COMMONUIMEASUREMENT_API std::string MakeTemplateDocument(const SReportTemplateSettings& layout,
                                                         const SInput& input, const STemplateChoices& choices,
                                                         bool hasPictures);

/// The extension of the document of a template, such as ".html".
COMMONUIMEASUREMENT_API const char* GetDocumentExtension(const SReportTemplateSettings& layout);

} // namespace CommonUI::Measurement

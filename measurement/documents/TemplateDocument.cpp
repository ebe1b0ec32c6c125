#include "measurement/documents/TemplateDocument.h"

#include "measurement/documents/OdtDocument.h"
#include "measurement/Results.h"

#include <utility>

namespace CommonUI::Measurement
{

STemplateChoices ChooseForTemplate(const SReportTemplateSettings& layout, const SRequest& request,
                                   const CAnalysisPreferencesManager& manager)
{
    if (!IsAboutGrains(layout) || !request.method.MeasuresGrains())
        return {.choices = MakeChoices(manager, RequestRoughness(request))};
    STemplateChoices choices{.choices = MakeChoices(manager, RequestGrains(request, layout))};
    if (IsAboutRoughness(layout))
        choices.roughness = MakeChoices(manager, RequestRoughness(request));
    return choices;
}

std::string MakeTemplateDocument(const SReportTemplateSettings& layout, const SInput& input,
                                 const STemplateChoices& choices, bool hasPictures)
{
    const CReportTables tables(ComputeResults(input, choices.choices), false);
    std::optional<CReportTables> beside;
    if (choices.roughness)
        beside.emplace(ComputeResults(input, *choices.roughness), false);
    const SDocumentSource source =
        MakeDocumentSource(input, choices.choices.method, tables, beside ? &*beside : nullptr, hasPictures);
    std::string bytes;
    GetDocumentFile(layout, source).write([&bytes](std::string_view part) { bytes += part; });
    return bytes;
}

const char* GetDocumentExtension(const SReportTemplateSettings& layout)
{
    return layout.format == EReportFormat::Doc && HasOdt() ? ".odt" : ".html";
}

} // namespace CommonUI::Measurement

#include "programs/surface_report/DocumentReport.h"

#include "measurement/documents/ReportDocument.h"

#include <utility>

namespace SurfaceReport
{

namespace fs = std::filesystem;
namespace Measurement = CommonUI::Measurement;

void AddDocument(const fs::path& path, const CommonUI::SReportTemplateSettings& layout,
                 const Measurement::SInput& input, const Measurement::SMethod& method,
                 const Measurement::CReportTables& tables, std::optional<Measurement::SResults> roughness,
                 const SOptions& options, COutputFiles& files)
{
    std::optional<Measurement::CReportTables> beside;
    if (roughness)
        beside.emplace(std::move(*roughness), false);
    const Measurement::SDocumentSource source =
        MakeDocumentSource(input, method, tables, beside ? &*beside : nullptr, options.hasPictures);
    files.AddReport(path, tables, options.forms, GetDocumentFile(layout, source));
}

void AddStepReport(const fs::path& path, Measurement::SBatchReport made, const SOptions& options,
                   COutputFiles& files)
{
    const Measurement::CReportTables tables(std::move(made.results), !options.isMany && options.transpose);
    if (made.layout)
        AddDocument(path, *made.layout, made.input, made.choices.method, tables, std::move(made.roughness),
                    options, files);
    else
        files.AddReport(path, tables, options.forms);
}

} // namespace SurfaceReport

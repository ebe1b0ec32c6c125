#include "programs/surface_report/CollectedReport.h"

#include "measurement/documents/CollectionDocument.h"
#include "programs/surface_report/FileReports.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace SurfaceReport
{

namespace fs = std::filesystem;
namespace Measurement = CommonUI::Measurement;

CCollectedReport::CCollectedReport(const CommonUI::SReportTemplateSettings& layout, fs::path path,
                                   Measurement::SChoices choices, std::size_t fileCount)
    : m_layout(layout)
    , m_path(std::move(path))
    , m_choices(std::move(choices))
    , m_rows(fileCount)
    , m_measurements(std::min(fileCount, Measurement::c_mostPictured))
{
}

void CCollectedReport::Add(std::size_t index, SFileRow row, const CommonUI::Analysis::SSurface& surface,
                           bool hasPictures)
{
    if (index < m_measurements.size() && hasPictures)
        m_measurements[index] = {row.name, DrawBlocks(m_layout, surface, m_choices.method)};
    m_rows[index] = std::move(row);
}

bool CCollectedReport::HasAny() const
{
    return std::ranges::any_of(m_rows, [](const auto& row) { return row.has_value(); });
}

void CCollectedReport::Write(const std::vector<std::optional<SFileRow>>& rows,
                             const std::vector<SRunFact>& facts, const SOptions& options,
                             COutputFiles& files) const
{
    std::vector<SFileRow> finished;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!rows[i])
            continue;
        const bool hasFailed = rows[i]->values.empty() || !m_rows[i];
        finished.push_back(hasFailed ? SFileRow{.name = rows[i]->name} : *m_rows[i]);
        finished.back().remark = rows[i]->remark;
    }
    const CFileTable table(finished, m_choices, facts);
    const Measurement::SCollectionSource source = table.GetSource(m_measurements, options.hasPictures);
    AddTable(m_path, table, options.forms, files, GetDocumentFile(m_layout, source));
}

std::map<std::size_t, CCollectedReport>
MakeCollectedReports(const SOptions& options, const SPlan& plan, const Measurement::SChoices& choices,
                     const CommonUI::CAnalysisPreferencesManager& manager, std::size_t fileCount)
{
    std::map<std::size_t, CCollectedReport> reports;
    if (plan.sets.report)
        reports.try_emplace(0, plan.sets.report->layout, options.output / "report", choices, fileCount);
    if (!plan.batch)
        return reports;
    Measurement::SRequest request = plan.request; // with the sets of the steps before
    std::size_t number = 0;
    for (const Measurement::SBatchWork& step : plan.batch->steps) {
        ++number;
        if (const auto* const set = std::get_if<Measurement::SRoughnessSet>(&step.work))
            request.roughness.push_back(set->data);
        const auto* const report = std::get_if<Measurement::SReportTemplate>(&step.work);
        if (report && Measurement::IsAboutSeveral(report->layout))
            reports.try_emplace(number, report->layout,
                                options.output / ("report-" + NameStepReport(number, report->name)),
                                MakeChoices(manager, request), fileCount);
    }
    return reports;
}

} // namespace SurfaceReport

#include "programs/surface_report/FileReports.h"

#include <algorithm>

namespace SurfaceReport
{

void AddTable(const std::filesystem::path& folder, const CFileTable& table, const SReportForms& forms,
              COutputFiles& files)
{
    files.Add(folder / "report.html", [&](const auto& write) { write(table.GetHtml()); });
    files.Add(folder / "report.txt", [&](const auto& write) { write(table.GetText()); });
    if (forms.hasData) {
        files.Add(folder / "report.csv", [&](const auto& write) { table.WriteCsv(write); });
        files.Add(folder / "report.json", [&](const auto& write) { table.WriteJson(write); });
    }
    if (forms.spreadsheet)
        files.Add(folder / "report.sheet.csv",
                  [&](const auto& write) { write(table.GetText(*forms.spreadsheet)); });
}

bool TellOfFailures(const std::vector<SFileRow>& rows, std::size_t fileCount, std::ostream& err)
{
    const auto failed = std::ranges::count_if(rows, [](const SFileRow& row) { return row.values.empty(); });
    if (failed != 0)
        err << "surface_report: " << failed << " of " << fileCount << " files failed; report.txt says why\n";
    const auto incomplete = std::ranges::count_if(rows, &SFileRow::HasFailedValue);
    if (incomplete != 0)
        err << "surface_report: values of " << incomplete << " of " << fileCount
            << " files could not be computed; report.html says why\n";
    return failed != 0 || incomplete != 0;
}

} // namespace SurfaceReport

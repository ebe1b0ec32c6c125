#include "programs/surface_report/FileReports.h"

#include <algorithm>

namespace SurfaceReport
{

void AddTable(const std::filesystem::path& path, const CFileTable& table, const SReportForms& forms,
              COutputFiles& files, const CommonUI::Measurement::SDocumentFile& document)
{
    using FWrite = COutputFiles::FWrite;
    const auto add = [&](const char* extension, const std::function<void(const FWrite&)>& make) {
        std::filesystem::path file = path;
        files.Add(file += extension, make);
    };
    add(
        document.extension,
        document.write ? document.write : [&](const FWrite& write) { write(table.GetHtml()); });
    add(".txt", [&](const FWrite& write) { write(table.GetText()); });
    if (forms.hasData) {
        add(".csv", [&](const FWrite& write) { table.WriteCsv(write); });
        add(".json", [&](const FWrite& write) { table.WriteJson(write); });
    }
    if (forms.spreadsheet)
        add(".sheet.csv", [&](const FWrite& write) { write(table.GetText(*forms.spreadsheet)); });
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

#include "programs/surface_report/OutputFiles.h"

#include "measurement/data/ReportData.h"

#include <stdexcept>
#include <system_error>

namespace SurfaceReport
{

namespace fs = std::filesystem;

namespace
{

void Check(bool done, const fs::path& path, const CommonUI::CStr& reason)
{
    if (!done)
        throw std::runtime_error(path.string() + ": " + reason.ToUtf8());
}

constexpr const char* c_html = ".html";
constexpr const char* c_text = ".txt";
constexpr const char* c_csv = ".csv";
constexpr const char* c_json = ".json";
constexpr const char* c_spreadsheet = ".sheet.csv";

} // namespace

std::vector<std::string> SReportForms::GetExtensions() const
{
    std::vector<std::string> extensions{c_html, c_text};
    if (hasData)
        extensions.insert(extensions.end(), {c_csv, c_json});
    if (spreadsheet)
        extensions.emplace_back(c_spreadsheet);
    return extensions;
}

// Delegates, so that the destructor undoes what was made before it failed.
CMadeFolder::CMadeFolder(const fs::path& folder)
    : CMadeFolder()
{
    for (fs::path path = folder; !path.empty() && !fs::exists(path); path = path.parent_path())
        m_made.push_back(path);
    fs::create_directories(folder);
}

CMadeFolder::~CMadeFolder()
{
    std::error_code ignored;
    for (const fs::path& path : m_made)
        fs::remove(path, ignored);
}

void COutputFiles::Add(const fs::path& path, const std::function<void(const FWrite&)>& make)
{
    CommonUI::CStr reason;
    CommonUI::CFileReplacement& content = m_files.emplace_back(path).content;
    Check(content.OpenPath(path, reason), path, reason);
    make([&](std::string_view piece) { Check(content.Write(piece, reason), path, reason); });
}

void COutputFiles::AddReport(const fs::path& path, const CommonUI::Measurement::CReportTables& report,
                             const SReportForms& forms, const CommonUI::Measurement::SDocumentFile& document)
{
    const auto add = [&](const char* extension, const std::function<void(const FWrite&)>& make) {
        fs::path file = path;
        Add(file += extension, make);
    };
    add(
        document.extension,
        document.write ? document.write : [&](const FWrite& write) { report.WriteHtml(write); });
    add(c_text, [&](const FWrite& write) { report.WriteText(write); });
    if (forms.hasData) {
        add(c_csv, [&](const FWrite& write) { WriteCsv(report.GetResults(), write); });
        add(c_json, [&](const FWrite& write) { WriteJson(report.GetResults(), write); });
    }
    if (forms.spreadsheet)
        add(c_spreadsheet, [&](const FWrite& write) { report.WriteText(write, *forms.spreadsheet); });
}

void COutputFiles::Replace()
{
    CommonUI::CStr reason;
    for (SFile& file : m_files)
        Check(file.content.ReplaceForNow(reason), file.path, reason);
}

void COutputFiles::Keep()
{
    for (SFile& file : m_files)
        file.content.Keep();
}

} // namespace SurfaceReport

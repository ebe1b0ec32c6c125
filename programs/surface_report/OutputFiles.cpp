#include "programs/surface_report/OutputFiles.h"

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

} // namespace

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
    Check(content.Open(path.u16string(), reason), path, reason);
    make([&](std::string_view piece) { Check(content.Write(piece, reason), path, reason); });
}

void COutputFiles::AddReport(const fs::path& path, const CommonUI::Measurement::CReportTables& report,
                             const CommonUI::Measurement::SDocumentFile& document)
{
    fs::path html = path;
    fs::path text = path;
    Add(
        html += document.extension,
        document.write ? document.write : [&](const FWrite& write) { report.WriteHtml(write); });
    Add(text += ".txt", [&](const FWrite& write) { report.WriteText(write); });
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

#pragma once

#include "common/file/FileReplacement.h"
#include "measurement/documents/ReportDocument.h"
#include "measurement/ReportTables.h"

#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace SurfaceReport
{

/// A folder that is made where there is none, with those above it, and goes again unless it is kept.
class CMadeFolder
{
public:
    /// @throws std::filesystem::filesystem_error
    explicit CMadeFolder(const std::filesystem::path& folder);
    ~CMadeFolder();
    CMadeFolder(const CMadeFolder&) = delete;
    CMadeFolder& operator=(const CMadeFolder&) = delete;

    void Keep() { m_made.clear(); }

private:
    CMadeFolder() = default;

    std::vector<std::filesystem::path> m_made{}; // the deepest first
};

/// The forms in which reports are written besides HTML and text.
struct SReportForms {
    bool hasData = true; ///< CSV and JSON for other programs
    /// CSV for a spreadsheet program; nothing for none.
    std::optional<CommonUI::SNumberProfile> spreadsheet{};

    /// The extensions of all files of a report.
    std::vector<std::string> GetExtensions() const;
};

/// Files that take their places together or not at all. Until then they lie beside them.
class COutputFiles
{
public:
    /// Writes a piece of a file.
    using FWrite = CommonUI::Measurement::FWriteText;

    COutputFiles() = default;
    COutputFiles(const COutputFiles&) = delete;
    COutputFiles& operator=(const COutputFiles&) = delete;

    /// Adds a file.
    /// @param make writes it with the function that it is called with
    /// @throws std::runtime_error where that fails
    void Add(const std::filesystem::path& path, const std::function<void(const FWrite&)>& make);
    /// Adds a report as HTML, as text and in the other forms: the path with the extensions of all of them.
    /// @param document in place of the HTML; without it that of the tables is written
    void AddReport(const std::filesystem::path& path, const CommonUI::Measurement::CReportTables& report,
                   const SReportForms& forms, const CommonUI::Measurement::SDocumentFile& document = {});
    /// Puts all into their places, until the object goes unless Keep is called.
    /// @throws std::runtime_error where that fails
    void Replace();
    void Keep();

private:
    struct SFile {
        std::filesystem::path path;
        CommonUI::CFileReplacement content{};
    };

    std::deque<SFile> m_files{};
};

} // namespace SurfaceReport

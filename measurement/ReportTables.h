#pragma once

#include "../export/Export.h"
#include "../output/results/Footnotes.h"
#include "../output/results/GridBaseOutputCtrl.h"
#include "Results.h"
#include "WriteText.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace CommonUI::Measurement
{

/// The tables of a report and the forms in which other programs read them.
class COMMONUIMEASUREMENT_API CReportTables
{
public:
    /// The most rows that a page of HTML has; more would be too many for those who show it. Beyond them the
    /// page has their statistics and says that they are in the text.
    COMMONUI_CONSTANT std::size_t c_mostRows = 10'000;

    /// Control characters in the texts become blanks.
    /// @param transpose parameters as columns of the surface's table and as rows of the others
    CReportTables(SResults results, bool transpose);

    /// Pieces of HTML for the page, which stand behind the summary; see MakePictures.
    void SetPictures(std::vector<std::string> pictures) { m_pictures = std::move(pictures); }

    /// From what the tables were made.
    const SResults& GetResults() const noexcept { return m_results; }
    /// What was measured and how.
    const CGridBaseOutputCtrl& GetSummary() const noexcept { return m_summary; }
    /// A row for each parameter of the surface.
    const CGridBaseOutputCtrl& GetSurface() const noexcept { return m_surface; }
    /// A row with the units, and one for each profile or grain if these are no more than c_mostRows.
    const CGridBaseOutputCtrl& GetRows() const noexcept { return m_rows; }
    /// Likewise with the rows from `first` to `last` alone, the latter not included, however many there are.
    CGridBaseOutputCtrl MakeRows(std::size_t first, std::size_t last) const;
    /// A row for each statistic of those.
    const CGridBaseOutputCtrl& GetStatistics() const noexcept { return m_statistics; }
    /// Why cells of the surface's table are empty.
    const CFootnotes& GetSurfaceNotes() const noexcept { return m_surfaceNotes; }
    /// Why cells of the rows and their statistics are.
    const CFootnotes& GetRowNotes() const noexcept { return m_rowNotes; }
    /// Likewise, of the statistics alone.
    const CFootnotes& GetStatisticsNotes() const noexcept { return m_statisticsNotes; }

    /// Tab-separated text for a spreadsheet: UTF-8 with a byte order mark, by which spreadsheet programs know
    /// it. It has all rows, which become text some at a time.
    /// @param profile how the numbers are written; not that for machines, see WriteJson
    void WriteText(const FWriteText& write, const SNumberProfile& profile = {}) const;
    /// A page of HTML, UTF-8, made in the same way.
    void WriteHtml(const FWriteText& write) const;

    /// What WriteText writes, as a whole.
    std::string GetText() const;
    /// What WriteHtml writes, as a whole.
    std::string GetHtml() const;

private:
    void WriteTextRows(const FWriteText& write, const SNumberProfile& profile) const;
    void WriteTurnedTextRows(const FWriteText& write, const SNumberProfile& profile) const;
    void WriteHtmlRows(const FWriteText& write) const;
    void WriteTurnedHtmlRows(const FWriteText& write) const;
    void FillSurface();
    void FillRows(std::size_t first, std::size_t last);
    void FillStatistics();
    SValueState NoteStatistic(std::size_t index, const CStr& name, const Analysis::SValue& statistic);
    bool HasTooManyRows() const;

    SResults m_results;
    std::string m_title;
    bool m_transpose;
    std::vector<std::string> m_pictures{};
    CGridBaseOutputCtrl m_summary;
    CGridBaseOutputCtrl m_surface;
    CGridBaseOutputCtrl m_rows;
    CGridBaseOutputCtrl m_statistics;
    CFootnotes m_surfaceNotes{};
    CFootnotes m_rowNotes{};
    CFootnotes m_statisticsNotes{};
};

} // namespace CommonUI::Measurement

#pragma once

#include "../export/Export.h"
#include "../output/results/GridBaseOutputCtrl.h"
#include "Results.h"

#include <cstddef>
#include <string>
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
    static constexpr std::size_t c_mostRows = 10'000;

    /// Control characters in the texts become blanks.
    /// @param transpose parameters as columns of the surface's table and as rows of the others
    CReportTables(SResults results, bool transpose);

    /// Pieces of HTML for the page, which stand behind the summary; see MakePictures.
    void SetPictures(std::vector<std::string> pictures) { m_pictures = std::move(pictures); }

    /// What was measured and how.
    const CGridBaseOutputCtrl& GetSummary() const noexcept { return m_summary; }
    /// A row for each parameter of the surface.
    const CGridBaseOutputCtrl& GetSurface() const noexcept { return m_surface; }
    /// A row with the units, and one for each profile or grain if these are no more than c_mostRows.
    const CGridBaseOutputCtrl& GetRows() const noexcept { return m_rows; }
    /// A row for each statistic of those.
    const CGridBaseOutputCtrl& GetStatistics() const noexcept { return m_statistics; }

    /// Tab-separated text for a spreadsheet: UTF-8 with a byte order mark, by which spreadsheet programs know
    /// it. It has all rows, which become text one after the other.
    std::string GetText() const;
    /// A page of HTML, UTF-8.
    std::string GetHtml() const;

private:
    void AppendRows(std::string& text) const;
    void AppendTurnedRows(std::string& text) const;
    bool HasTooManyRows() const;

    SResults m_results;
    std::string m_title;
    bool m_transpose;
    std::vector<std::string> m_pictures{};
    CGridBaseOutputCtrl m_summary;
    CGridBaseOutputCtrl m_surface;
    CGridBaseOutputCtrl m_rows;
    CGridBaseOutputCtrl m_statistics;
};

} // namespace CommonUI::Measurement

#pragma once

#include "measurement/Choices.h"
#include "measurement/Columns.h"
#include "measurement/documents/CollectionDocument.h"
#include "measurement/ValueFailure.h"
#include "measurement/WriteText.h"
#include "output/results/Footnotes.h"
#include "output/results/GridBaseOutputCtrl.h"
#include "programs/surface_report/RunHead.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace SurfaceReport
{

/// What has come of one of many files.
struct SFileRow {
    CommonUI::CStr name{}; ///< its path
    std::vector<double>
        values{}; ///< of the parameters at unit factor 1, NaN where not defined; empty if it failed
    CommonUI::CStr remark{}; ///< why it failed, or what else is to be said
    std::string sha256{};    ///< of the file; empty where nobody has computed it
    std::string date{};      ///< that the file states; empty where it states none
    /// Why values are not defined, by their index.
    std::map<std::size_t, std::string> reasons{};

    /// Whether the computation of one of its values has failed.
    bool HasFailedValue() const
    {
        return std::ranges::any_of(
            reasons, [](const auto& row) { return CommonUI::Measurement::IsFailure(row.second); });
    }
};

/// The table of many files: a row for each, with the parameters of the surfaces as columns, and statistics.
class CFileTable
{
public:
    /// @param rows must live as long as the table, as well as what is said of the run
    /// @param choices its surface parameters are the columns
    CFileTable(const std::vector<SFileRow>& rows, const CommonUI::Measurement::SChoices& choices,
               const std::vector<SRunFact>& facts);

    /// Tab-separated, or as the profile separates it, UTF-8 with a byte order mark.
    std::string GetText(const CommonUI::SNumberProfile& profile = {}) const;
    /// A page of HTML, UTF-8, which says below the table why cells are empty.
    std::string GetHtml() const;
    /// The statistics of each parameter as aligned columns for a terminal, with why some are empty, UTF-8.
    std::string GetTerminalText() const;
    /// The table for a document of a template; it refers to this object and the pictures.
    CommonUI::Measurement::SCollectionSource
    GetSource(const std::vector<CommonUI::Measurement::SPicturedMeasurement>& measurements,
              bool hasPictures) const;
    /// A line for each value, and JSON, both for other programs, see measurement/data/ReportData.h.
    void WriteCsv(const CommonUI::Measurement::FWriteText& write) const;
    void WriteJson(const CommonUI::Measurement::FWriteText& write) const;

private:
    void FillRows();
    void FillStatistics();
    void NoteReasons(const SFileRow& row);
    void NoteStatistic(std::size_t column, const CommonUI::CStr& name, std::string_view reason);

    const std::vector<SFileRow>& m_files;
    const std::vector<SRunFact>& m_facts;
    std::vector<CommonUI::Measurement::SColumn> m_columns;
    std::vector<CommonUI::CParameter> m_shownStatistics{};
    CommonUI::CGridBaseOutputCtrl m_summary;
    CommonUI::CGridBaseOutputCtrl m_rows;
    CommonUI::CGridBaseOutputCtrl m_statistics;
    CommonUI::CFootnotes m_notes{};           // why cells of rows and statistics are empty
    CommonUI::CFootnotes m_statisticsNotes{}; // why those of statistics are
};

} // namespace SurfaceReport

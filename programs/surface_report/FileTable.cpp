#include "programs/surface_report/FileTable.h"

#include "analysis/numeric/Statistics.h"
#include "analysis/surface/Value.h"
#include "common/ControlCharacters.h"
#include "measurement/Columns.h"
#include "measurement/FractileShare.h"
#include "model/Enumerations.h"
#include "output/results/Markup.h"
#include "output/results/NumberFormat.h"
#include "output/results/ProfileText.h"
#include "programs/surface_report/AlignedText.h"

#include <algorithm>
#include <iterator>

namespace SurfaceReport
{

using namespace CommonUI;
using CGrid = CGridBaseOutputCtrl;
using SCell = CGrid::SCellInfo;
using Measurement::SColumn;

namespace
{

// A column of the values of all files that have some.
std::vector<SColumn> MakeColumns(const std::vector<SFileRow>& rows, const Measurement::SChoices& choices)
{
    std::vector<SColumn> columns;
    for (std::size_t i = 0; i < choices.surface.size(); ++i) {
        std::vector<double> values(rows.size());
        std::ranges::transform(rows, values.begin(), [i](const SFileRow& row) {
            return row.values.empty() ? Analysis::c_undefined : row.values[i];
        });
        columns.push_back(
            Measurement::MakeColumn(choices.surface[i], std::move(values), choices.automaticUnits));
    }
    return columns;
}

CStr StatisticText(const SColumn& column, const CParameter& statistic, double value)
{
    if (statistic == static_cast<int>(EStatistics::Count))
        return FormatParameterValue(value, {CParameter::EFormatSpecifier::FormatInteger, 0});
    if (statistic == static_cast<int>(EStatistics::SdPercent))
        return FormatParameterValue(value, column.parameter.GetFloatFormat());
    return column.GetText(value);
}

// The table with texts that may stand in HTML.
CGrid Escaped(const CGrid& grid)
{
    CGrid escaped(grid.GetType());
    escaped.SetNameHeader(EscapeMarkup(grid.GetNameHeader()));
    for (CGrid::SColumn column : grid.GetColumns()) {
        column.header = EscapeMarkup(column.header);
        column.group = EscapeMarkup(column.group);
        escaped.AddColumn(column);
    }
    for (CGrid::SRow row : grid.GetRows()) {
        row.name = EscapeMarkup(row.name);
        std::ranges::transform(row.cells, row.cells.begin(), EscapeMarkup);
        escaped.AddRow(std::move(row));
    }
    return escaped;
}

} // namespace

CFileTable::CFileTable(const std::vector<SFileRow>& rows, const Measurement::SChoices& choices,
                       const std::vector<SRunFact>& facts)
    : m_files(rows)
    , m_facts(facts)
    , m_columns(MakeColumns(rows, choices))
    , m_summary(SCell::Summary)
    , m_rows(SCell::Results)
    , m_statistics(SCell::Statistics)
{
    const double share = Measurement::FractileShare(choices.statistics);
    for (SColumn& column : m_columns)
        column.statistics = Analysis::ComputeStatistics(column.values, share);
    std::ranges::copy_if(choices.statistics, std::back_inserter(m_shownStatistics), &CParameter::IsOn);
    const auto failed = std::ranges::count_if(rows, [](const SFileRow& row) { return row.values.empty(); });
    m_summary.AddRow({.name = u"Files", .cells = {CStr::Format(u"%d", rows.size())}});
    m_summary.AddRow({.name = u"Failed", .cells = {CStr::Format(u"%d", failed)}});
    for (const SRunFact& fact : facts)
        m_summary.AddRow({.name = CStr::FromUtf8(fact.label), .cells = {CStr::FromUtf8(fact.text)}});
    FillRows();
    FillStatistics();
}

void CFileTable::FillRows()
{
    CGrid::SRow units{.name = u"Unit", .cells = {}, .subHeader = true};
    m_rows.SetNameHeader(u"File");
    for (const SColumn& column : m_columns) {
        m_rows.AddColumn({column.parameter.GetShortFriendlyString(), {}});
        units.cells.push_back(column.GetUnitText());
    }
    m_rows.AddColumn({u"Remark", {}});
    m_rows.AddRow(units);
    for (std::size_t i = 0; i < m_files.size(); ++i) {
        CGrid::SRow row{.name = ReplaceControls(m_files[i].name, u' '), .cells = {}};
        for (const SColumn& column : m_columns)
            row.cells.push_back(m_files[i].values.empty() ? CStr() : column.GetText(column.values[i]));
        row.cells.emplace_back(ReplaceControls(m_files[i].remark, u' '));
        m_rows.AddRow(std::move(row));
        NoteReasons(m_files[i]);
    }
}

void CFileTable::NoteReasons(const SFileRow& row)
{
    for (const auto& [index, reason] : row.reasons)
        if (index < m_columns.size())
            m_notes.Add(m_columns[index].parameter.GetShortFriendlyString(), CStr::FromUtf8(reason));
}

void CFileTable::FillStatistics()
{
    m_statistics.SetNameHeader(u"Statistic");
    for (const SColumn& column : m_columns)
        m_statistics.AddColumn({column.parameter.GetShortFriendlyString(), {}});
    for (const CParameter& statistic : m_shownStatistics) {
        const std::string key = statistic.GetIniName().ToUtf8();
        CGrid::SRow row{.name = statistic.GetFriendlyString(), .cells = {}};
        for (std::size_t index = 0; index < m_columns.size(); ++index) {
            const SColumn& column = m_columns[index];
            const auto found = std::ranges::find(column.statistics, key, &Analysis::SValue::key);
            row.cells.push_back(
                found == column.statistics.end() ? CStr() : StatisticText(column, statistic, found->value));
            if (found != column.statistics.end() && !found->reason.empty())
                NoteStatistic(index, row.name, found->reason);
        }
        m_statistics.AddRow(std::move(row));
    }
}

// A column without any value has no statistics for the reason of its first row.
void CFileTable::NoteStatistic(std::size_t column, const CStr& name, std::string_view reason)
{
    CStr symbol = name;
    CStr text = CStr::FromUtf8(reason);
    if (m_columns[column].statistics.front().value == 0) {
        symbol = m_columns[column].parameter.GetShortFriendlyString();
        const auto first = std::ranges::find_if(
            m_files, [column](const SFileRow& row) { return row.reasons.contains(column); });
        if (first != m_files.end())
            text = CStr::FromUtf8(first->reasons.at(column));
    }
    m_notes.Add(symbol, text);
    m_statisticsNotes.Add(symbol, text);
}

std::string CFileTable::GetText(const SNumberProfile& profile) const
{
    return "\xEF\xBB\xBF" + GenerateProfileText(&m_summary, &m_rows, &m_statistics, false, profile).ToUtf8();
}

std::string CFileTable::GetTerminalText() const
{
    CGrid::CCells cells;
    m_statistics.GetGridHeaders(cells, SCell::Statistics);
    CGrid units(SCell::Results);
    for (const CGrid::SColumn& column : m_statistics.GetColumns())
        units.AddColumn(column);
    units.AddRow(m_rows.GetRows().front());
    units.GetGridCells(cells, SCell::Results);
    m_statistics.GetGridCells(cells, SCell::Statistics);
    CGrid::TransposeCells(cells);
    CGrid::CCells summary;
    m_summary.GetGridCells(summary, SCell::Summary);
    CStr text = AlignedText(summary) + u"\n" + AlignedText(cells);
    for (const CStr& line : m_statisticsNotes.GetLines())
        text += line + u'\n';
    return text.ToUtf8();
}

Measurement::SCollectionSource
CFileTable::GetSource(const std::vector<Measurement::SPicturedMeasurement>& measurements,
                      bool hasPictures) const
{
    Measurement::SCollectionSource source{.measurements = measurements,
                                          .summary = m_summary,
                                          .rows = CGrid(SCell::Results),
                                          .statistics = m_statistics,
                                          .columns = m_columns,
                                          .notes = m_notes.GetLines(),
                                          .hasPictures = hasPictures};
    // A remark is too long for a cell on a page.
    source.rows.SetNameHeader(m_rows.GetNameHeader());
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        source.rows.AddColumn(m_rows.GetColumns()[i]);
    for (CGrid::SRow row : m_rows.GetRows()) {
        if (row.cells.size() > m_columns.size()) {
            if (const CStr remark = row.cells.back(); !remark.IsEmpty())
                source.notes.push_back(row.name + u": " + remark);
            row.cells.pop_back();
        }
        source.rows.AddRow(std::move(row));
    }
    return source;
}

std::string CFileTable::GetHtml() const
{
    const CGrid summary = Escaped(m_summary);
    const CGrid rows = Escaped(m_rows);
    const CGrid statistics = Escaped(m_statistics);
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<title>Surface report</title>\n" +
           CGrid::GenerateHTMLTables(&summary, &rows, &statistics, false).ToUtf8() + m_notes.GetHtml() +
           "\n</html>\n";
}

} // namespace SurfaceReport

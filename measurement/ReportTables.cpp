#include "measurement/ReportTables.h"

#include "model/Enumerations.h"
#include "output/results/NumberFormat.h"

#include <algorithm>
#include <string_view>

namespace CommonUI::Measurement
{

using CGrid = CGridBaseOutputCtrl;
using SCell = CGrid::SCellInfo;

namespace
{

constexpr std::string_view c_lineEnd = "\r\n";

// On one line and in one cell, whatever a file says of itself.
CStr OneLine(const CStr& text)
{
    std::u16string line(text.View());
    std::ranges::replace_if(
        line, [](char16_t unit) { return unit < u' ' || (unit >= 0x7F && unit <= 0x9F); }, u' ');
    return line;
}

void FillSurface(CGrid& grid, const std::vector<SColumn>& columns)
{
    grid.SetNameHeader(u"Surface parameter");
    if (columns.front().values.size() > 1) {
        grid.AddColumn({u"Raw", {}});
        grid.AddColumn({u"Processed", {}});
    } else {
        grid.AddColumn({u"Value", {}});
    }
    grid.AddColumn({u"Unit", {}});
    for (const SColumn& column : columns) {
        CGrid::SRow row{.name = column.parameter.GetFriendlyString(), .cells = {}};
        for (const double value : column.values)
            row.cells.push_back(column.GetText(value));
        row.cells.push_back(column.GetUnitText());
        grid.AddRow(std::move(row));
    }
}

// The parameter's symbol over the standard it belongs to: an unfiltered Ra is not that of ISO 4287.
CStr HeaderOf(const CParameter& parameter)
{
    CStr symbol = parameter.GetShortFriendlyString();
    if (parameter.GetStandard() == static_cast<int>(EAnalysisStandards::None))
        return symbol;
    return symbol + u"\r\n" + GetAnalysisStandardsEnum().GetFriendlyString(parameter.GetStandard());
}

std::size_t CountRows(const SResults& results)
{
    return results.columns.empty() ? 0 : results.columns.front().values.size();
}

CStr RowName(std::size_t index)
{
    return CStr::Format(u"%d", index + 1);
}

void AddRow(CGrid& grid, const SResults& results, std::size_t index)
{
    CGrid::SRow row{.name = RowName(index), .cells = {}};
    row.cells.reserve(results.columns.size());
    for (const SColumn& column : results.columns)
        row.cells.push_back(column.GetText(column.values[index]));
    grid.AddRow(std::move(row));
}

// The headers of the columns and the row of units.
void FillHead(CGrid& grid, const SResults& results)
{
    grid.SetNameHeader(results.rowName);
    CGrid::SRow units{.name = u"Unit", .cells = {}, .subHeader = true};
    for (const SColumn& column : results.columns) {
        grid.AddColumn({HeaderOf(column.parameter), {}});
        units.cells.push_back(column.GetUnitText());
    }
    grid.AddRow(units);
}

// A statistic's text: numbers of values and percentages are not in the parameter's unit.
CStr StatisticText(const SColumn& column, EStatistics statistic, double value)
{
    if (statistic == EStatistics::Count)
        return FormatParameterValue(value, {CParameter::EFormatSpecifier::FormatInteger, 0});
    if (statistic == EStatistics::SdPercent)
        return FormatParameterValue(value, column.parameter.GetFloatFormat());
    return column.GetText(value);
}

CStr StatisticName(const CParameter& statistic)
{
    if (statistic != static_cast<int>(EStatistics::Fractile))
        return statistic.GetFriendlyString();
    return CStr::Format(u"%s %G %%", statistic.GetFriendlyString(), statistic.GetVariableValue());
}

void FillStatistics(CGrid& grid, const SResults& results)
{
    grid.SetNameHeader(u"Statistic");
    for (const SColumn& column : results.columns)
        grid.AddColumn({HeaderOf(column.parameter), {}});
    for (const CParameter& statistic : results.statistics) {
        const std::string key = statistic.GetIniName().ToUtf8();
        CGrid::SRow row{.name = StatisticName(statistic), .cells = {}};
        for (const SColumn& column : results.columns) {
            const auto found = std::ranges::find(column.statistics, key, &Analysis::SValue::key);
            if (statistic.IsOn() && found != column.statistics.end())
                row.cells.push_back(
                    StatisticText(column, static_cast<EStatistics>(statistic.GetValue()), found->value));
        }
        if (!row.cells.empty())
            grid.AddRow(std::move(row));
    }
}

CStr EscapeMarkup(const CStr& text)
{
    return text.Replace(u"&", u"&amp;").Replace(u"<", u"&lt;").Replace(u">", u"&gt;");
}

// The rows of a summary with texts that may stand in HTML: what comes from a file may hold markup
// characters.
CGrid EscapedSummary(const CGrid& grid)
{
    CGrid escaped(grid.GetType());
    for (CGrid::SRow row : grid.GetRows()) {
        row.name = EscapeMarkup(row.name);
        std::ranges::transform(row.cells, row.cells.begin(), EscapeMarkup);
        escaped.AddRow(std::move(row));
    }
    return escaped;
}

// The texts behind one another, with a separator between two that are not empty.
std::string Joined(std::initializer_list<CStr> texts, std::string_view separator)
{
    std::string joined;
    for (const CStr& text : texts) {
        if (!joined.empty() && !text.IsEmpty())
            joined += separator;
        joined += text.ToUtf8();
    }
    return joined;
}

// Inserts texts behind the first table.
void InsertBehindTable(std::string& page, const std::vector<std::string>& texts)
{
    constexpr std::string_view c_end = "</table>\n";
    const std::size_t end = page.find(c_end);
    std::size_t at = end == page.npos ? page.size() : end + c_end.size();
    for (const std::string& text : texts) {
        page.insert(at, text);
        at += text.size();
    }
}

} // namespace

CReportTables::CReportTables(SResults results, bool transpose)
    : m_results(std::move(results))
    , m_title(EscapeMarkup(OneLine(m_results.title)).ToUtf8())
    , m_transpose(transpose)
    , m_summary(SCell::Summary)
    , m_surface(SCell::Results)
    , m_rows(SCell::Results)
    , m_statistics(SCell::Statistics)
{
    for (const auto& [label, text] : m_results.summary)
        m_summary.AddRow({.name = label, .cells = {OneLine(text)}});
    if (!m_results.surface.empty())
        FillSurface(m_surface, m_results.surface);
    if (m_results.columns.empty())
        return;
    FillHead(m_rows, m_results);
    for (std::size_t i = 0; !HasTooManyRows() && i < CountRows(m_results); ++i)
        AddRow(m_rows, m_results, i);
    FillStatistics(m_statistics, m_results);
}

bool CReportTables::HasTooManyRows() const
{
    return CountRows(m_results) > c_mostRows;
}

// The rows and their statistics as text, some rows at a time.
void CReportTables::AppendRows(std::string& text) const
{
    constexpr std::size_t c_atATime = 256;
    const auto append = [&text](const CGrid& grid) {
        CGrid::CCells cells;
        grid.GetGridCells(cells, grid.GetType());
        text += CGrid::GenerateResultsText(cells).ToUtf8();
    };
    CGrid part(SCell::Results);
    FillHead(part, m_results);
    CGrid::CCells headers;
    part.GetGridHeaders(headers, SCell::Results);
    text += CGrid::GenerateResultsText(headers).ToUtf8();
    append(part);
    const std::size_t count = CountRows(m_results);
    for (std::size_t first = 0; first < count; first += c_atATime) {
        part = CGrid(SCell::Results);
        for (const CGrid::SColumn& column : m_rows.GetColumns())
            part.AddColumn(column);
        for (std::size_t i = first; i < std::min(count, first + c_atATime); ++i)
            AddRow(part, m_results, i);
        append(part);
    }
    append(m_statistics);
}

// The same with rows as columns: a line for each parameter.
void CReportTables::AppendTurnedRows(std::string& text) const
{
    const auto append = [&text](const CStr& cell) {
        text += '\t';
        text += cell.ToUtf8();
    };
    const CGrid::SRow& units = m_rows.GetRows().front();
    text += m_rows.GetNameHeader().ToUtf8();
    append(units.name);
    for (std::size_t i = 0; i < CountRows(m_results); ++i)
        append(RowName(i));
    for (const CGrid::SRow& statistic : m_statistics.GetRows())
        append(statistic.name);
    text += c_lineEnd;
    for (std::size_t index = 0; index < m_results.columns.size(); ++index) {
        const SColumn& column = m_results.columns[index];
        text += m_rows.GetColumns()[index].header.Replace(u"\r\n", u" ").ToUtf8();
        append(units.cells[index]);
        for (const double value : column.values)
            append(column.GetText(value));
        for (const CGrid::SRow& statistic : m_statistics.GetRows())
            append(m_statistics.GetCellText(statistic, index + 1));
        text += c_lineEnd;
    }
}

std::string CReportTables::GetText() const
{
    std::string text = "\xEF\xBB\xBF";
    text += CGrid::GenerateText(&m_summary, &m_surface, nullptr, m_transpose).ToUtf8();
    if (m_results.columns.empty())
        return text;
    text += c_lineEnd;
    if (m_transpose)
        AppendTurnedRows(text);
    else
        AppendRows(text);
    return text;
}

std::string CReportTables::GetHtml() const
{
    CGrid summary = EscapedSummary(m_summary);
    if (HasTooManyRows())
        summary.AddRow(
            {.name = m_results.rowName + u"s",
             .cells = {CStr::Format(u"%d, too many for a page: they are in the text file beside it",
                                    CountRows(m_results))}});
    CGrid::CCells profiles;
    m_rows.GetGridHeaders(profiles, SCell::Results);
    m_rows.GetGridCells(profiles, SCell::Results);
    m_statistics.GetGridCells(profiles, SCell::Statistics);
    if (m_transpose)
        CGrid::TransposeCells(profiles);
    std::string tables = Joined({CGrid::GenerateHTMLTables(&summary, &m_surface, nullptr, m_transpose),
                                 CGrid::GenerateResultsHTMLTable(profiles)},
                                "\n<br>\n");
    InsertBehindTable(tables, m_pictures);
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<title>Surface report: " + m_title + "</title>\n" + tables +
           "\n</html>\n";
}

} // namespace CommonUI::Measurement

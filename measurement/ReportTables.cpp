#include "measurement/ReportTables.h"

#include "common/ControlCharacters.h"
#include "model/Enumerations.h"
#include "output/results/Markup.h"
#include "output/results/NumberFormat.h"
#include "output/results/ProfileText.h"
#include "output/results/ResultsHtml.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

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
    return ReplaceControls(text, u' ');
}

// Parameters of profiles are called alike in several standards.
CStr RowNameOf(const CParameter& parameter, bool isProfile)
{
    CStr name = parameter.GetFriendlyString();
    if (!isProfile || parameter.GetStandard() == static_cast<int>(EAnalysisStandards::None))
        return name;
    return name + u" (" + GetAnalysisStandardsEnum().GetFriendlyString(parameter.GetStandard()) + u")";
}

// The parameter's symbol over the standard it belongs to: an unfiltered Ra is not that of ISO 4287.
CStr HeaderOf(const CParameter& parameter)
{
    CStr symbol = parameter.GetShortFriendlyString();
    if (parameter.GetStandard() == static_cast<int>(EAnalysisStandards::None))
        return symbol;
    return symbol + u"\r\n" + GetAnalysisStandardsEnum().GetFriendlyString(parameter.GetStandard());
}

// The same on one line.
CStr NameOf(const CParameter& parameter)
{
    return HeaderOf(parameter).Replace(u"\r\n", u" ");
}

CStr RowName(std::size_t index)
{
    return CStr::Format(u"%d", index + 1);
}

// The rows from `first` on, column by column in `values`.
void AddRows(CGrid& grid, const SResults& results, const CPartValues& values, std::size_t first)
{
    for (std::size_t i = 0; i < values.front().size(); ++i) {
        CGrid::SRow row{.name = RowName(first + i), .cells = {}};
        row.cells.reserve(values.size());
        for (std::size_t column = 0; column < values.size(); ++column)
            row.cells.push_back(results.columns[column].GetText(values[column][i]));
        grid.AddRow(std::move(row));
    }
}

// Calls work(first, last) for as many rows at a time as become text together.
template<class FWork>
void ForEachBlock(std::size_t count, std::size_t blockRows, FWork work)
{
    for (std::size_t first = 0; first < count; first += blockRows)
        work(first, std::min(count, first + blockRows));
}

constexpr std::size_t c_blockRows = 512;

// The headers of the columns and the row of units.
void FillHead(CGrid& grid, const SResults& results)
{
    grid.SetNameHeader(results.rowName);
    CGrid::SRow units{.name = u"Unit", .cells = {}, .subHeader = true};
    for (const SColumn& column : results.columns) {
        grid.AddColumn({.header = HeaderOf(column.parameter), .group = {}, .exactHeader = column.GetKey()});
        units.cells.push_back(column.GetUnitText());
        units.exactTexts.push_back({units.cells.size(), column.GetBaseUnitText()});
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

CGrid::CCells CellsOf(const CGrid& grid)
{
    CGrid::CCells cells;
    grid.GetGridCells(cells, grid.GetType());
    return cells;
}

// An empty table of the same columns.
CGrid PartOf(const CGrid& grid)
{
    CGrid part(grid.GetType());
    for (const CGrid::SColumn& column : grid.GetColumns())
        part.AddColumn(column);
    return part;
}

std::string MakeWhole(const std::function<void(const FWriteText&)>& writeTo)
{
    std::string whole;
    writeTo([&whole](std::string_view piece) { whole += piece; });
    return whole;
}

// Where the first table of a page ends.
std::size_t FindEndOfTable(std::string_view page)
{
    constexpr std::string_view c_end = "</table>\n";
    const std::size_t end = page.find(c_end);
    return end == page.npos ? page.size() : end + c_end.size();
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
        FillSurface();
    if (m_results.columns.empty())
        return;
    FillHead(m_rows, m_results);
    if (!HasTooManyRows())
        ForEachBlock(m_results.rowCount, c_blockRows,
                     [this](std::size_t first, std::size_t last) { FillRows(first, last); });
    FillStatistics();
}

void CReportTables::FillSurface()
{
    m_surface.SetNameHeader(m_results.isProfile ? u"Profile parameter" : u"Surface parameter");
    if (m_results.surface.front().values.size() > 1) {
        m_surface.AddColumn({u"Raw", {}});
        m_surface.AddColumn({u"Processed", {}});
    } else {
        m_surface.AddColumn({u"Value", {}});
    }
    m_surface.AddColumn({u"Unit", {}});
    for (const SColumn& column : m_results.surface) {
        CGrid::SRow row{.name = RowNameOf(column.parameter, m_results.isProfile), .cells = {}};
        for (const double value : column.values)
            row.cells.push_back(column.GetText(value));
        row.cells.push_back(column.GetUnitText());
        row.values = column.values;
        row.exactTexts = {{0, column.GetKey()}, {row.cells.size(), column.GetBaseUnitText()}};
        for (const auto& [index, state] : column.exceptions)
            row.states.push_back(
                {index + 1,
                 {state.state, m_surfaceNotes.Add(column.parameter.GetShortFriendlyString(), state.reason)}});
        m_surface.AddRow(std::move(row));
    }
}

// The rows of a block, and what is to be said about them.
void CReportTables::FillRows(std::size_t first, std::size_t last)
{
    const std::size_t count = m_results.columns.size();
    const CPartValues values = m_results.GetValues({0, count, first, last});
    std::vector<std::vector<CGrid::SCellState>> states(last - first);
    for (std::size_t column = 0; column < count; ++column) {
        const CStr symbol = NameOf(m_results.columns[column].parameter);
        for (std::size_t i = 0; i < last - first; ++i) {
            SValueState state = m_results.GetState(column, first + i, values[column][i]);
            if (state.state == EValueState::Value)
                continue;
            state.reason = m_rowNotes.Add(symbol, state.reason);
            states[i].push_back({column + 1, std::move(state)});
        }
    }
    CGrid part(SCell::Results);
    AddRows(part, m_results, values, first);
    for (std::size_t i = 0; i < states.size(); ++i) {
        CGrid::SRow row = part.GetRows()[i];
        row.states = std::move(states[i]);
        row.values.reserve(count);
        for (const std::vector<double>& column : values)
            row.values.push_back(column[i]);
        m_rows.AddRow(std::move(row));
    }
}

CGrid CReportTables::MakeRows(std::size_t first, std::size_t last) const
{
    CGrid grid(SCell::Results);
    FillHead(grid, m_results);
    if (first < last)
        AddRows(grid, m_results, m_results.GetValues({0, m_results.columns.size(), first, last}), first);
    return grid;
}

void CReportTables::FillStatistics()
{
    m_statistics.SetNameHeader(u"Statistic");
    for (const SColumn& column : m_results.columns)
        m_statistics.AddColumn(
            {.header = HeaderOf(column.parameter), .group = {}, .exactHeader = column.GetKey()});
    for (const CParameter& statistic : m_results.statistics) {
        const std::string key = statistic.GetIniName().ToUtf8();
        CGrid::SRow row{.name = StatisticName(statistic), .cells = {}};
        row.exactTexts = {{0, GetStatisticKey(statistic)}};
        for (std::size_t index = 0; index < m_results.columns.size(); ++index) {
            const SColumn& column = m_results.columns[index];
            const auto found = std::ranges::find(column.statistics, key, &Analysis::SValue::key);
            if (!statistic.IsOn() || found == column.statistics.end())
                continue;
            row.cells.push_back(
                StatisticText(column, static_cast<EStatistics>(statistic.GetValue()), found->value));
            row.values.push_back(found->value);
            if (std::isnan(found->value))
                row.states.push_back({row.cells.size(), NoteStatistic(index, row.name, *found)});
        }
        if (!row.cells.empty())
            m_statistics.AddRow(std::move(row));
    }
}

// A column without any value has no statistics for the reason of its first row.
SValueState CReportTables::NoteStatistic(std::size_t index, const CStr& name,
                                         const Analysis::SValue& statistic)
{
    const SColumn& column = m_results.columns[index];
    const bool hasValues = column.statistics.front().value > 0;
    const CStr symbol = hasValues ? name : NameOf(column.parameter);
    SValueState state = hasValues ? SValueState{EValueState::NotApplicable, CStr::FromUtf8(statistic.reason)}
                                  : m_results.GetState(index, 0, statistic.value);
    m_rowNotes.Add(symbol, state.reason);
    state.reason = m_statisticsNotes.Add(symbol, state.reason);
    return state;
}

bool CReportTables::HasTooManyRows() const
{
    return m_results.rowCount > c_mostRows;
}

// The rows and their statistics.
void CReportTables::WriteTextRows(const FWriteText& write, const SNumberProfile& profile) const
{
    const auto writeCells = [&](CGrid::CCells cells) {
        ConvertCells(cells, profile);
        write(GenerateProfileText(cells, profile).ToUtf8());
    };
    CGrid head(SCell::Results);
    FillHead(head, m_results);
    CGrid::CCells headers;
    head.GetGridHeaders(headers, SCell::Results);
    writeCells(headers);
    writeCells(CellsOf(head));
    ForEachBlock(m_results.rowCount, c_blockRows, [&](std::size_t first, std::size_t last) {
        CGrid part = PartOf(m_rows);
        AddRows(part, m_results, m_results.GetValues({0, m_results.columns.size(), first, last}), first);
        writeCells(CellsOf(part));
    });
    writeCells(CellsOf(m_statistics));
}

// The same with rows as columns: a line for each parameter.
void CReportTables::WriteTurnedTextRows(const FWriteText& write, const SNumberProfile& profile) const
{
    constexpr std::size_t c_piece = std::size_t{1} << 16;
    std::string text;
    const auto textOf = [&profile](const CStr& cell, std::uint32_t flags) {
        return GenerateProfileCell({.text = cell, .flags = flags}, profile).ToUtf8();
    };
    const auto append = [&](const CStr& cell, std::uint32_t flags = 0) {
        text += static_cast<char>(profile.separator);
        text += textOf(cell, flags);
        if (text.size() >= c_piece) {
            write(text);
            text.clear();
        }
    };
    const CGrid::SRow& units = m_rows.GetRows().front();
    text += textOf(m_rows.GetNameHeader(), SCell::ColumnHeader);
    append(units.name, SCell::ColumnHeader);
    for (std::size_t i = 0; i < m_results.rowCount; ++i)
        append(RowName(i), SCell::ColumnHeader);
    for (const CGrid::SRow& statistic : m_statistics.GetRows())
        append(statistic.name, SCell::ColumnHeader);
    text += c_lineEnd;
    const std::size_t count = m_results.columns.size();
    ForEachBlock(count, m_results.columnsAtOnce, [&](std::size_t first, std::size_t last) {
        const CPartValues values = m_results.GetValues({first, last, 0, m_results.rowCount});
        for (std::size_t index = first; index < last; ++index) {
            text += textOf(m_rows.GetColumns()[index].header.Replace(u"\r\n", u" "), SCell::RowHeader);
            append(units.cells[index], SCell::SubHeader);
            for (const double value : values[index - first])
                append(m_results.columns[index].GetText(value));
            for (const CGrid::SRow& statistic : m_statistics.GetRows())
                append(m_statistics.GetCellText(statistic, index + 1));
            text += c_lineEnd;
        }
    });
    write(text);
}

void CReportTables::WriteText(const FWriteText& write, const SNumberProfile& profile) const
{
    write("\xEF\xBB\xBF");
    write(GenerateProfileText(&m_summary, &m_surface, nullptr, m_transpose, profile).ToUtf8());
    if (m_results.columns.empty())
        return;
    write(c_lineEnd);
    if (m_transpose)
        WriteTurnedTextRows(write, profile);
    else
        WriteTextRows(write, profile);
}

void CReportTables::WriteHtmlRows(const FWriteText& write) const
{
    const auto& rows = m_rows.GetRows();
    CResultsHtml html(1 + rows.size() + m_statistics.GetRows().size());
    CGrid head(SCell::Results);
    FillHead(head, m_results);
    CGrid::CCells cells;
    Escaped(head).GetGridHeaders(cells, SCell::Results);
    Escaped(head).GetGridCells(cells, SCell::Results);
    write(html.MakePart(cells).ToUtf8());
    ForEachBlock(rows.size() - 1, c_blockRows, [&](std::size_t first, std::size_t last) {
        CGrid part = PartOf(m_rows);
        for (std::size_t i = first; i < last; ++i)
            part.AddRow(rows[i + 1]); // behind that of the units
        write(html.MakePart(CellsOf(part)).ToUtf8());
    });
    write(html.MakePart(CellsOf(Escaped(m_statistics))).ToUtf8());
}

// The same with rows as columns, parameter after parameter.
void CReportTables::WriteTurnedHtmlRows(const FWriteText& write) const
{
    const std::size_t count = m_results.columns.size();
    CResultsHtml html(1 + count);
    for (std::size_t index = 0; index < count; ++index) {
        CGrid part(SCell::Results);
        part.SetNameHeader(m_rows.GetNameHeader());
        part.AddColumn(m_rows.GetColumns()[index]);
        for (const CGrid* grid : {&m_rows, &m_statistics}) {
            for (const CGrid::SRow& row : grid->GetRows())
                part.AddRow({.name = row.name, .cells = {row.cells[index]}, .subHeader = row.subHeader});
        }
        CGrid::CCells cells;
        Escaped(part).GetGridHeaders(cells, SCell::Results);
        Escaped(part).GetGridCells(cells, SCell::Results);
        CGrid::TransposeCells(cells);
        if (index != 0)
            cells.erase(cells.begin()); // the names of the rows
        write(html.MakePart(cells).ToUtf8());
    }
}

void CReportTables::WriteHtml(const FWriteText& write) const
{
    CGrid summary = Escaped(m_summary);
    const CGrid surface = Escaped(m_surface);
    if (HasTooManyRows())
        summary.AddRow(
            {.name = m_results.rowName + u"s",
             .cells = {CStr::Format(u"%d, too many for a page: they are in the text file beside it",
                                    m_results.rowCount)}});
    write("<!DOCTYPE html>\n<html lang=\"en\">\n<title>Surface report: " + m_title + "</title>\n");
    const std::string tables = CGrid::GenerateHTMLTables(&summary, &surface, nullptr, m_transpose).ToUtf8();
    const std::size_t endOfSummary = FindEndOfTable(tables);
    write(tables.substr(0, endOfSummary));
    for (const std::string& picture : m_pictures)
        write(picture);
    write(tables.substr(endOfSummary));
    write(m_surfaceNotes.GetHtml());
    if (!m_results.columns.empty()) {
        if (!tables.empty())
            write("\n<br>\n");
        if (m_transpose)
            WriteTurnedHtmlRows(write);
        else
            WriteHtmlRows(write);
        write(m_rowNotes.GetHtml());
    }
    write("\n</html>\n");
}

std::string CReportTables::GetText() const
{
    return MakeWhole([this](const FWriteText& write) { WriteText(write); });
}

std::string CReportTables::GetHtml() const
{
    return MakeWhole([this](const FWriteText& write) { WriteHtml(write); });
}

} // namespace CommonUI::Measurement

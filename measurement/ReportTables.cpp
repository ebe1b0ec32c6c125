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

void FillRows(CGrid& grid, const SResults& results)
{
    grid.SetNameHeader(results.rowName);
    CGrid::SRow units{.name = u"Unit", .cells = {}, .subHeader = true};
    for (const SColumn& column : results.columns) {
        grid.AddColumn({HeaderOf(column.parameter), {}});
        units.cells.push_back(column.GetUnitText());
    }
    grid.AddRow(units);
    const std::size_t count = results.columns.front().values.size();
    grid.ReserveRows(count + 1);
    for (std::size_t i = 0; i < count; ++i) {
        CGrid::SRow row{.name = CStr::Format(u"%d", i + 1), .cells = {}};
        for (const SColumn& column : results.columns)
            row.cells.push_back(column.GetText(column.values[i]));
        grid.AddRow(std::move(row));
    }
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

} // namespace

CReportTables::CReportTables(const SResults& results, bool transpose)
    : m_title(EscapeMarkup(OneLine(results.title)).ToUtf8())
    , m_transpose(transpose)
    , m_summary(SCell::Summary)
    , m_surface(SCell::Results)
    , m_rows(SCell::Results)
    , m_statistics(SCell::Statistics)
{
    for (const auto& [label, text] : results.summary)
        m_summary.AddRow({.name = label, .cells = {OneLine(text)}});
    if (!results.surface.empty())
        FillSurface(m_surface, results.surface);
    if (!results.columns.empty()) {
        FillRows(m_rows, results);
        FillStatistics(m_statistics, results);
    }
}

std::string CReportTables::GetText() const
{
    return "\xEF\xBB\xBF" + Joined({CGrid::GenerateText(&m_summary, &m_surface, nullptr, m_transpose),
                                    CGrid::GenerateText(nullptr, &m_rows, &m_statistics, m_transpose)},
                                   "\r\n");
}

std::string CReportTables::GetHtml() const
{
    const CGrid summary = EscapedSummary(m_summary);
    CGrid::CCells profiles;
    m_rows.GetGridHeaders(profiles, SCell::Results);
    m_rows.GetGridCells(profiles, SCell::Results);
    m_statistics.GetGridCells(profiles, SCell::Statistics);
    if (m_transpose)
        CGrid::TransposeCells(profiles);
    const std::string tables = Joined({CGrid::GenerateHTMLTables(&summary, &m_surface, nullptr, m_transpose),
                                       CGrid::GenerateResultsHTMLTable(profiles)},
                                      "\n<br>\n");
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<title>Surface report: " + m_title + "</title>\n" + tables +
           "\n</html>\n";
}

} // namespace CommonUI::Measurement

#include "examples/surface_report/Report.h"

#include "examples/analysis/Statistics.h"
#include "examples/surface_report/AlignedText.h"
#include "model/Enumerations.h"
#include "model/RoughnessCatalogue.h"
#include "output/NumberFormat.h"

#include <algorithm>
#include <string_view>

namespace SurfaceReport
{

using namespace CommonUI;
using SurfaceAnalysis::ELevelling;
using SurfaceAnalysis::SSurface;
using CGrid = CGridBaseOutputCtrl;
using SCell = CGrid::SCellInfo;

namespace
{

/// The statistics that are shown, as far as they are defined.
constexpr EStatistics c_statistics[] = {EStatistics::Count, EStatistics::Minimum, EStatistics::Maximum,
                                        EStatistics::Mean,  EStatistics::Sd,      EStatistics::SdPercent,
                                        EStatistics::Median};

CStr LevellingText(ELevelling levelling)
{
    switch (levelling) {
    case ELevelling::Mean:
        return u"mean height subtracted";
    case ELevelling::Plane:
        return u"least-squares plane subtracted";
    default:
        return u"none";
    }
}

/// What a file says of itself, on one line and in one cell.
CStr OneLine(const std::string& text)
{
    std::string line = text;
    std::ranges::replace_if(
        line, [](unsigned char c) { return c < ' '; }, ' ');
    return CStr::FromUtf8(line);
}

/// A length with the unit that suits it.
CStr LengthText(double metres)
{
    const CUnit unit(CUnit(CUnit::EUnitFactor::Unity).SuitableFactor(metres, 1));
    const double shown = metres / unit.GetFactorValue();
    return FormatParameterValue(shown, CParameter::SFormatSpecifier()) + u" " + unit.GetText();
}

void FillSummary(CGrid& grid, const SSurface& surface, const SOptions& options)
{
    const auto add = [&grid](const char16_t* label, const CStr& text) {
        grid.AddRow({.name = label, .cells = {text}});
    };
    add(u"File", OneLine(surface.fileName));
    if (!surface.channel.empty())
        add(u"Channel", OneLine(surface.channel));
    add(u"Points", CStr::Format(u"%d × %d", surface.points, surface.lines));
    add(u"Spacing", LengthText(surface.dx) + u" × " + LengthText(surface.dy));
    add(u"Missing points", CStr::Format(u"%d", surface.missing));
    add(u"Levelling", LevellingText(options.levelling));
}

void FillSurface(CGrid& grid, const std::vector<SColumn>& columns)
{
    grid.SetNameHeader(u"Surface parameter");
    grid.AddColumn({u"Value", {}});
    grid.AddColumn({u"Unit", {}});
    for (const SColumn& column : columns)
        grid.AddRow({.name = column.parameter.GetFriendlyString(),
                     .cells = {column.GetText(column.values.front()), column.GetUnitText()}});
}

/// The parameter's symbol over the standard it belongs to: an unfiltered Ra is not that of ISO 4287.
CStr HeaderOf(const CParameter& parameter)
{
    return parameter.GetShortFriendlyString() + u"\r\n" +
           GetAnalysisStandardsEnum().GetFriendlyString(parameter.GetStandard());
}

void AddSymbols(CGrid& grid, const CStr& nameHeader, const std::vector<SColumn>& columns)
{
    grid.SetNameHeader(nameHeader);
    CGrid::SRow units{.name = u"Unit", .cells = {}, .subHeader = true};
    for (const SColumn& column : columns) {
        grid.AddColumn({HeaderOf(column.parameter), {}});
        units.cells.push_back(column.GetUnitText());
    }
    grid.AddRow(units);
}

void FillProfiles(CGrid& grid, const std::vector<SColumn>& columns)
{
    AddSymbols(grid, u"Profile", columns);
    const std::size_t lines = columns.empty() ? 0 : columns.front().values.size();
    grid.ReserveRows(lines + 1);
    for (std::size_t line = 0; line < lines; ++line) {
        CGrid::SRow row{.name = CStr::Format(u"%d", line + 1), .cells = {}};
        for (const SColumn& column : columns)
            row.cells.push_back(column.GetText(column.values[line]));
        grid.AddRow(std::move(row));
    }
}

/// A statistic's text: numbers of values and percentages are not in the parameter's unit.
CStr StatisticText(const SColumn& column, EStatistics statistic, double value)
{
    if (statistic == EStatistics::Count)
        return FormatParameterValue(value, {CParameter::EFormatSpecifier::FormatInteger, 0});
    if (statistic == EStatistics::SdPercent)
        return FormatParameterValue(value, column.parameter.GetFloatFormat());
    return column.GetText(value);
}

void FillStatistics(CGrid& grid, const std::vector<SColumn>& columns)
{
    grid.SetNameHeader(u"Statistic");
    for (const SColumn& column : columns)
        grid.AddColumn({HeaderOf(column.parameter), {}});
    std::vector<std::vector<SurfaceAnalysis::SValue>> computed;
    computed.reserve(columns.size());
    for (const SColumn& column : columns)
        computed.push_back(SurfaceAnalysis::ComputeStatistics(column.values));
    for (const auto& entry : GetStatisticsEnum()) {
        const auto statistic = static_cast<EStatistics>(entry.GetValue());
        if (columns.empty() || std::ranges::find(c_statistics, statistic) == std::end(c_statistics))
            continue;
        CGrid::SRow row{.name = entry.GetFriendlyString(), .cells = {}};
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const auto found =
                std::ranges::find(computed[i], entry.GetIniName().ToUtf8(), &SurfaceAnalysis::SValue::key);
            row.cells.push_back(StatisticText(columns[i], statistic, found->value));
        }
        grid.AddRow(std::move(row));
    }
}

CStr EscapeMarkup(const CStr& text)
{
    return text.Replace(u"&", u"&amp;").Replace(u"<", u"&lt;").Replace(u">", u"&gt;");
}

/// The rows of a summary with texts that may stand in HTML: what comes from a file may hold markup
/// characters.
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

/// The texts behind one another, with a separator between two that are not empty.
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

CReport::CReport(const SSurface& surface, const SColumns& columns, const SOptions& options)
    : m_title(EscapeMarkup(CStr::FromUtf8(surface.fileName)).ToUtf8())
    , m_transpose(options.transpose)
    , m_summary(SCell::Summary)
    , m_surface(SCell::Results)
    , m_profiles(SCell::Results)
    , m_statistics(SCell::Statistics)
{
    FillSummary(m_summary, surface, options);
    if (!columns.surface.empty())
        FillSurface(m_surface, columns.surface);
    if (!columns.profiles.empty()) {
        FillProfiles(m_profiles, columns.profiles);
        FillStatistics(m_statistics, columns.profiles);
    }
}

std::string CReport::GetText() const
{
    return "\xEF\xBB\xBF" + Joined({CGrid::GenerateText(&m_summary, &m_surface, nullptr, m_transpose),
                                    CGrid::GenerateText(nullptr, &m_profiles, &m_statistics, m_transpose)},
                                   "\r\n");
}

std::string CReport::GetHtml() const
{
    const CGrid summary = EscapedSummary(m_summary);
    CGrid::CCells profiles;
    m_profiles.GetGridHeaders(profiles, SCell::Results);
    m_profiles.GetGridCells(profiles, SCell::Results);
    m_statistics.GetGridCells(profiles, SCell::Statistics);
    if (m_transpose)
        CGrid::TransposeCells(profiles);
    const std::string tables = Joined({CGrid::GenerateHTMLTables(&summary, &m_surface, nullptr, m_transpose),
                                       CGrid::GenerateResultsHTMLTable(profiles)},
                                      "\n<br>\n");
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<title>Surface report: " + m_title + "</title>\n" + tables +
           "\n</html>\n";
}

std::string CReport::GetTerminalText() const
{
    CGrid::CCells surface;
    m_surface.GetGridHeaders(surface, SCell::Results);
    m_surface.GetGridCells(surface, SCell::Results);

    // Few statistics of many parameters: a line for each parameter fits a terminal.
    CGrid::CCells statistics;
    m_statistics.GetGridHeaders(statistics, SCell::Statistics);
    CGrid::CCells profiles;
    m_profiles.GetGridCells(profiles, SCell::Results);
    if (!profiles.empty())
        statistics.push_back(profiles.front());
    m_statistics.GetGridCells(statistics, SCell::Statistics);
    CGrid::TransposeCells(statistics);

    CGrid::CCells summary;
    m_summary.GetGridCells(summary, SCell::Summary);
    return Joined({AlignedText(summary), AlignedText(surface), AlignedText(statistics)}, "\n");
}

} // namespace SurfaceReport

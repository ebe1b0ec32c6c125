#include "programs/surface_report/TerminalText.h"

#include "programs/surface_report/AlignedText.h"

namespace SurfaceReport
{

using CGrid = CommonUI::CGridBaseOutputCtrl;
using SCell = CGrid::SCellInfo;

namespace
{

CommonUI::CStr SummaryText(const CGrid& grid)
{
    CGrid::CCells cells;
    grid.GetGridCells(cells, SCell::Summary);
    return AlignedText(cells);
}

CommonUI::CStr SurfaceText(const CGrid& grid)
{
    CGrid::CCells cells;
    grid.GetGridHeaders(cells, SCell::Results);
    grid.GetGridCells(cells, SCell::Results);
    return AlignedText(cells);
}

// Few statistics of many parameters: a line for each parameter fits a terminal.
CommonUI::CStr StatisticsText(const CGrid& rows, const CGrid& statistics)
{
    CGrid::CCells cells;
    statistics.GetGridHeaders(cells, SCell::Statistics);
    CGrid::CCells units;
    rows.GetGridCells(units, SCell::Results);
    if (!units.empty())
        cells.push_back(units.front());
    statistics.GetGridCells(cells, SCell::Statistics);
    CGrid::TransposeCells(cells);
    return AlignedText(cells);
}

CommonUI::CStr WithNotes(const CommonUI::CStr& table, const CommonUI::CFootnotes& notes)
{
    CommonUI::CStr text = table;
    for (const CommonUI::CStr& line : notes.GetLines())
        text += line + u'\n';
    return text;
}

} // namespace

std::string TerminalText(const CommonUI::Measurement::CReportTables& tables)
{
    std::string text;
    for (const CommonUI::CStr& part :
         {SummaryText(tables.GetSummary()),
          WithNotes(SurfaceText(tables.GetSurface()), tables.GetSurfaceNotes()),
          WithNotes(StatisticsText(tables.GetRows(), tables.GetStatistics()), tables.GetStatisticsNotes())}) {
        if (!text.empty() && !part.IsEmpty())
            text += '\n';
        text += part.ToUtf8();
    }
    return text;
}

} // namespace SurfaceReport

// Copies a table of results as an application would, and keeps it on the clipboard until it is killed:
//   copy_results selection|grids [transposed]
// Says first what a spreadsheet has to hold afterwards, as JSON: the text, and the cells of each table of the
// HTML by the columns that they begin at.

#include "output/results/GridCopy.h"
#include "qt/QtText.h"
#include "qt/services/QtServices.h"

#include <QApplication>
#include <QClipboard>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMimeData>

#include <cstdio>

using namespace CommonUI;
using CGrid = CGridBaseOutputCtrl;

namespace
{

CGrid MakeResults()
{
    CGrid grid(CGrid::SCellInfo::Results);
    grid.SetNameHeader(u"Profile");
    grid.AddColumn({u"Ra\r\n(Line)", u"Height"});
    grid.AddColumn({u"Rz\r\n(Line)", u"Height"});
    grid.AddColumn({u"RSm", u"Spacing"});
    grid.AddColumn({u"Remark", u""});
    grid.AddRow({.name = u"", .cells = {u"µm", u"nm", u"µm", u""}, .subHeader = true});
    grid.AddRow({.name = u"1", .cells = {u" 0.254", u"-1.5E-7", u"12", u"ground, 120°"}});
    grid.AddRow({.name = u"2", .cells = {u"0.0000", u"987654321", u"", u"lapped"}});
    grid.AddRow({.name = u"Mean of all", .cells = {u"0.127", u"   4.9", u"12.5", u""}});
    return grid;
}

CGrid MakeSummary()
{
    CGrid grid(CGrid::SCellInfo::Summary);
    grid.AddRow({.name = u"Surface", .cells = {u"ground steel"}});
    grid.AddRow({.name = u"Sq", .cells = {u"0.3546"}, .indent = 1});
    return grid;
}

// The cells of a table by the columns that they begin at: a row of [column, text] for each row.
QJsonArray Place(const CGrid::CCells& cells)
{
    QJsonArray rows;
    for (const CGrid::CRow& row : cells) {
        QJsonArray placed;
        int column = 0;
        for (const CGrid::SCellInfo& cell : row) {
            placed.append(QJsonArray{column, ToQString(cell.text)});
            column += cell.columnSpan;
        }
        rows.append(placed);
    }
    return rows;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const CQtServices services;
    const QStringList arguments = QApplication::arguments();
    const bool transpose = arguments.contains(QStringLiteral("transposed"));

    const CGrid summary = MakeSummary();
    CGrid results = MakeResults();
    results.SelectAll();
    const bool grids = arguments.contains(QStringLiteral("grids"));
    const bool copied =
        grids ? CopyGrids(&summary, &results, nullptr, transpose) : CopySelection(results, transpose, true);
    if (!copied)
        return 1;

    QJsonArray tables;
    CGrid::CCells cells;
    if (grids) {
        summary.GetGridCells(cells, summary.GetType());
        for (CGrid::CRow& row : cells)
            row.front().text += u':';
        tables.append(Place(cells));
        cells.clear();
        results.GetGridHeaders(cells, results.GetType());
        results.GetGridCells(cells, results.GetType());
    } else {
        results.GetSelectedCells(cells, true);
    }
    if (transpose)
        CGrid::TransposeCells(cells);
    tables.append(Place(cells));
    const QJsonObject expected{
        {QStringLiteral("text"), QGuiApplication::clipboard()->mimeData()->text()},
        {QStringLiteral("html"), tables},
    };
    std::puts(QJsonDocument(expected).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
    return QApplication::exec();
}

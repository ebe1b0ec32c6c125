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

namespace
{

CGridBaseOutputCtrl MakeResults()
{
    CGridBaseOutputCtrl grid(CGridBaseOutputCtrl::SCellInfo::Results);
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

CGridBaseOutputCtrl MakeSummary()
{
    CGridBaseOutputCtrl grid(CGridBaseOutputCtrl::SCellInfo::Summary);
    grid.AddRow({.name = u"Surface", .cells = {u"ground steel"}});
    grid.AddRow({.name = u"Sq", .cells = {u"0.3546"}, .indent = 1});
    return grid;
}

// The cells of a table by the columns that they begin at: a row of [column, text] for each row.
QJsonArray Place(const CGridBaseOutputCtrl::CCells& cells)
{
    QJsonArray rows;
    for (const CGridBaseOutputCtrl::CRow& row : cells) {
        QJsonArray placed;
        int column = 0;
        for (const CGridBaseOutputCtrl::SCellInfo& cell : row) {
            placed.append(QJsonArray{column, ToQString(cell.text)});
            column += cell.columnSpan;
        }
        rows.append(placed);
    }
    return rows;
}

QJsonArray PlaceSummary(const CGridBaseOutputCtrl& summary)
{
    QJsonArray rows;
    for (const CGridBaseOutputCtrl::SRow& row : summary.GetRows())
        rows.append(QJsonArray{QJsonArray{0, ToQString(row.name) + QLatin1Char(':')},
                               QJsonArray{1, ToQString(row.cells.front())}});
    return rows;
}

CGridBaseOutputCtrl::CCells GetCells(const CGridBaseOutputCtrl& results, bool selection, bool transpose)
{
    CGridBaseOutputCtrl::CCells cells;
    if (selection) {
        results.GetSelectedCells(cells, true);
    } else {
        results.GetGridHeaders(cells, results.GetType());
        results.GetGridCells(cells, results.GetType());
    }
    if (transpose)
        CGridBaseOutputCtrl::TransposeCells(cells);
    return cells;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const CQtServices services;
    const QStringList arguments = QApplication::arguments();
    const bool transpose = arguments.contains(QStringLiteral("transposed"));

    const CGridBaseOutputCtrl summary = MakeSummary();
    CGridBaseOutputCtrl results = MakeResults();
    results.SelectAll();
    const bool grids = arguments.contains(QStringLiteral("grids"));
    const bool copied =
        grids ? CopyGrids(&summary, &results, nullptr, transpose) : CopySelection(results, transpose, true);
    if (!copied)
        return 1;

    QJsonArray tables;
    if (grids)
        tables.append(PlaceSummary(summary));
    tables.append(Place(GetCells(results, !grids, transpose)));
    const QJsonObject expected{
        {QStringLiteral("text"), QGuiApplication::clipboard()->mimeData()->text()},
        {QStringLiteral("html"), tables},
    };
    std::puts(QJsonDocument(expected).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
    return QApplication::exec();
}

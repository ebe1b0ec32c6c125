// A table of results of 8 columns in a widget of 1000 by 600 pixels: from the table to the first picture, a
// page further, and copying a million cells. Beside it a QTableView on a model of the same cells, and a plain
// loop over that. The times should not depend on the number of rows.
#include "output/results/GridCopy.h"
#include "qt/grid/ResultGridWidget.h"
#include "qt/QtText.h"

#include <benchmark/benchmark.h>
#include <QAbstractTableModel>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPixmap>
#include <QScrollBar>
#include <QTableView>

#include <cstdint>
#include <map>
#include <memory>

using namespace CommonUI;
using CGrid = CGridBaseOutputCtrl;

namespace
{

constexpr int c_columns = 8; // beside the names of the rows
constexpr QSize c_size(1000, 600);

CStr CellText(std::int64_t row, int column)
{
    return CStr::Format(u"%.4f", static_cast<double>(row * 7 + column) * 0.137);
}

// Tables are built once and shared by the benchmarks.
CGrid& TableOf(std::int64_t rows)
{
    static std::map<std::int64_t, std::unique_ptr<CGrid>> tables;
    auto& table = tables[rows];
    if (table)
        return *table;
    table = std::make_unique<CGrid>(CGrid::SCellInfo::Results);
    for (int column = 0; column < c_columns; ++column)
        table->AddColumn({CStr::Format(u"P%d", column), {}});
    for (std::int64_t row = 0; row < rows; ++row) {
        CGrid::SRow cells{.name = CStr::Format(u"%d", row), .cells = {}};
        for (int column = 0; column < c_columns; ++column)
            cells.cells.push_back(CellText(row, column));
        table->AddRow(std::move(cells));
    }
    return *table;
}

std::unique_ptr<CResultGridWidget> MakeGrid(std::int64_t rows)
{
    return std::make_unique<CResultGridWidget>(TableOf(rows));
}

// The cells as texts of Qt's own.
class CCellsModel final : public QAbstractTableModel
{
public:
    explicit CCellsModel(std::int64_t rows)
    {
        const CGrid& table = TableOf(rows);
        for (std::size_t row = 0; row < static_cast<std::size_t>(rows); ++row) {
            m_names.push_back(ToQString(table.GetRows()[row].name));
            for (const CStr& cell : table.GetRows()[row].cells)
                m_cells.push_back(ToQString(cell));
        }
    }
    int rowCount(const QModelIndex&) const override { return static_cast<int>(m_names.size()); }
    int columnCount(const QModelIndex&) const override { return c_columns; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        return role == Qt::DisplayRole ? m_cells[index.row() * c_columns + index.column()] : QVariant();
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        return orientation == Qt::Vertical ? m_names[section] : QStringLiteral("P%1").arg(section);
    }
    const QString& GetName(int row) const { return m_names[row]; }
    const QString& GetCell(int row, int column) const { return m_cells[row * c_columns + column]; }

private:
    QStringList m_names;
    QStringList m_cells;
};

CCellsModel& ModelOf(std::int64_t rows)
{
    static std::map<std::int64_t, std::unique_ptr<CCellsModel>> models;
    auto& model = models[rows];
    if (!model)
        model = std::make_unique<CCellsModel>(rows);
    return *model;
}

std::unique_ptr<QTableView> MakeTableView(std::int64_t rows)
{
    auto view = std::make_unique<QTableView>();
    view->setModel(&ModelOf(rows));
    return view;
}

template<auto Make>
void Open(benchmark::State& state)
{
    Make(state.range(0)); // which makes the cells
    QPixmap picture(c_size);
    for (auto _ : state) {
        const auto widget = Make(state.range(0));
        widget->resize(c_size);
        widget->ensurePolished();
        widget->render(&picture);
    }
}

template<auto Make>
void ScrollByPage(benchmark::State& state)
{
    const auto widget = Make(state.range(0));
    widget->resize(c_size);
    QPixmap picture(c_size);
    widget->render(&picture);
    QScrollBar& bar = *widget->verticalScrollBar();
    for (auto _ : state) {
        bar.setValue(bar.value() == bar.maximum() ? 0 : bar.value() + bar.pageStep());
        widget->render(&picture);
    }
}

void CopyToClipboard(benchmark::State& state)
{
    CGrid& table = TableOf(state.range(0));
    table.SelectAll();
    for (auto _ : state)
        CopySelection(table, false, true);
    state.counters["per_cell"] =
        benchmark::Counter(static_cast<double>(state.range(0)) * (c_columns + 1),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// As a program with that model would do it: text and HTML, and both to the clipboard.
void CopyByLoop(benchmark::State& state)
{
    const CCellsModel& model = ModelOf(state.range(0));
    const int rows = model.rowCount({});
    for (auto _ : state) {
        QString text;
        QString html = QStringLiteral("<table>\r\n");
        for (int row = 0; row < rows; ++row) {
            text += model.GetName(row);
            html += QStringLiteral("<tr><td>") + model.GetName(row).toHtmlEscaped() + QStringLiteral("</td>");
            for (int column = 0; column < c_columns; ++column) {
                text += u'\t' + model.GetCell(row, column);
                html += QStringLiteral("<td>") + model.GetCell(row, column).toHtmlEscaped() +
                        QStringLiteral("</td>");
            }
            text += QStringLiteral("\r\n");
            html += QStringLiteral("</tr>\r\n");
        }
        html += QStringLiteral("</table>\r\n");
        auto data = std::make_unique<QMimeData>();
        data->setText(text);
        data->setHtml(html);
        QGuiApplication::clipboard()->setMimeData(data.release());
    }
}

} // namespace

BENCHMARK(Open<MakeGrid>)->Name("Open")->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(Open<MakeTableView>)->Name("OpenTableView")->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollByPage<MakeGrid>)
    ->Name("ScrollByPage")
    ->Arg(1000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollByPage<MakeTableView>)
    ->Name("ScrollByPageTableView")
    ->Arg(1000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond);
// With the names of the rows a million cells.
BENCHMARK(CopyToClipboard)->Arg(111112)->Unit(benchmark::kMillisecond);
BENCHMARK(CopyByLoop)->Arg(111112)->Unit(benchmark::kMillisecond);

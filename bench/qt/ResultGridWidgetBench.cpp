// A table of results of 8 columns in a widget of 1000 by 600 pixels: from the table to the first picture, a
// page further, and copying a million cells. Beside it a QTableWidget with the same cells. A million rows are
// too many for that, so it stops at a hundred thousand. The times of the grid should not depend on the number
// of rows.
#include "output/results/GridCopy.h"
#include "qt/grid/ResultGridWidget.h"
#include "qt/QtText.h"

#include <benchmark/benchmark.h>
#include <QPixmap>
#include <QScrollBar>
#include <QTableWidget>

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

std::unique_ptr<QTableWidget> MakeTableWidget(std::int64_t rows)
{
    auto table = std::make_unique<QTableWidget>(static_cast<int>(rows), c_columns);
    const CGrid& cells = TableOf(rows);
    for (int row = 0; row < table->rowCount(); ++row) {
        const CGrid::SRow& source = cells.GetRows()[static_cast<std::size_t>(row)];
        table->setVerticalHeaderItem(row, new QTableWidgetItem(ToQString(source.name)));
        for (int column = 0; column < c_columns; ++column)
            table->setItem(row, column,
                           new QTableWidgetItem(ToQString(source.cells[static_cast<std::size_t>(column)])));
    }
    return table;
}

template<auto Make>
void Open(benchmark::State& state)
{
    TableOf(state.range(0));
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

} // namespace

BENCHMARK(Open<MakeGrid>)->Name("Open")->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(Open<MakeTableWidget>)
    ->Name("OpenTableWidget")
    ->Arg(1000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollByPage<MakeGrid>)
    ->Name("ScrollByPage")
    ->Arg(1000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollByPage<MakeTableWidget>)
    ->Name("ScrollByPageTableWidget")
    ->Arg(1000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);
// With the names of the rows a million cells.
BENCHMARK(CopyToClipboard)->Arg(111112)->Unit(benchmark::kMillisecond);

// A table of results of 20 columns shown in a window of 1600 by 900 pixels, without the cost of pixels:
// opening it, turning its pages and copying it. Beside it the work of a view that builds all cells before it
// shows the first. The times of opening and scrolling should not depend on the number of rows.
#include "output/grid/MemoryGridView.h"
#include "output/results/GridCopy.h"
#include "output/results/ResultGridPane.h"
#include "platform/memory/MemoryClipboard.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string_view>
#include <utility>

using namespace CommonUI;
using CGrid = CGridBaseOutputCtrl;

namespace
{

constexpr int c_columns = 20;
constexpr SSize c_window{1600, 900};

// Draws nothing, but looks at what it is given.
class CNullPainter final : public CGridPainter
{
public:
    void FillBackground(const SRect& rect, EGridBackground /*background*/) override { Count(rect); }
    void WriteText(const SRect& rect, std::u16string_view text, EGridAlign /*align*/) override
    {
        Count(rect);
        benchmark::DoNotOptimize(text.data());
        ++texts;
    }
    void DrawCheckBox(const SRect& rect, EGridCheck /*state*/, bool /*enabled*/) override { Count(rect); }
    void DrawButton(const SRect& rect, const SGridButton& /*button*/) override { Count(rect); }
    void DrawBox(const SRect& rect, SColor /*outline*/, SColor /*fill*/) override { Count(rect); }
    void DrawExpander(const SRect& rect, bool /*expanded*/) override { Count(rect); }
    void DrawFocus(const SRect& rect) override { Count(rect); }
    SColor GetTextColor() const override { return {}; }
    void SetTextColor(SColor /*color*/) override {}
    SColor GetStyleColor(EGridColor /*color*/) const override { return {}; }

    int texts = 0;

private:
    static void Count(SRect rect) { benchmark::DoNotOptimize(rect); }
};

// Tables are built once and shared by the benchmarks.
CGrid& TableOf(benchmark::State& state)
{
    static std::map<std::int64_t, std::unique_ptr<CGrid>> tables;
    auto& table = tables[state.range(0)];
    if (table)
        return *table;
    table = std::make_unique<CGrid>(CGrid::SCellInfo::Results);
    for (int column = 1; column < c_columns; ++column)
        table->AddColumn({CStr::Format(u"P%d\r\nmean", column), column % 5 == 0 ? u"" : u"Height"});
    for (std::int64_t row = 0; row < state.range(0); ++row) {
        CGrid::SRow cells{.name = CStr::Format(u"%d", row), .cells = {}};
        for (int column = 1; column < c_columns; ++column)
            cells.cells.push_back(CStr::Format(u"%.4f", static_cast<double>(row * 7 + column) * 0.137));
        table->AddRow(std::move(cells));
    }
    return *table;
}

void Open(benchmark::State& state)
{
    CGrid& table = TableOf(state);
    CMemoryGridView view;
    CNullPainter painter;
    for (auto _ : state) {
        CResultGridPane pane(table);
        pane.SetView(&view);
        pane.SetViewSize(c_window);
        pane.FitColumns();
        pane.Draw(painter, {0, 0, c_window.cx, c_window.cy});
        view.invalidated.clear();
    }
    state.counters["texts"] = static_cast<double>(painter.texts) / static_cast<double>(state.iterations());
}

// What a view does at its opening that keeps all cells of its own.
void OpenByBuildingAllCells(benchmark::State& state)
{
    const CGrid& table = TableOf(state);
    for (auto _ : state) {
        CGrid::CCells cells;
        table.GetGridHeaders(cells, CGrid::SCellInfo::Results);
        table.GetGridCells(cells, CGrid::SCellInfo::Results);
        benchmark::DoNotOptimize(cells.data());
    }
}

void ScrollByPages(benchmark::State& state)
{
    CResultGridPane pane(TableOf(state));
    CNullPainter painter;
    pane.SetViewSize(c_window);
    long long top = 0;
    for (auto _ : state) {
        top = (top + c_window.cy * 37) % pane.GetExtent().height;
        pane.ScrollTo(0, top);
        pane.Draw(painter, {0, 0, c_window.cx, c_window.cy});
    }
    state.counters["texts"] = static_cast<double>(painter.texts) / static_cast<double>(state.iterations());
}

void SelectAllByKey(benchmark::State& state)
{
    CResultGridPane pane(TableOf(state));
    pane.SetViewSize(c_window);
    for (auto _ : state)
        pane.OnKey({EGridKey::A, {.control = true}});
}

void CountCells(benchmark::State& state)
{
    state.counters["per_cell"] =
        benchmark::Counter(static_cast<double>(state.range(0)) * c_columns,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void CopySelected(benchmark::State& state)
{
    CGrid& table = TableOf(state);
    table.SelectAll();
    CMemoryClipboard clipboard;
    for (auto _ : state)
        CopySelection(table, state.range(1) != 0, true, clipboard);
    CountCells(state);
}

void CopyWhole(benchmark::State& state)
{
    const CGrid& table = TableOf(state);
    CMemoryClipboard clipboard;
    for (auto _ : state)
        CopyGrids(nullptr, &table, nullptr, state.range(1) != 0, clipboard);
    CountCells(state);
}

} // namespace

BENCHMARK(Open)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenByBuildingAllCells)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(ScrollByPages)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(SelectAllByKey)->Arg(1000)->Arg(1000000)->Unit(benchmark::kNanosecond);
// 50000 rows of 20 columns are a million cells; the second number says whether they are turned.
BENCHMARK(CopySelected)->Args({50000, 0})->Args({50000, 1})->Unit(benchmark::kMillisecond);
BENCHMARK(CopyWhole)->Args({50000, 0})->Args({50000, 1})->Unit(benchmark::kMillisecond);

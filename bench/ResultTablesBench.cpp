// The text and the HTML of a result table of 20 columns beside appending the same cells, separated in the
// same way, to one string with the room reserved. The time for each cell should stay the same as the rows
// grow.
#include "output/results/GridBaseOutputCtrl.h"
#include "output/results/NumberFormat.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

using namespace CommonUI;
using CGrid = CGridBaseOutputCtrl;

namespace
{

constexpr std::size_t c_columns = 20;

CGrid::CCells MakeTable(std::size_t rows)
{
    CGrid grid(CGrid::SCellInfo::Results);
    for (std::size_t column = 0; column < c_columns - 1; ++column)
        grid.AddColumn({CStr::Format(u"P%d", column), {}});
    for (std::size_t row = 0; row < rows; ++row) {
        CGrid::SRow cells{.name = CStr::Format(u"%d", row), .cells = {}};
        for (std::size_t column = 0; column < c_columns - 1; ++column)
            cells.cells.push_back(
                FormatResultValue(static_cast<double>(row * 7 + column) * 0.137, 5, false).Trim());
        grid.AddRow(std::move(cells));
    }
    CGrid::CCells table;
    grid.GetGridHeaders(table, CGrid::SCellInfo::Results);
    grid.GetGridCells(table, CGrid::SCellInfo::Results);
    return table;
}

// Tables are built once and shared by the benchmarks.
const CGrid::CCells& TableOf(benchmark::State& state)
{
    static std::map<std::int64_t, CGrid::CCells> tables;
    auto& table = tables[state.range(0)];
    if (table.empty())
        table = MakeTable(static_cast<std::size_t>(state.range(0)));
    return table;
}

void CountCells(benchmark::State& state, std::size_t length)
{
    state.counters["per_cell"] =
        benchmark::Counter(static_cast<double>(state.range(0)) * c_columns,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.counters["length"] = static_cast<double>(length);
}

void Text(benchmark::State& state)
{
    const CGrid::CCells& table = TableOf(state);
    std::size_t length = 0;
    for (auto _ : state) {
        const CStr text = CGrid::GenerateResultsText(table);
        length = text.GetLength();
        benchmark::DoNotOptimize(text.data());
    }
    CountCells(state, length);
}

void TextByAppending(benchmark::State& state)
{
    const CGrid::CCells& table = TableOf(state);
    const std::size_t room = CGrid::GenerateResultsText(table).GetLength();
    for (auto _ : state) {
        std::u16string text;
        text.reserve(room);
        for (const CGrid::CRow& row : table) {
            for (const auto& cell : row) {
                if (&cell != &row.front())
                    text += u'\t';
                text += cell.text.View();
            }
            text += u"\r\n";
        }
        benchmark::DoNotOptimize(text.data());
    }
    CountCells(state, room);
}

void Html(benchmark::State& state)
{
    const CGrid::CCells& table = TableOf(state);
    std::size_t length = 0;
    for (auto _ : state) {
        const CStr html = CGrid::GenerateResultsHTMLTable(table);
        length = html.GetLength();
        benchmark::DoNotOptimize(html.data());
    }
    CountCells(state, length);
}

void HtmlByAppending(benchmark::State& state)
{
    const CGrid::CCells& table = TableOf(state);
    const std::size_t room = CGrid::GenerateResultsHTMLTable(table).GetLength();
    for (auto _ : state) {
        std::u16string html;
        html.reserve(room);
        for (const CGrid::CRow& row : table) {
            html += u"<TR>";
            for (const auto& cell : row) {
                html += u"<TD ROWSPAN=1 COLSPAN=1 style=\"text-align:right;\" ><nobr>";
                html += cell.text.View();
                html += u"</nobr></TD>\n";
            }
            html += u"</TR>\n";
        }
        benchmark::DoNotOptimize(html.data());
    }
    CountCells(state, room);
}

// Values of the size that results have, in all decades that the formatter tells apart.
std::vector<double> ResultValues()
{
    std::vector<double> values;
    for (int i = 0; i < 1024; ++i)
        values.push_back(std::pow(10.0, i % 9 - 3) * (1 + 0.0087 * i) * (i % 3 == 0 ? -1 : 1));
    return values;
}

void ResultValue(benchmark::State& state)
{
    const std::vector<double> values = ResultValues();
    std::size_t i = 0;
    for (auto _ : state) {
        const CStr text = FormatResultValue(values[i++ % values.size()], 5, false);
        benchmark::DoNotOptimize(text.data());
    }
}

// One of the formats that the formatter would choose, fixed.
void ResultValueBySnprintf(benchmark::State& state)
{
    const std::vector<double> values = ResultValues();
    std::size_t i = 0;
    for (auto _ : state) {
        char text[64];
        benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%7.5G", values[i++ % values.size()]));
        benchmark::DoNotOptimize(text);
    }
}

} // namespace

BENCHMARK(ResultValue);
BENCHMARK(ResultValueBySnprintf);
BENCHMARK(Text)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(TextByAppending)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(Html)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(HtmlByAppending)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);

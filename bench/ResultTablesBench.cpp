// The text and the HTML of a result table of 20 columns, of cells at hand and of the table itself, beside
// appending the same cells, separated in the same way, to one string: to a new one with the room reserved,
// and to one whose memory is warm, which is the limit. The time for each cell should stay the same as the
// rows grow.
#include "output/results/GridBaseOutputCtrl.h"
#include "output/results/NumberFormat.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <string_view>
#include <vector>

using namespace CommonUI;
using namespace std::string_view_literals;
using CGrid = CGridBaseOutputCtrl;

namespace
{

constexpr std::size_t c_columns = 20;

// Tables are built once and shared by the benchmarks.
const CGrid& GridOf(const benchmark::State& state)
{
    static std::map<std::int64_t, CGrid> grids;
    const auto [found, isNew] = grids.try_emplace(state.range(0), CGrid::SCellInfo::Results);
    CGrid& grid = found->second;
    if (!isNew)
        return grid;
    for (std::size_t column = 0; column < c_columns - 1; ++column)
        grid.AddColumn({CStr::Format(u"P%d", column), {}});
    for (std::int64_t row = 0; row < state.range(0); ++row) {
        CGrid::SRow cells{.name = CStr::Format(u"%d", row), .cells = {}};
        for (std::size_t column = 0; column < c_columns - 1; ++column)
            cells.cells.push_back(
                FormatResultValue((static_cast<double>(row * 7) + static_cast<double>(column)) * 0.137, 5,
                                  false)
                    .Trim());
        grid.AddRow(std::move(cells));
    }
    return grid;
}

const CGrid::CCells& TableOf(const benchmark::State& state)
{
    static std::map<std::int64_t, CGrid::CCells> tables;
    CGrid::CCells& table = tables[state.range(0)];
    if (table.empty()) {
        GridOf(state).GetGridHeaders(table, CGrid::SCellInfo::Results);
        GridOf(state).GetGridCells(table, CGrid::SCellInfo::Results);
    }
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

void AppendText(std::u16string& text, const CGrid::CCells& table)
{
    for (const CGrid::CRow& row : table) {
        for (const auto& cell : row) {
            if (&cell != &row.front())
                text += u'\t';
            text += cell.text.View();
        }
        text += u"\r\n"sv;
    }
}

void AppendHtml(std::u16string& html, const CGrid::CCells& table)
{
    for (const CGrid::CRow& row : table) {
        html += u"<TR>"sv;
        for (const auto& cell : row) {
            html += u"<TD ROWSPAN=1 COLSPAN=1 style=\"text-align:right;\" ><nobr>"sv;
            html += cell.text.View();
            html += u"</nobr></TD>\n"sv;
        }
        html += u"</TR>\n"sv;
    }
}

using FAppend = void (*)(std::u16string& text, const CGrid::CCells& table);

template<FAppend Append>
void ByAppending(benchmark::State& state)
{
    const CGrid::CCells& table = TableOf(state);
    std::u16string measured;
    Append(measured, table);
    for (auto _ : state) {
        std::u16string text;
        text.reserve(measured.size());
        Append(text, table);
        benchmark::DoNotOptimize(text.data());
    }
    CountCells(state, measured.size());
}

template<FAppend Append>
void ByAppendingToWarm(benchmark::State& state)
{
    const CGrid::CCells& table = TableOf(state);
    std::u16string text;
    Append(text, table);
    for (auto _ : state) {
        text.clear();
        Append(text, table);
        benchmark::DoNotOptimize(text.data());
    }
    CountCells(state, text.size());
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

void TextOfTable(benchmark::State& state)
{
    const CGrid& grid = GridOf(state);
    std::size_t length = 0;
    for (auto _ : state) {
        const CStr text = CGrid::GenerateText(nullptr, &grid, nullptr, false);
        length = text.GetLength();
        benchmark::DoNotOptimize(text.data());
    }
    CountCells(state, length);
}

void HtmlOfTable(benchmark::State& state)
{
    const CGrid& grid = GridOf(state);
    std::size_t length = 0;
    for (auto _ : state) {
        const CStr html = CGrid::GenerateHTMLTables(nullptr, &grid, nullptr, false);
        length = html.GetLength();
        benchmark::DoNotOptimize(html.data());
    }
    CountCells(state, length);
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

#define COMMONUI_BENCHMARK(...)                                                                              \
    BENCHMARK(__VA_ARGS__)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond)

COMMONUI_BENCHMARK(Text);
COMMONUI_BENCHMARK(TextOfTable);
COMMONUI_BENCHMARK(ByAppending<AppendText>);
COMMONUI_BENCHMARK(ByAppendingToWarm<AppendText>);
COMMONUI_BENCHMARK(Html);
COMMONUI_BENCHMARK(HtmlOfTable);
COMMONUI_BENCHMARK(ByAppending<AppendHtml>);
COMMONUI_BENCHMARK(ByAppendingToWarm<AppendHtml>);

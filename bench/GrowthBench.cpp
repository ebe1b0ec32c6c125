// The time of one step among few and among many: where the two are alike, n steps take n times as long.
#include "common/ini/Inifile.h"
#include "model/AnalysisPreferencesData.h"
#include "output/grid/GridCtrl.h"
#include "output/results/GridBaseOutputCtrl.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

using namespace CommonUI;

namespace
{

void FillRows(CGridCtrl& grid, const benchmark::State& state)
{
    grid.AddColumn({u"Name", 100});
    for (std::int64_t i = 0; i < state.range(0); ++i)
        grid.AddRow();
}

void RemoveFirstRow(benchmark::State& state)
{
    CGridCtrl grid;
    FillRows(grid, state);
    for (auto _ : state) {
        grid.RemoveRow(*grid.GetRows().front());
        grid.AddRow();
    }
}

void AddRowBelowFirst(benchmark::State& state)
{
    CGridCtrl grid;
    FillRows(grid, state);
    CGridRow& first = *grid.GetRows().front();
    for (auto _ : state)
        grid.RemoveRow(first.AddSubRow());
}

void ExpandRow(benchmark::State& state)
{
    CGridCtrl grid;
    FillRows(grid, state);
    CGridRow& row = *grid.GetRows()[grid.GetRows().size() / 2];
    row.AddSubRow();
    for (auto _ : state)
        row.SetExpanded(!row.IsExpanded());
}

void InsertInFront(benchmark::State& state)
{
    CGridBaseOutputCtrl grid(CGridBaseOutputCtrl::SCellInfo::Results);
    grid.AddColumn({u"P", {}});
    const auto insert = [&grid] { grid.InsertTokenizableRow(u"1\t2", u"\t"); };
    for (std::int64_t i = 0; i < state.range(0); ++i)
        insert();
    for (auto _ : state)
        insert();
}

void GetDynamicParameter(benchmark::State& state)
{
    CAnalysisPreferencesData data(EAnalysis::Roughness);
    const CParameter any = data.GetParameters().front();
    int number = 0;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        number = data.AddParameter(0, any);
    for (auto _ : state)
        benchmark::DoNotOptimize(data.GetParameter(number));
}

void RewriteKey(benchmark::State& state)
{
    std::string content = "[Section]\n";
    for (std::int64_t i = 0; i < state.range(0); ++i)
        content += "Key" + std::to_string(i) + "=1.5\n";
    CInifile ini;
    ini.LoadBytes(content);
    ini.SelectSection(u"Section");
    for (auto _ : state) {
        ini.RemoveKey(u"Key500");
        ini.WriteInt(u"Key500", 7);
    }
}

BENCHMARK(RemoveFirstRow)->Arg(1000)->Arg(1000000);
BENCHMARK(AddRowBelowFirst)->Arg(1000)->Arg(1000000);
BENCHMARK(ExpandRow)->Arg(1000)->Arg(1000000);
BENCHMARK(InsertInFront)->Arg(1000)->Arg(1000000);
BENCHMARK(GetDynamicParameter)->Arg(1000)->Arg(100000);
BENCHMARK(RewriteKey)->Arg(1000)->Arg(100000)->Arg(1000000);

} // namespace

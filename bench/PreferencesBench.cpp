#include "common/ini/Inifile.h"
#include "model/AnalysisPreferencesManager.h"

#include <benchmark/benchmark.h>

#include <string>

using namespace CommonUI;

namespace
{

// What a file of all analyses with their defaults has.
std::string FileBytes()
{
    CInifile ini;
    ini.SelectSection(u"Analysis");
    GetAnalysisPreferencesManager().Save(ini);
    return ini.GetBytes();
}

// From the store, which has been read from the file.
void LoadAll(benchmark::State& state)
{
    CInifile ini;
    ini.LoadBytes(FileBytes());
    ini.SelectSection(u"Analysis");
    CAnalysisPreferencesManager manager;
    for (auto _ : state)
        benchmark::DoNotOptimize(manager.Load(ini));
}

// From the bytes of the file.
void LoadAllOfFile(benchmark::State& state)
{
    const std::string bytes = FileBytes();
    CAnalysisPreferencesManager manager;
    for (auto _ : state) {
        CInifile ini;
        ini.LoadBytes(bytes);
        ini.SelectSection(u"Analysis");
        benchmark::DoNotOptimize(manager.Load(ini));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

// To a store that has them already, as on every save but the first; every other time something has changed.
void SaveAll(benchmark::State& state)
{
    CInifile ini;
    ini.LoadBytes(FileBytes());
    ini.SelectSection(u"Analysis");
    CAnalysisPreferencesManager manager;
    bool on = false;
    for (auto _ : state) {
        manager.SetDataParameterOn(EAnalysis::Roughness, 0, on = !on);
        benchmark::DoNotOptimize(manager.Save(ini));
    }
}

// To a new file, as bytes.
void SaveAllToFile(benchmark::State& state)
{
    const CAnalysisPreferencesManager manager;
    for (auto _ : state) {
        CInifile ini;
        ini.SelectSection(u"Analysis");
        manager.Save(ini);
        benchmark::DoNotOptimize(ini.GetBytes());
    }
}

// An analysis with so many parameters made from templates.
CRoughnessAnalysisPreferencesData DataWithInstances(std::int64_t count)
{
    CRoughnessAnalysisPreferencesData data(EAnalysis::Roughness);
    std::vector<CParameter> parameters = data.GetParameters();
    const CParameter parent = data.GetParameter(static_cast<int>(ERoughnessParameters::Sdc));
    for (std::int64_t i = 0; i < count; ++i)
        parameters.emplace_back(144 + static_cast<int>(i), parent);
    data.SetParameters(parameters);
    return data;
}

void CountParameters(benchmark::State& state)
{
    state.counters["per parameter"] =
        benchmark::Counter(static_cast<double>(state.iterations() * state.range(0)),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void LoadInstances(benchmark::State& state)
{
    CRoughnessAnalysisPreferencesData data = DataWithInstances(state.range(0));
    CInifile ini;
    ini.SelectSection(u"A");
    data.Save(ini);
    for (auto _ : state)
        benchmark::DoNotOptimize(data.Load(ini));
    CountParameters(state);
}

void SaveInstances(benchmark::State& state)
{
    CRoughnessAnalysisPreferencesData data = DataWithInstances(state.range(0));
    CInifile ini;
    ini.SelectSection(u"A");
    for (auto _ : state)
        benchmark::DoNotOptimize(data.Save(ini));
    CountParameters(state);
}

// What a dialog does that sets its list again.
void SetEqualInstances(benchmark::State& state)
{
    CAnalysisPreferencesManager manager;
    manager.SetData(EAnalysis::Roughness, DataWithInstances(state.range(0)));
    std::vector<CParameter> list = manager.GetData(EAnalysis::Roughness).GetParameters();
    for (auto _ : state)
        benchmark::DoNotOptimize(manager.SetDataParameters(EAnalysis::Roughness, list));
    CountParameters(state);
}

BENCHMARK(LoadAll)->Unit(benchmark::kMicrosecond);
BENCHMARK(LoadAllOfFile)->Unit(benchmark::kMicrosecond);
BENCHMARK(SaveAll)->Unit(benchmark::kMicrosecond);
BENCHMARK(SaveAllToFile)->Unit(benchmark::kMicrosecond);
BENCHMARK(LoadInstances)->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(SaveInstances)->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(SetEqualInstances)->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMicrosecond);

} // namespace

#include "analysis/areal/ArealParameters.h"
#include "analysis/areal/MaterialRatio.h"
#include "analysis/feature/Features.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

using namespace CommonUI::Analysis;

namespace
{

using FMake = SSurface (*)(std::size_t size);

template<class FHeight>
SSurface MakeSurface(std::size_t size, const FHeight& getHeight)
{
    SSurface surface{.points = size, .lines = size, .dx = 1e-6, .dy = 1e-6};
    surface.heights.reserve(size * size);
    for (std::size_t y = 0; y < size; ++y)
        for (std::size_t x = 0; x < size; ++x)
            surface.heights.push_back(getHeight(static_cast<double>(x), static_cast<double>(y)));
    return surface;
}

SSurface MakeNoise(std::size_t size)
{
    std::mt19937 random(1);
    return MakeSurface(size, [&](double, double) { return 1e-9 * static_cast<double>(random() % 1000003); });
}

SSurface MakeRough(std::size_t size)
{
    std::mt19937 random(2);
    return MakeSurface(size, [&](double x, double y) {
        return 1e-6 * std::sin(x / 9) * std::sin(y / 7 + x / 50) +
               1e-10 * static_cast<double>(random() % 997);
    });
}

// Nothing but one way down, along one line of plateaus after the other.
SSurface MakeStairs(std::size_t size)
{
    return MakeSurface(size,
                       [](double x, double y) { return 1e-9 * (std::floor(x / 16) + std::floor(y / 16)); });
}

// Two levels: plateaus of any shape.
SSurface MakeLevels(std::size_t size)
{
    std::mt19937 random(3);
    return MakeSurface(size, [&](double, double) { return 1e-9 * static_cast<double>(random() % 2); });
}

// Time is that of all threads together, as others may use the machine at the same time.
void ReportPoints(benchmark::State& state, const SSurface& surface)
{
    state.counters["s/point"] =
        benchmark::Counter(static_cast<double>(surface.heights.size()),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void FindDales(benchmark::State& state, FMake make)
{
    const SSurface surface = make(static_cast<std::size_t>(state.range(0)));
    std::size_t count = 0;
    for (auto _ : state)
        count = FindFeatures(surface, EFeature::Dale, 1e-8).features.size();
    ReportPoints(state, surface);
    state.counters["dales"] = static_cast<double>(count);
}

// To compare with: the material ratio curve, which sorts all points.
void Sort(benchmark::State& state, FMake make)
{
    const SSurface surface = make(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(CMaterialRatio(surface.heights));
    ReportPoints(state, surface);
}

void Compute(benchmark::State& state, FMake make, std::string_view key)
{
    const SSurface surface = make(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(ComputeAreal(surface, {{key}}));
    ReportPoints(state, surface);
}

const bool s_registered = [] {
    const auto add = [](const std::string& name, auto... arguments) {
        benchmark::RegisterBenchmark(name.c_str(), arguments...)
            ->RangeMultiplier(2)
            ->Range(1024, 4096)
            ->Unit(benchmark::kMillisecond)
            ->MeasureProcessCPUTime();
    };
    add("Sort/noise", Sort, MakeNoise);
    add("Sort/rough", Sort, MakeRough);
    add("Find dales/noise", FindDales, MakeNoise);
    add("Find dales/rough", FindDales, MakeRough);
    add("Find dales/stairs", FindDales, MakeStairs);
    add("Find dales/levels", FindDales, MakeLevels);
    add("Feature parameters/rough", Compute, MakeRough, "Spd");
    add("Spectral parameters/rough", Compute, MakeRough, "Sfd");
    add("Autocorrelation/rough", Compute, MakeRough, "Sal");
    return true;
}();

} // namespace

#include "analysis/areal/ArealParameters.h"
#include "analysis/areal/MaterialRatio.h"
#include "analysis/feature/Features.h"
#include "bench/SurfaceBench.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <string_view>
#include <vector>

using namespace CommonUI::Analysis;

namespace
{

SSurface MakeNoise(std::size_t size)
{
    std::mt19937 random(1);
    return MakeSurface(
        size, [&](std::size_t, std::size_t) { return 1e-9 * static_cast<double>(random() % 1000003); });
}

SSurface MakeRough(std::size_t size)
{
    std::mt19937 random(2);
    return MakeSurface(size, [&](std::size_t column, std::size_t line) {
        const auto x = static_cast<double>(column);
        const auto y = static_cast<double>(line);
        return 1e-6 * std::sin(x / 9) * std::sin(y / 7 + x / 50) +
               1e-10 * static_cast<double>(random() % 997);
    });
}

// Nothing but one way down, along one line of plateaus after the other.
SSurface MakeStairs(std::size_t size)
{
    return MakeSurface(
        size, [](std::size_t x, std::size_t y) { return 1e-9 * static_cast<double>(x / 16 + y / 16); });
}

// Two levels: plateaus of any shape.
SSurface MakeLevels(std::size_t size)
{
    std::mt19937 random(3);
    return MakeSurface(size,
                       [&](std::size_t, std::size_t) { return 1e-9 * static_cast<double>(random() % 2); });
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
    AddSurfaceBench("Sort/noise", Sort, MakeNoise);
    AddSurfaceBench("Sort/rough", Sort, MakeRough);
    AddSurfaceBench("Find dales/noise", FindDales, MakeNoise);
    AddSurfaceBench("Find dales/rough", FindDales, MakeRough);
    AddSurfaceBench("Find dales/stairs", FindDales, MakeStairs);
    AddSurfaceBench("Find dales/levels", FindDales, MakeLevels);
    AddSurfaceBench("Feature parameters/rough", Compute, MakeRough, "Spd");
    AddSurfaceBench("Spectral parameters/rough", Compute, MakeRough, "Sfd");
    AddSurfaceBench("Autocorrelation/rough", Compute, MakeRough, "Sal");
    return true;
}();

} // namespace

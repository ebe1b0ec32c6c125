#pragma once

#include "analysis/surface/Surface.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <string>

/// @file
/// What the benchmarks of surfaces share.

using FMake = CommonUI::Analysis::SSurface (*)(std::size_t size);

/// A square surface whose heights the function gives from column and row.
template<class FHeight>
CommonUI::Analysis::SSurface MakeSurface(std::size_t size, const FHeight& getHeight)
{
    CommonUI::Analysis::SSurface surface{.points = size, .lines = size, .dx = 1e-6, .dy = 1e-6};
    surface.heights.reserve(size * size);
    for (std::size_t y = 0; y < size; ++y)
        for (std::size_t x = 0; x < size; ++x)
            surface.heights.push_back(getHeight(x, y));
    return surface;
}

/// Time is that of all threads together, as others may use the machine at the same time.
inline void ReportPoints(benchmark::State& state, const CommonUI::Analysis::SSurface& surface)
{
    state.counters["s/point"] =
        benchmark::Counter(static_cast<double>(surface.heights.size()),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

/// Adds a benchmark for 1024, 2048 and 4096 points along a side.
template<class... TArguments>
void AddSurfaceBench(const std::string& name, TArguments... arguments)
{
    benchmark::RegisterBenchmark(name.c_str(), arguments...)
        ->RangeMultiplier(2)
        ->Range(1024, 4096)
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime();
}

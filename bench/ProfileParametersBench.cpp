#include "analysis/profile/ProfileParameters.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <map>
#include <random>
#include <string_view>
#include <vector>

using namespace CommonUI::Analysis;

namespace
{

// Waves under noise, with grooves, as of a honed surface; points 1 µm apart.
const SSurface& GetSurface(std::size_t size)
{
    static std::map<std::size_t, SSurface> samples;
    const auto [found, isNew] = samples.try_emplace(size);
    SSurface& surface = found->second;
    if (!isNew)
        return surface;
    surface = {.points = size, .lines = size, .dx = 1e-6, .dy = 1e-6};
    surface.heights.reserve(size * size);
    std::mt19937 random(1);
    for (std::size_t i = 0; i < size * size; ++i) {
        const auto x = static_cast<double>(i % size);
        const auto y = static_cast<double>(i / size);
        const double groove = std::fmod(x + y / 3, 70) < 8 ? 2000 : 0;
        const double noise = static_cast<double>(random() % 1000) / 2;
        surface.heights.push_back(1e-9 * (1000 * std::sin(x / 300) + noise - groove));
    }
    return surface;
}

// One parameter of each family, for all lines.
void Profiles(benchmark::State& state, std::string_view key)
{
    const SSurface& surface = GetSurface(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(ComputeProfiles(surface, {{key}}));
    const auto points = static_cast<double>(surface.heights.size());
    using benchmark::Counter;
    state.counters["per_point"] = Counter(points, Counter::kIsIterationInvariantRate | Counter::kInvert);
}

// Time is that of all threads together. What is known of old stands beside the others.
#define COMMONUI_BENCHMARK(name, key)                                                                        \
    BENCHMARK_CAPTURE(Profiles, name, key)                                                                   \
        ->Arg(1024)                                                                                          \
        ->Arg(4096)                                                                                          \
        ->Unit(benchmark::kMillisecond)                                                                      \
        ->MeasureProcessCPUTime()

COMMONUI_BENCHMARK(unfiltered, "Ra");
COMMONUI_BENCHMARK(roughness, "4287Ra");
COMMONUI_BENCHMARK(core, "p13565_2Rk");
COMMONUI_BENCHMARK(motifs, "p12085_Rr");
COMMONUI_BENCHMARK(valleys, "rMd");

} // namespace

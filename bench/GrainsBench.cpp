#include "analysis/grain/GrainMeasures.h"
#include "bench/SurfaceBench.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using namespace CommonUI::Analysis;

namespace
{

SSurface MakeNoise(std::size_t size)
{
    std::mt19937 random(1);
    return MakeSurface(size, [&](std::size_t, std::size_t) {
        return 1e-7 * (static_cast<double>(random()) / 4294967296.0 - 0.5);
    });
}

// A sum of waves in all directions, each 20 to 60 points long.
SSurface MakeSmooth(std::size_t size)
{
    struct SWave {
        double x, y, phase;
    };
    std::mt19937 random(2);
    const auto real = [&] { return 6.28318530717958648 * static_cast<double>(random()) / 4294967296.0; };
    std::vector<SWave> waves(24);
    for (SWave& wave : waves) {
        const double k = 0.1 + 0.2 * real() / 6.28318530717958648;
        const double direction = real();
        wave = {k * std::cos(direction), k * std::sin(direction), real()};
    }
    return MakeSurface(size, [&](std::size_t x, std::size_t y) {
        double z = 0;
        for (const SWave& wave : waves)
            z += std::sin(wave.x * static_cast<double>(x) + wave.y * static_cast<double>(y) + wave.phase);
        return 1e-8 * z;
    });
}

SSurface MakeChecks(std::size_t size)
{
    return MakeSurface(size, [](std::size_t x, std::size_t y) { return (x + y) % 2 == 0 ? 1e-7 : -1e-7; });
}

// Square rings, joined into one spiral a point wide.
SSurface MakeSpiral(std::size_t size)
{
    return MakeSurface(size, [size](std::size_t x, std::size_t y) {
        const std::size_t ring = std::min({x, y, size - 1 - x, size - 1 - y});
        const bool isJoint = x == ring && y == ring + 1; // the start of a ring steps in to the next
        return (ring % 2 == 0) != isJoint ? 1e-7 : -1e-7;
    });
}

// The values of a column of many grains, so that a run of all quantities fits in memory with any pattern.
constexpr std::string_view c_fewKeys[] = {"AreaExHoles", "Perimeter", "MaxFeret", "NearestNeighbourDist"};
constexpr std::string_view c_skeletonKeys[] = {"TotalFiberLength"};

void Find(benchmark::State& state, FMake make)
{
    const SSurface surface = make(static_cast<std::size_t>(state.range(0)));
    std::size_t count = 0;
    for (auto _ : state)
        count = FindGrains(surface, 0, EGrainKind::Particle).count;
    ReportPoints(state, surface);
    state.counters["grains"] = static_cast<double>(count);
}

// A bare loop over the points, to compare with.
void Threshold(benchmark::State& state, FMake make)
{
    const SSurface surface = make(static_cast<std::size_t>(state.range(0)));
    std::size_t above = 0;
    for (auto _ : state) {
        above = 0;
        for (const double z : surface.heights)
            above += z >= 0;
        benchmark::DoNotOptimize(above);
    }
    ReportPoints(state, surface);
    state.counters["above"] = static_cast<double>(above);
}

void Measure(benchmark::State& state, FMake make, std::span<const std::string_view> keys)
{
    const SSurface surface = make(static_cast<std::size_t>(state.range(0)));
    std::size_t count = 0;
    for (auto _ : state)
        count = MeasureGrains(surface, 0, EGrainKind::Particle, keys).count;
    ReportPoints(state, surface);
    state.counters["grains"] = static_cast<double>(count);
}

const bool s_registered = [] {
    static const std::vector<std::string_view> allKeys = GetGrainKeys();
    const std::pair<const char*, FMake> patterns[] = {
        {"smooth", MakeSmooth}, {"noise", MakeNoise}, {"checks", MakeChecks}, {"spiral", MakeSpiral}};
    AddSurfaceBench("Threshold/noise", Threshold, MakeNoise);
    for (const auto& [name, make] : patterns) {
        AddSurfaceBench(std::string("Find/") + name, Find, make);
        AddSurfaceBench(std::string("Measure 4 columns/") + name, Measure, make,
                        std::span<const std::string_view>(c_fewKeys));
        AddSurfaceBench(std::string("Measure skeletons/") + name, Measure, make,
                        std::span<const std::string_view>(c_skeletonKeys));
    }
    AddSurfaceBench("Measure all columns/smooth", Measure, MakeSmooth,
                    std::span<const std::string_view>(allKeys));
    AddSurfaceBench("Measure all columns/noise", Measure, MakeNoise,
                    std::span<const std::string_view>(allKeys));
    return true;
}();

} // namespace

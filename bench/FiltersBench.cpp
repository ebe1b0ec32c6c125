#include "analysis/filter/SurfaceFilter.h"
#include "analysis/form/PlaneCorrection.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <random>
#include <vector>

using namespace CommonUI::Analysis;

namespace
{

// A tilted staircase under waves and noise, one of fifty points missing.
const SSurface& GetSurface()
{
    static const SSurface sample = [] {
        constexpr std::size_t c_size = 1024;
        SSurface surface{.points = c_size, .lines = c_size, .dx = 1e-6, .dy = 1e-6};
        surface.heights.reserve(c_size * c_size);
        std::mt19937 random(1);
        for (std::size_t i = 0; i < c_size * c_size; ++i) {
            const auto x = static_cast<double>(i % c_size);
            const auto y = static_cast<double>(i / c_size);
            const double form =
                2 * x - y + 500 * std::floor(x / 300) + 20 * std::sin(x / 30) * std::sin(y / 50);
            const double noise = static_cast<double>(random() % 1000) / 100;
            surface.heights.push_back(random() % 50 == 0 ? c_missing : 1e-9 * (form + noise));
        }
        return surface;
    }();
    return sample;
}

// What one would write first: the window's heights collected and partly sorted anew at each point.
SSurface FilterMedianPlainly(const SSurface& surface, const SMedianFilter& filter)
{
    SSurface filtered = surface;
    std::vector<double> window;
    for (std::size_t y = 0; y < surface.lines; ++y)
        for (std::size_t x = 0; x < surface.points; ++x) {
            window.clear();
            const std::size_t lastRow = std::min(y + filter.rows / 2 + 1, surface.lines);
            const std::size_t lastColumn = std::min(x + filter.columns / 2 + 1, surface.points);
            for (std::size_t row = y - std::min(y, filter.rows / 2); row < lastRow; ++row)
                for (std::size_t at = x - std::min(x, filter.columns / 2); at < lastColumn; ++at)
                    if (!std::isnan(surface.GetLine(row)[at]))
                        window.push_back(surface.GetLine(row)[at]);
            double& height = filtered.heights[y * surface.points + x];
            if (std::isnan(height))
                continue;
            const auto middle = window.begin() + static_cast<std::ptrdiff_t>(window.size() / 2);
            std::nth_element(window.begin(), middle, window.end());
            height = *middle;
        }
    return filtered;
}

void MedianPlainly(benchmark::State& state)
{
    const auto size = static_cast<std::size_t>(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(FilterMedianPlainly(GetSurface(), {.columns = size, .rows = size}));
}

void Apply(benchmark::State& state, const CSurfaceFilter& filter)
{
    for (auto _ : state) {
        const std::optional<SSurface> filtered = Filter(GetSurface(), filter);
        if (!filtered)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(filtered);
    }
}

void Median(benchmark::State& state)
{
    const auto size = static_cast<std::size_t>(state.range(0));
    Apply(state,
          SMedianFilter{.columns = size, .rows = size, .threshold = static_cast<double>(state.range(1))});
}

void ArealGaussian(benchmark::State& state)
{
    Apply(state, SIsoGaussianFilter{.cutoff = 1e-6 * static_cast<double>(state.range(0))});
}

void Mean(benchmark::State& state)
{
    Apply(state, SMeanFilter{.columns = 9, .rows = 9});
}

void CorrectPlane(benchmark::State& state, const SPlaneCorrection& correction)
{
    for (auto _ : state) {
        SSurface surface = GetSurface();
        Correct(surface, correction);
        benchmark::DoNotOptimize(surface.heights.data());
    }
}

constexpr auto c_global = ECorrectionScope::Global;
constexpr auto c_linewise = ECorrectionScope::Linewise;

// Time is that of all threads together, beside which the clock's shows what they gain. 1024 by 1024 points.
BENCHMARK(MedianPlainly)->Arg(3)->Arg(15)->Unit(benchmark::kSecond)->MeasureProcessCPUTime();
BENCHMARK(Median)
    ->Args({3, 0})
    ->Args({15, 0})
    ->Args({15, 3})
    ->Unit(benchmark::kSecond)
    ->MeasureProcessCPUTime();
BENCHMARK(ArealGaussian)->Arg(8)->Arg(250)->Unit(benchmark::kSecond)->MeasureProcessCPUTime();
BENCHMARK(Mean)->Unit(benchmark::kSecond)->MeasureProcessCPUTime();
BENCHMARK_CAPTURE(CorrectPlane, global_1, SPlaneCorrection{.scope = c_global, .order = 1})
    ->Unit(benchmark::kSecond)
    ->MeasureProcessCPUTime();
BENCHMARK_CAPTURE(CorrectPlane, global_9, SPlaneCorrection{.scope = c_global, .order = 9})
    ->Unit(benchmark::kSecond)
    ->MeasureProcessCPUTime();
BENCHMARK_CAPTURE(CorrectPlane, linewise_9, SPlaneCorrection{.scope = c_linewise, .order = 9})
    ->Unit(benchmark::kSecond)
    ->MeasureProcessCPUTime();
BENCHMARK_CAPTURE(CorrectPlane, global_wizard_2,
                  SPlaneCorrection{.scope = c_global, .method = ECorrectionMethod::StepWizard, .order = 2})
    ->Unit(benchmark::kSecond)
    ->MeasureProcessCPUTime();
BENCHMARK_CAPTURE(CorrectPlane, linewise_wizard_1,
                  SPlaneCorrection{.scope = c_linewise, .method = ECorrectionMethod::StepWizard, .order = 1})
    ->Unit(benchmark::kSecond)
    ->MeasureProcessCPUTime();

} // namespace

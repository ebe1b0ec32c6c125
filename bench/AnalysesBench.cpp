#include "analysis/areal/ArealParameters.h"
#include "analysis/calibration/Gratings.h"
#include "analysis/calibration/Linearity.h"
#include "analysis/calibration/StepHeights.h"
#include "analysis/correlation/CrossCorrelation.h"
#include "analysis/form/Tilt.h"
#include "analysis/tip/TipShape.h"
#include "bench/SurfaceBench.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>

using namespace CommonUI::Analysis;

namespace
{

double DrawNoise(std::mt19937& random)
{
    return 1e-9 * static_cast<double>(random()) / 4294967296.0;
}

SSurface MakeGrid(std::size_t size)
{
    std::mt19937 random(1);
    return MakeSurface(size, [&](std::size_t x, std::size_t y) {
        return 1e-8 * (std::sin(static_cast<double>(x) / 2.9) + std::sin(static_cast<double>(y) / 3.3)) +
               DrawNoise(random);
    });
}

SSurface MakeSteps(std::size_t size)
{
    std::mt19937 random(2);
    return MakeSurface(
        size, [&](std::size_t x, std::size_t) { return (x / 64 % 2 == 0 ? 5e-8 : 0) + DrawNoise(random); });
}

// Hills of 20 to 60 points, which another place of it shows as well.
SSurface MakeHills(std::size_t size)
{
    return MakeSurface(size, [](std::size_t x, std::size_t y) {
        const auto u = static_cast<double>(x);
        const auto v = static_cast<double>(y);
        return 1e-7 * (std::sin(u / 5 + std::sin(v / 31)) + std::cos(v / 6 + std::sin(u / 37)));
    });
}

template<class FMeasure>
void Measure(benchmark::State& state, FMake make, FMeasure measure)
{
    const SSurface surface = make(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(measure(surface));
    ReportPoints(state, surface);
}

template<class FMeasure>
void Add(const std::string& name, FMake make, FMeasure measure)
{
    AddSurfaceBench(name, Measure<FMeasure>, make, measure);
}

const bool s_registered = [] {
    // To compare with.
    Add("Autocorrelation/hills", MakeHills,
        [](const SSurface& surface) { return ComputeAreal(surface, {{std::string_view("Sal")}}); });
    Add("Grating/grid", MakeGrid, [](const SSurface& surface) { return MeasureGrating(surface); });
    Add("Lattice/grid", MakeGrid, [](const SSurface& surface) { return MeasureLattice(surface); });
    Add("Distortion/grid", MakeGrid, [](const SSurface& surface) { return ComputeDistortion(surface); });
    Add("Steps/steps", MakeSteps, [](const SSurface& surface) { return MeasureSteps(surface); });
    Add("Shift/hills", MakeHills, [](const SSurface& surface) { return FindShift(surface, surface); });
    Add("Linearity/hills", MakeHills,
        [](const SSurface& surface) { return MeasureLinearity(surface, surface); });
    Add("Tilt/hills", MakeHills, [](const SSurface& surface) { return MeasureTilt(surface); });
    Add("Tip/hills", MakeHills,
        [](const SSurface& surface) { return EstimateTip(surface, {.depth = 5e-8}); });
    return true;
}();

} // namespace

#include "common/NumberText.h"
#include "common/Str.h"

#include <benchmark/benchmark.h>
#include <fmt/compile.h>

#include <cmath>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

using namespace CommonUI;

namespace
{

constexpr const char* c_formats[] = {"%.5f", "%6.3f",  "%9.2f", "%10.8f", "%7.5G",
                                     "%.5G", "%10.8G", "%.10G", "%lf",    "%.3e"};

constexpr std::size_t c_valueCount = 4096;

// Heights, areas and ratios as an analysis yields them: magnitudes from 1e-6 to 1e6, either sign.
const std::vector<double>& Values()
{
    static const std::vector<double> values = [] {
        std::mt19937_64 random(1);
        std::uniform_real_distribution<double> exponent(-6, 6);
        std::vector<double> list(c_valueCount);
        for (double& value : list)
            value = std::pow(10, exponent(random)) * (random() % 4 == 0 ? -1 : 1);
        return list;
    }();
    return values;
}

// Calls `write` with one value after the other.
template<class FWrite>
void ForEachValue(benchmark::State& state, FWrite write)
{
    const std::vector<double>& values = Values();
    std::size_t at = 0;
    for (auto _ : state) {
        write(values[at]);
        at = (at + 1) % c_valueCount;
    }
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

void LibraryReal(benchmark::State& state, const char* format)
{
    ForEachValue(state, [format](double value) {
        char text[64];
        benchmark::DoNotOptimize(std::snprintf(text, sizeof text, format, value));
        benchmark::DoNotOptimize(text);
    });
}

void LibraryInteger(benchmark::State& state, const char* format)
{
    ForEachValue(state, [format](double value) {
        char text[64];
        benchmark::DoNotOptimize(std::snprintf(text, sizeof text, format, static_cast<int>(value)));
        benchmark::DoNotOptimize(text);
    });
}

#pragma GCC diagnostic pop

// The form whose pattern is read when the program is compiled.
void FmtReal(benchmark::State& state)
{
    ForEachValue(state, [](double value) {
        char text[64];
        benchmark::DoNotOptimize(fmt::format_to(text, FMT_COMPILE("{:.5f}"), value));
        benchmark::DoNotOptimize(text);
    });
}

void FmtInteger(benchmark::State& state)
{
    ForEachValue(state, [](double value) {
        char text[64];
        benchmark::DoNotOptimize(fmt::format_to(text, FMT_COMPILE("{}"), static_cast<int>(value)));
        benchmark::DoNotOptimize(text);
    });
}

SNumberFormat Parsed(const char* format)
{
    SNumberFormat parsed;
    ParseNumberFormat(CStr::FromAscii(format), parsed);
    return parsed;
}

void OursReal(benchmark::State& state, const char* format)
{
    ForEachValue(state, [parsed = Parsed(format)](double value) {
        const CNumberText text(value, parsed);
        benchmark::DoNotOptimize(text.View().data());
    });
}

void OursInteger(benchmark::State& state, const char* format)
{
    ForEachValue(state, [parsed = Parsed(format)](double value) {
        const CNumberText text(static_cast<int>(value), parsed);
        benchmark::DoNotOptimize(text.View().data());
    });
}

// As a cell of a result table, without the reading of the format.
void OursText(benchmark::State& state, const char* format)
{
    ForEachValue(state, [parsed = Parsed(format)](double value) {
        benchmark::DoNotOptimize(CStr::FromAscii(CNumberText(value, parsed).View()));
    });
}

// The whole way: the format is read each time and a text comes out.
void OursFormat(benchmark::State& state, const char* format)
{
    const CStr wide = CStr::FromAscii(format);
    ForEachValue(state, [&wide](double value) { benchmark::DoNotOptimize(CStr::Format(wide, value)); });
}

// Each format with the C library and with the library, one line after the other.
const bool s_registered = [] {
    for (const char* format : c_formats) {
        const std::string name = std::string("Real/") + format;
        benchmark::RegisterBenchmark((name + "/snprintf").c_str(), LibraryReal, format);
        benchmark::RegisterBenchmark((name + "/CNumberText").c_str(), OursReal, format);
        benchmark::RegisterBenchmark((name + "/CNumberText to CStr").c_str(), OursText, format);
        benchmark::RegisterBenchmark((name + "/CStr::Format").c_str(), OursFormat, format);
    }
    for (const char* format : {"%d", "%6d", "%08x"}) {
        const std::string name = std::string("Integer/") + format;
        benchmark::RegisterBenchmark((name + "/snprintf").c_str(), LibraryInteger, format);
        benchmark::RegisterBenchmark((name + "/CNumberText").c_str(), OursInteger, format);
    }
    return true;
}();

BENCHMARK(FmtReal)->Name("Real/%.5f/fmt");
BENCHMARK(FmtInteger)->Name("Integer/%d/fmt");

} // namespace

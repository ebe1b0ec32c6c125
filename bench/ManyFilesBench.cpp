#include "programs/surface_report/Program.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace
{

namespace fs = std::filesystem;

// Files of surfaces of 256 by 256 points with a folder for their reports, gone with the object.
class CFolder
{
public:
    explicit CFolder(std::size_t files)
    {
        fs::create_directories(m_folder / "in");
        std::mt19937 random(1);
        std::string text;
        for (int i = 0; i < 256 * 256; ++i)
            text += std::to_string(random() % 10000) + (i % 256 == 255 ? "\n" : " ");
        for (std::size_t i = 0; i < files; ++i) {
            m_files.push_back(m_folder / "in" / (std::to_string(i) + ".txt"));
            std::ofstream(m_files.back()) << "# Width: 100 um\n# Height: 100 um\n# Value units: nm\n" << text;
        }
    }
    ~CFolder()
    {
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }
    CFolder(const CFolder&) = delete;
    CFolder& operator=(const CFolder&) = delete;

    // Has the program report on a file, or on all of a folder, by the parameters of the surface.
    void Run(const fs::path& input) const
    {
        const std::string in = input.string();
        const std::string out = (m_folder / "out").string();
        const std::vector<const char*> arguments{
            in.c_str(),         "--out",  out.c_str(), "--level",    "plane", "--unit", "nm", "--parameters",
            "Sa,Sq,Sz,Sal,Spd", "--data", "no",        "--pictures", "no"};
        std::ostringstream said;
        if (SurfaceReport::RunProgram(arguments, said, said) != 0)
            std::abort();
    }
    const std::vector<fs::path>& GetFiles() const { return m_files; }
    fs::path GetInput() const { return m_folder / "in"; }

private:
    fs::path m_folder =
        fs::temp_directory_path() / ("commonui-bench-" + std::to_string(std::random_device()()));
    std::vector<fs::path> m_files{};
};

void ReportFiles(benchmark::State& state)
{
    state.counters["s/file"] =
        benchmark::Counter(static_cast<double>(state.range(0)),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void OneTable(benchmark::State& state)
{
    const CFolder folder(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        folder.Run(folder.GetInput());
    ReportFiles(state);
}

// To compare with: a run for each file, as a script would have it, without the time a process takes.
void RunForEach(benchmark::State& state)
{
    const CFolder folder(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        for (const fs::path& file : folder.GetFiles())
            folder.Run(file);
    ReportFiles(state);
}

// By the time that the threads take together, which others on the machine do not change, and by the clock.
BENCHMARK(OneTable)->Arg(16)->Arg(128)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(RunForEach)->Arg(16)->Arg(128)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(OneTable)->Name("OneTable/clock")->Arg(128)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(RunForEach)->Name("RunForEach/clock")->Arg(128)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

#include "formats/SurfaceReader.h"
#include "formats/SurfaceWriter.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <zip.h>

using namespace CommonUI::Formats;
using CommonUI::Analysis::SSurface;

namespace
{

// Files of one surface of 1024 by 1024 points, waves with noise as it is measured, gone with the object.
class CFiles
{
public:
    CFiles()
    {
        constexpr std::size_t c_size = 1024;
        SSurface surface{.points = c_size, .lines = c_size, .dx = 1e-6, .dy = 1e-6};
        std::mt19937 random(1);
        for (std::size_t i = 0; i < c_size * c_size; ++i) {
            const auto x = static_cast<double>(i % c_size);
            const double noise = static_cast<double>(random() % 1000);
            surface.heights.push_back(1e-12 * std::floor(1e5 * std::sin(x / 30) + noise));
        }
        std::filesystem::create_directory(m_folder);
        for (const EFormat format : {EFormat::Sdf, EFormat::BinarySdf, EFormat::X3p, EFormat::Matrix})
            std::ofstream(GetPath(format), std::ios::binary) << WriteSurface(surface, format, {});
    }
    ~CFiles()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    CFiles(const CFiles&) = delete;
    CFiles& operator=(const CFiles&) = delete;

    std::filesystem::path GetPath(EFormat format) const
    {
        return m_folder / std::to_string(static_cast<int>(format));
    }

private:
    std::filesystem::path m_folder =
        std::filesystem::temp_directory_path() / ("commonui-bench-" + std::to_string(std::random_device()()));
};

const CFiles& GetFiles()
{
    static const CFiles files;
    return files;
}

void Load(benchmark::State& state, EFormat format)
{
    const std::filesystem::path path = GetFiles().GetPath(format);
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadSurface(path));
}

// What the library that unpacks takes for the same entry, whose bytes go nowhere.
void UnpackAlone(benchmark::State& state)
{
    const std::string path = GetFiles().GetPath(EFormat::X3p).string();
    std::array<char, 1 << 16> piece;
    for (auto _ : state) {
        zip_t* const zip = zip_open(path.c_str(), ZIP_RDONLY, nullptr);
        zip_file_t* const entry = zip_fopen(zip, "bindata/data.bin", 0);
        while (zip_fread(entry, piece.data(), piece.size()) > 0)
            benchmark::DoNotOptimize(piece.data());
        zip_fclose(entry);
        zip_discard(zip);
    }
}

BENCHMARK(UnpackAlone)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Load, x3p, EFormat::X3p)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Load, binary_sdf, EFormat::BinarySdf)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Load, sdf, EFormat::Sdf)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Load, matrix, EFormat::Matrix)->Unit(benchmark::kMillisecond);

} // namespace

#include <CommonUI/analysis/areal/ArealParameters.h>
#include <CommonUI/analysis/filter/IsoGaussianFilter.h>
#include <CommonUI/analysis/form/Levelling.h>
#include <CommonUI/formats/SurfaceReader.h>
#include <CommonUI/formats/SurfaceWriter.h>

#include <chrono>
#include <fstream>
#include <iostream>

using namespace CommonUI;

namespace
{

// The roughness of a surface: levelled, without waves longer than a quarter of its shorter side.
Analysis::SSurface MakeRoughness(Analysis::SSurface surface)
{
    Level(surface, Analysis::ELevelling::Plane);
    const Analysis::SIsoGaussianFilter filter{.pass = Analysis::EPass::High, .share = 0.25};
    if (CheckCutoff(surface, filter) != Analysis::ECutoff::Usable)
        return surface; // too few points to filter
    std::cout << "cut-off " << GetCutoff(surface, filter) << " m\n";
    return FilterIsoGaussian(surface, filter);
}

void Write(const Analysis::SSurface& surface, const char* path)
{
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const std::string bytes = WriteSurface(surface, Formats::EFormat::Sdf, now);
    std::ofstream file(path, std::ios::binary);
    file << bytes << std::flush;
    if (!file)
        throw std::runtime_error(std::string(path) + ": the file cannot be written");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: surface_files FILE\n";
        return 2;
    }
    try {
        const Analysis::SSurface surface = Formats::ReadSurface(argv[1], Formats::SReadOptions{});
        std::cout << surface.fileName << ": " << surface.lines << " lines of " << surface.points
                  << " points, " << surface.missing << " of them missing\n";
        const Analysis::SSurface roughness = MakeRoughness(surface);
        constexpr std::string_view c_keys[] = {"Sa", "Sq", "Sz"}; // all in m; nothing else is computed
        for (const Analysis::SValue& parameter : ComputeAreal(roughness, c_keys))
            std::cout << parameter.key << " " << parameter.value << " m\n";
        Write(roughness, "roughness.sdf");
        // What is read back has the same heights to the bit.
        const Analysis::SSurface again = Formats::ReadSurface("roughness.sdf", Formats::SReadOptions{});
        std::cout << "roughness.sdf: " << again.heights.size() << " heights\n";
    } catch (const std::exception& error) { // a sentence that names file and place
        std::cerr << error.what() << "\n";
        return 1;
    }
    return 0;
}

#include "formats/SurfaceReader.h"

#include "analysis/areal/HeightParameters.h"
#include "formats/detail/TextScanner.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <memory>
#include <new>

namespace CommonUI::Formats
{

namespace
{

std::string PathToUtf8(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

// A name with a control character in it must not break the message, nor act on the terminal that shows it.
std::string ToMessageName(const std::filesystem::path& path)
{
    return ReplaceControls(PathToUtf8(path));
}

struct SText {
    std::unique_ptr<char[]> bytes;
    std::size_t size;
};

constexpr std::string_view c_byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view c_sdf = "aISO-1.0";
constexpr std::string_view c_binarySdf = "bISO-1.0";

std::string_view WithoutMark(std::string_view text)
{
    return text.starts_with(c_byteOrderMark) ? text.substr(c_byteOrderMark.size()) : text;
}

// Looks at the first bytes of a file, so that one that is no surface is not read as a whole.
void CheckHead(std::string_view head, const std::string& name)
{
    head = WithoutMark(head);
    if (head.empty())
        throw EReadError(name + ":1: the file is empty");
    if (head.starts_with(c_binarySdf))
        throw EReadError(name + ":1: the binary form of this format is not supported");
    if (!head.starts_with(c_sdf) && !head.starts_with('#'))
        throw EReadError(name + ":1: not a surface: the first line must be 'aISO-1.0' or begin with '#'");
}

SText Load(const std::filesystem::path& path, const std::string& name)
{
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status))
        throw EReadError(name + ": no such file");
    if (!std::filesystem::is_regular_file(status))
        throw EReadError(name + ": not a file");
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    std::ifstream stream(path, std::ios::binary);
    if (error || !stream)
        throw EReadError(name + ": the file cannot be opened");

    std::array<char, 16> head{};
    stream.read(head.data(), static_cast<std::streamsize>(std::min<std::uintmax_t>(head.size(), size)));
    CheckHead({head.data(), static_cast<std::size_t>(stream.gcount())}, name);
    stream.seekg(0);
    SText text{std::make_unique_for_overwrite<char[]>(size), static_cast<std::size_t>(size)};
    stream.read(text.bytes.get(), static_cast<std::streamsize>(text.size));
    if (static_cast<std::size_t>(stream.gcount()) != text.size)
        throw EReadError(name + ": the file cannot be read");
    return text;
}

// Parameters take powers of heights, which must not vanish. No instrument sees differences like that.
void CheckSpan(const std::vector<double>& heights, const std::string& name)
{
    constexpr double c_leastSpan = 1e-100;
    const Analysis::SRange range = Analysis::FindRange(heights);
    const double span = range.highest - range.lowest;
    if (span > 0 && span < c_leastSpan)
        throw EReadError(name + ": the heights differ by less than 1e-100 m, too little to compute with");
}

Analysis::SSurface ReadFile(const std::filesystem::path& path, const std::string& name,
                            const FProgress& progress)
{
    const SText file = Load(path, name);
    const std::string_view text = WithoutMark({file.bytes.get(), file.size});
    CTextScanner scanner(name, text, progress);
    return text.starts_with(c_sdf) ? ReadSdf(scanner) : ReadMatrix(scanner);
}

} // namespace

Analysis::SSurface ReadSurface(const std::filesystem::path& path, const FProgress& progress)
{
    const std::string name = ToMessageName(path);
    try {
        Analysis::SSurface surface = ReadFile(path, name, progress);
        CheckSpan(surface.heights, name);
        const auto missing = std::count_if(surface.heights.begin(), surface.heights.end(),
                                           [](double z) { return std::isnan(z); });
        surface.missing = static_cast<std::size_t>(missing);
        surface.fileName = PathToUtf8(path.filename());
        if (progress)
            progress(1);
        return surface;
    } catch (const std::bad_alloc&) {
        throw EReadError(name + ": there is not enough memory for the file");
    }
}

} // namespace CommonUI::Formats

#include "formats/SurfaceReader.h"

#include "formats/detail/TextScanner.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <memory>

namespace CommonUI::Formats
{

namespace
{

std::string PathToUtf8(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

// A name with a line break in it must not break the message.
std::string ToMessageName(const std::filesystem::path& path)
{
    std::string name = PathToUtf8(path);
    std::replace_if(
        name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, '?');
    return name;
}

struct SText {
    std::unique_ptr<char[]> bytes;
    std::size_t size;
};

SText Load(const std::filesystem::path& path)
{
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status))
        throw EReadError(ToMessageName(path) + ": no such file");
    if (!std::filesystem::is_regular_file(status))
        throw EReadError(ToMessageName(path) + ": not a file");
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    std::ifstream stream(path, std::ios::binary);
    if (error || !stream)
        throw EReadError(ToMessageName(path) + ": the file cannot be opened");

    SText text{std::make_unique_for_overwrite<char[]>(size), static_cast<std::size_t>(size)};
    stream.read(text.bytes.get(), static_cast<std::streamsize>(text.size));
    if (static_cast<std::size_t>(stream.gcount()) != text.size)
        throw EReadError(ToMessageName(path) + ": the file cannot be read");
    return text;
}

Analysis::SSurface ReadByContent(CTextScanner& scanner, std::string_view text)
{
    if (text.empty())
        scanner.Fail(text.data(), "the file is empty");
    if (text.starts_with("aISO-1.0"))
        return ReadSdf(scanner);
    if (text.starts_with("bISO-1.0"))
        scanner.Fail(text.data(), "the binary form of this format is not supported");
    if (text.starts_with('#'))
        return ReadMatrix(scanner);
    scanner.Fail(text.data(), "not a surface: the first line must be 'aISO-1.0' or begin with '#'");
}

} // namespace

Analysis::SSurface ReadSurface(const std::filesystem::path& path, const FProgress& progress)
{
    const SText file = Load(path);
    std::string_view text(file.bytes.get(), file.size);
    if (text.starts_with("\xEF\xBB\xBF")) // byte order mark
        text.remove_prefix(3);

    CTextScanner scanner(ToMessageName(path), text, progress);
    Analysis::SSurface surface = ReadByContent(scanner, text);
    const auto missing =
        std::count_if(surface.heights.begin(), surface.heights.end(), [](double z) { return std::isnan(z); });
    surface.missing = static_cast<std::size_t>(missing);
    surface.fileName = PathToUtf8(path.filename());
    if (progress)
        progress(1);
    return surface;
}

} // namespace CommonUI::Formats

#include "formats/SurfaceFiles.h"

#include "formats/detail/InputFile.h"
#include "formats/SurfaceReader.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <system_error>

namespace CommonUI::Formats
{

namespace fs = std::filesystem;

namespace
{

// A file, or what cannot be looked at, such as a link that leads nowhere.
bool IsFileOrUnknown(const fs::directory_entry& entry)
{
    std::error_code error;
    return entry.is_regular_file(error) || error;
}

// Of any name, also of one that is no text.
bool IsSurfaceName(const fs::path& path)
{
    const fs::path extension = path.extension();
    const auto toLower = [](auto c) {
        return c >= 'A' && c <= 'Z' ? static_cast<decltype(c)>(c - 'A' + 'a') : c;
    };
    constexpr std::array<std::string_view, 3> c_extensions = {".sdf", ".x3p", ".txt"};
    return std::ranges::any_of(c_extensions, [&](std::string_view known) {
        return std::ranges::equal(extension.native(), known, {}, toLower);
    });
}

[[noreturn]] void Fail(const fs::path& path, const std::error_code& error)
{
    throw EReadError(PathToUtf8(path) + ": " + error.message());
}

} // namespace

std::vector<fs::path> FindSurfaceFiles(const fs::path& folder,
                                       const std::function<bool(const fs::path&)>& isLeftOut)
{
    std::vector<fs::path> found;
    std::error_code error;
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied, error);
    if (error == std::errc::no_such_file_or_directory)
        return found;
    fs::path last = folder; // where it is when it cannot go on
    for (const fs::recursive_directory_iterator end; !error && entry != end; entry.increment(error)) {
        std::error_code unknown;
        last = entry->path();
        if (isLeftOut && entry->is_directory(unknown) && isLeftOut(entry->path()))
            entry.disable_recursion_pending();
        else if (IsFileOrUnknown(*entry) && IsSurfaceName(entry->path()))
            found.push_back(entry->path());
    }
    if (error)
        Fail(last, error);
    std::ranges::sort(found);
    return found;
}

} // namespace CommonUI::Formats

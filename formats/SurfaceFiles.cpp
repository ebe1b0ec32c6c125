#include "formats/SurfaceFiles.h"

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

bool IsSurfaceName(const fs::path& path)
{
    std::string extension = path.extension().string();
    std::ranges::transform(extension, extension.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    constexpr std::array<std::string_view, 3> c_extensions = {".sdf", ".x3p", ".txt"};
    return std::ranges::find(c_extensions, extension) != c_extensions.end();
}

} // namespace

std::vector<fs::path> FindSurfaceFiles(const fs::path& folder,
                                       const std::function<bool(const fs::path&)>& isLeftOut)
{
    std::vector<fs::path> found;
    std::error_code error;
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied, error);
    for (const fs::recursive_directory_iterator end; !error && entry != end; entry.increment(error)) {
        std::error_code unknown;
        if (isLeftOut && entry->is_directory(unknown) && isLeftOut(entry->path()))
            entry.disable_recursion_pending();
        else if (IsFileOrUnknown(*entry) && IsSurfaceName(entry->path()))
            found.push_back(entry->path());
    }
    std::ranges::sort(found);
    return found;
}

} // namespace CommonUI::Formats

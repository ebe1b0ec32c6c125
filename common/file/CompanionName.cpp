#include "common/file/detail/CompanionName.h"

#include "common/file/detail/FileErrors.h"
#include "common/file/detail/FilePath.h"
#include "common/file/detail/SystemFiles.h"

#include <cstdint>
#include <optional>
#include <utility>

namespace CommonUI
{

namespace fs = std::filesystem;

namespace
{

constexpr std::size_t c_longestName = 255;

}

fs::path FollowLinks(fs::path path)
{
    constexpr int c_mostLinks = 40;
    int links = 0;
    while (std::optional<fs::path> next = ReadLink(path)) {
        if (++links > c_mostLinks)
            Refuse("cannot follow link", std::errc::too_many_symbolic_link_levels);
        path = *std::move(next);
    }
    return path;
}

bool IsThere(const CStr& fileName)
{
    CStr ignored;
    bool isThere = true;
    TryFile(ignored, [&] { isThere = fs::exists(fs::symlink_status(FollowLinks(ToFilePath(fileName)))); });
    return isThere;
}

std::u8string GetCompanionStart(const fs::path& target, std::size_t endLength)
{
    const std::size_t longest = c_longestName - 2 - endLength;
    std::u8string name = target.filename().u8string();
    if (name.size() > longest) {
        std::size_t length = longest;
        while ((name[length] & 0xC0) == 0x80) // not within a character
            --length;
        name.resize(length);
    }
    return u8"~" + name + u8".";
}

fs::path GetBackupPath(const fs::path& target)
{
    const std::u8string end = u8"backup";
    const std::u8string name = target.filename().u8string();
    if (name.size() + 2 + end.size() <= c_longestName)
        return target.parent_path() / GetCompanionStart(target, end.size()).append(end);
    // Names that differ in what is left out only have backups of their own.
    constexpr std::uint64_t c_start = 0xCBF29CE484222325, c_factor = 0x100000001B3;
    constexpr std::size_t c_digits = 16;
    std::uint64_t hash = c_start;
    for (const char8_t c : name)
        hash = (hash ^ c) * c_factor;
    std::u8string companion = GetCompanionStart(target, c_digits + 1 + end.size());
    for (std::size_t i = 0; i < c_digits; ++i, hash >>= 4)
        companion += u8"0123456789abcdef"[hash % 16];
    return target.parent_path() / companion.append(u8".").append(end);
}

} // namespace CommonUI

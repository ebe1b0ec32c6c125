#include "common/file/detail/CompanionName.h"

#include "common/file/detail/FileErrors.h"

namespace CommonUI
{

namespace fs = std::filesystem;

fs::path FollowLinks(fs::path path)
{
    constexpr int c_mostLinks = 40;
    for (int i = 0; fs::is_symlink(fs::symlink_status(path)); ++i) {
        if (i == c_mostLinks)
            Refuse("cannot follow link", std::errc::too_many_symbolic_link_levels);
        path = path.parent_path() / fs::read_symlink(path);
    }
    return path;
}

std::u8string GetCompanionStart(const fs::path& target, std::size_t endLength)
{
    const std::size_t longest = 255 - 2 - endLength;
    std::u8string name = target.filename().u8string();
    if (name.size() > longest) {
        std::size_t length = longest;
        while ((name[length] & 0xC0) == 0x80) // not within a character
            --length;
        name.resize(length);
    }
    return u8"~" + name + u8".";
}

} // namespace CommonUI

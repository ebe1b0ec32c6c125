#include "common/file/detail/FilePath.h"

#include "common/file/detail/FileErrors.h"
#include "common/file/DeviceName.h"
#include "common/PathText.h"

#include <algorithm>
#include <string_view>
#include <system_error>

namespace CommonUI
{

namespace
{

#if defined(_WIN32)

bool IsSeparator(char16_t unit)
{
    return unit == u'\\' || unit == u'/';
}

std::u16string_view TakePart(std::u16string_view& path)
{
    const auto end = std::ranges::find_if(path, IsSeparator);
    const std::u16string_view part(path.begin(), end);
    path.remove_prefix(std::min(part.size() + 1, path.size()));
    return part;
}

// What stands behind a colon would be a part of a file, which nothing but this system knows; the system would
// leave out dots and blanks at the end, and so take another file.
void CheckPart(std::u16string_view part)
{
    if (part.find(u':') != part.npos)
        Refuse("the name has a colon", std::errc::invalid_argument);
    if (part != u"." && part != u".." && (part.ends_with(u'.') || part.ends_with(u' ')))
        Refuse("the name ends in a dot or a blank", std::errc::invalid_argument);
    if (IsDeviceName(part))
        Refuse("the name is that of a device", std::errc::invalid_argument);
}

// The path behind its drive, or behind its server and what that shares, which have rules of their own.
std::u16string_view TakeRoot(std::u16string_view path)
{
    constexpr std::u16string_view c_mark = u"\\\\?\\", c_server = u"UNC\\";
    const bool isFull = path.starts_with(c_mark);
    if (isFull)
        path.remove_prefix(c_mark.size());
    const bool isMarkedServer = isFull && path.starts_with(c_server);
    if (isMarkedServer || (!isFull && path.size() > 1 && IsSeparator(path[0]) && IsSeparator(path[1]))) {
        path.remove_prefix(isMarkedServer ? c_server.size() : 2);
        const std::u16string_view server = TakePart(path);
        if (server == u"." || server == u"?")
            Refuse("the name is that of a device", std::errc::invalid_argument);
        TakePart(path);
    } else if (path.size() > 1 && path[1] == u':') {
        path.remove_prefix(2);
        // The folder that a drive is in belongs to the process and changes unseen.
        if (path.empty() || !IsSeparator(path.front()))
            Refuse("the name has a drive without a folder", std::errc::invalid_argument);
    }
    return path;
}

void CheckForSystem(std::u16string_view path)
{
    for (std::u16string_view rest = TakeRoot(path); !rest.empty();)
        CheckPart(TakePart(rest));
}

#else

void CheckForSystem(std::u16string_view)
{
}

#endif

} // namespace

std::filesystem::path ToFilePath(const CStr& fileName)
{
    // To the system the name would end there: that of another file.
    if (fileName.Find(u'\0') != CStr::npos)
        Refuse("the name has a character U+0000", std::errc::invalid_argument);
    std::filesystem::path path = ToPath(fileName);
    CheckForSystem(fileName);
    return path;
}

} // namespace CommonUI

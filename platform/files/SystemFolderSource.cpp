#include "common/PathText.h"
#include "common/StringTable.h"
#include "platform/files/FolderSource.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace CommonUI
{

namespace
{

namespace fs = std::filesystem;

constexpr int c_cannotBeRead = 11451;

#if defined(_WIN32)

// Drives that are not ready are among them: asking each would take its time.
std::vector<CStr> ListRoots()
{
    std::vector<CStr> roots;
    const DWORD drives = GetLogicalDrives();
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter)
        if ((drives >> (letter - u'A') & 1U) != 0)
            roots.push_back(CStr(1, letter) + u":\\");
    return roots;
}

bool IsHidden(const fs::path& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_HIDDEN) != 0;
}

bool IsSame(const CStr& one, const CStr& other)
{
    const auto length = static_cast<int>(one.GetLength());
    const auto* const first = reinterpret_cast<const wchar_t*>(one.data());
    const auto* const second = reinterpret_cast<const wchar_t*>(other.data());
    return CompareStringOrdinal(first, length, second, static_cast<int>(other.GetLength()), TRUE) ==
           CSTR_EQUAL;
}

#else

std::vector<CStr> ListRoots()
{
    std::vector<CStr> roots{u"/"};
    const char* const user = std::getenv("HOME");
    CStr home;
    if (user && fs::path(user).is_absolute() && fs::path(user).has_relative_path() && ToText(user, home))
        roots.insert(roots.begin(), home);
    return roots;
}

bool IsHidden(const fs::path& path)
{
    return path.filename().native().starts_with('.');
}

bool IsSame(const CStr& one, const CStr& other)
{
    return one == other;
}

#endif

void Append(const fs::directory_entry& entry, SFolderListing& listing)
{
    std::error_code error; // what cannot be looked at is no folder to go to
    CStr name;
    if (entry.is_directory(error) && ToText(entry.path().filename(), name))
        listing.folders.push_back({name, IsHidden(entry.path())});
}

class CSystemFolderSource : public CFolderSource
{
public:
    SFolderListing List(const CStr& path) const override
    {
        SFolderListing listing;
        std::error_code error;
        fs::directory_iterator entry;
        try {
            entry = fs::directory_iterator(ToPath(path), error);
        } catch (const std::exception&) {
            error = std::make_error_code(std::errc::invalid_argument);
        }
        for (; !error && entry != fs::directory_iterator(); entry.increment(error))
            Append(*entry, listing);
        if (error)
            listing.error = CStr::Format(GetString(c_cannotBeRead), path, CStr::FromUtf8(error.message()));
        return listing;
    }
    std::vector<CStr> GetRoots() const override { return ListRoots(); }
    char16_t GetSeparator() const override { return static_cast<char16_t>(fs::path::preferred_separator); }
    bool IsSameName(const CStr& one, const CStr& other) const override { return IsSame(one, other); }
};

} // namespace

std::shared_ptr<const CFolderSource> GetSystemFolders()
{
    static const auto& folders =
        *new std::shared_ptr<const CFolderSource>(std::make_shared<CSystemFolderSource>());
    return folders;
}

} // namespace CommonUI

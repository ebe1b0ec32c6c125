#include "common/file/KeptFile.h"

#include "common/file/detail/CompanionName.h"
#include "common/file/detail/FileErrors.h"
#include "common/file/detail/FilePath.h"
#include "common/file/FileBytes.h"
#include "common/file/FileReplacement.h"
#include "common/file/FileSystem.h"

#include <string>
#include <utility>

namespace CommonUI
{

namespace
{

namespace fs = std::filesystem;

fs::path MakeKeptPath(const fs::path& target, const CStr& why, int number)
{
    const std::string end = why.ToUtf8() + (number > 1 ? "-" + std::to_string(number) : std::string());
    // Without the mark of what lies there for a while only.
    const std::u8string start = GetCompanionStart(target, end.size()).substr(1);
    return target.parent_path() / (start + std::u8string(end.begin(), end.end()));
}

bool HasContent(const fs::path& path, std::string_view content)
{
    std::string bytes;
    CStr reason;
    return ReadFileBytes(CStr(path.u16string()), bytes, content.size(), reason) && bytes == content;
}

// Where a file can have one name only.
void WriteCopy(const fs::path& target, const fs::path& copy, std::string_view content)
{
    CFileSystem& system = GetFileSystem();
    const CFileSystem::CFile file = system.Create(copy);
    CStr reason;
    bool isOpen = true;
    if (TryFile(reason, [&] {
            fs::permissions(copy, fs::status(target).permissions());
            system.Write(file, content);
            system.Flush(file);
            isOpen = false;
            system.Close(file);
        }))
        return;
    CStr ignored;
    std::error_code error;
    if (isOpen)
        TryFile(ignored, [&] { system.Close(file); });
    fs::remove(copy, error);
    throw std::runtime_error(reason.ToUtf8());
}

void LinkOrCopy(const fs::path& target, const fs::path& kept, std::string_view content)
{
    try {
        GetFileSystem().Link(target, kept);
    } catch (const std::system_error& error) {
        if (error.code() == std::errc::file_exists)
            throw;
        WriteCopy(target, kept, content);
    }
}

// False where the name is in use for something else.
bool KeepUnder(const fs::path& target, const fs::path& kept, std::string_view content)
{
    if (HasContent(kept, content))
        return true;
    try {
        LinkOrCopy(target, kept, content);
        return true;
    } catch (const std::system_error& error) {
        if (error.code() == std::errc::file_exists)
            return false;
        throw;
    }
}

} // namespace

CStr GetBackupName(const CStr& fileName)
{
    CStr reason, name;
    TryFile(reason, [&] { name = GetBackupPath(FollowLinks(ToFilePath(fileName))).u16string(); });
    return name;
}

bool KeepBackupFile(const CStr& fileName, std::string_view content, CStr& reason)
{
    CFileReplacement backup;
    return backup.Open(GetBackupName(fileName), reason, fileName) && backup.Write(content, reason) &&
           backup.Replace(reason);
}

bool KeepFile(const CStr& fileName, std::string_view content, const CStr& why, CStr& keptAs, CStr& reason)
{
    constexpr int c_mostNames = 1000;
    return TryFile(reason, [&] {
        const fs::path target = FollowLinks(ToFilePath(fileName));
        for (int number = 1; number <= c_mostNames; ++number) {
            const fs::path kept = MakeKeptPath(target, why, number);
            CStr name = kept.u16string(); // before, as it needs memory
            if (KeepUnder(target, kept, content)) {
                keptAs = std::move(name);
                return;
            }
        }
        Refuse("too many kept files", std::errc::file_exists);
    });
}

} // namespace CommonUI

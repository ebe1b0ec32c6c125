#include "common/file/FileLock.h"

#include "common/file/detail/CompanionName.h"
#include "common/file/detail/FileErrors.h"
#include "common/file/detail/FilePath.h"
#include "common/file/FileSystem.h"

#include <algorithm>
#include <optional>
#include <string>
#include <thread>

namespace CommonUI
{

namespace
{

constexpr std::u8string_view c_end = u8"lock";

std::filesystem::path GetLockPath(const CStr& fileName)
{
    const std::filesystem::path target = FollowLinks(ToFilePath(fileName));
    return target.parent_path() / GetCompanionStart(target, c_end.size()).append(c_end);
}

CStr DescribeHolder(const CStr& fileName)
{
    const CStr holder = GetLockHolder(fileName);
    return (holder.IsEmpty() ? CStr(u"another program") : holder) + u" holds its lock";
}

} // namespace

CFileLock::CFileLock(const CStr& fileName, std::chrono::milliseconds patience)
{
    constexpr std::chrono::milliseconds c_longestWait{4};
    TryFile(m_reason, [&] {
        m_path = GetLockPath(fileName);
        CFileSystem& system = GetFileSystem();
        const std::string holder = "process " + std::to_string(system.GetProcess());
        const auto end = std::chrono::steady_clock::now() + patience;
        std::chrono::milliseconds wait{1};
        while (!(m_lock = system.TryLock(m_path, holder))) {
            if (std::chrono::steady_clock::now() >= end) {
                m_isTaken = true;
                m_reason = DescribeHolder(fileName);
                return;
            }
            std::this_thread::sleep_for(wait);
            wait = std::min(2 * wait, c_longestWait);
        }
    });
}

CFileLock::~CFileLock()
{
    if (m_lock)
        GetFileSystem().Unlock(*m_lock, m_path);
}

CStr GetLockHolder(const CStr& fileName)
{
    CStr reason;
    std::optional<std::string> holder;
    TryFile(reason, [&] { holder = GetFileSystem().FindHolder(GetLockPath(fileName)); });
    return CStr::FromUtf8(holder.value_or(std::string()));
}

} // namespace CommonUI

#include "common/file/FileSystem.h"

#include "common/file/detail/FileErrors.h"
#include "common/file/detail/SystemFiles.h"

#include <atomic>

namespace CommonUI
{

namespace
{

std::atomic<CFileSystem*> s_inPlace{nullptr}; // null for the system itself

} // namespace

CFileSystem::~CFileSystem() = default;

void CFileSystem::Link(const std::filesystem::path&, const std::filesystem::path&)
{
    Refuse("cannot link", std::errc::operation_not_supported);
}

std::filesystem::path CFileSystem::Resolve(const std::filesystem::path& path)
{
    return std::filesystem::canonical(path);
}

std::optional<std::string> CFileSystem::FindHolder(const std::filesystem::path& path)
{
    if (!std::filesystem::exists(path))
        return std::nullopt;
    return std::string();
}

CFileSystem& GetFileSystem() noexcept
{
    CFileSystem* const inPlace = s_inPlace;
    return inPlace ? *inPlace : GetSystemFiles();
}

CFileSystemScope::CFileSystemScope(CFileSystem& system) noexcept
    : m_previous(s_inPlace.exchange(&system))
{
}

CFileSystemScope::~CFileSystemScope()
{
    s_inPlace = m_previous;
}

} // namespace CommonUI

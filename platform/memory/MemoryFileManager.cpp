#include "platform/memory/MemoryFileManager.h"

#include "common/PathText.h"

#include <system_error>
#include <utility>

namespace CommonUI
{

namespace fs = std::filesystem;

CMemoryFileManager::CMemoryFileManager(fs::path trash)
    : m_trash(std::move(trash))
{
}

bool CMemoryFileManager::MoveToTrash(const CStr& path)
{
    if (m_trash.empty())
        return false;
    std::error_code error;
    const fs::path from = ToPath(path);
    fs::path to = m_trash / from.filename();
    for (int number = 2; fs::exists(to, error); ++number)
        to = m_trash / (from.stem().native() + ToPath(CStr::Format(u" %d", number)).native() +
                        from.extension().native());
    fs::rename(from, to, error);
    return !error;
}

bool CMemoryFileManager::OpenFolder(const CStr& folder)
{
    m_opened.push_back(folder);
    return true;
}

bool CMemoryFileManager::OpenFile(const CStr& path)
{
    m_opened.push_back(path);
    return true;
}

} // namespace CommonUI

#include "platform/memory/MemoryFolderSource.h"

#include <utility>

namespace CommonUI
{

CMemoryFolderSource::CMemoryFolderSource(std::vector<CStr> roots)
    : m_roots(std::move(roots))
{
}

CMemoryFolderSource::~CMemoryFolderSource() = default;

SFolderListing CMemoryFolderSource::List(const CStr& path) const
{
    std::unique_lock lock(m_mutex);
    ++m_calls;
    m_changed.notify_all();
    m_changed.wait(lock, [&] { return !m_hanging.contains(path); });
    const auto found = m_listings.find(path);
    return found == m_listings.end() ? SFolderListing{{}, path + u" is not there."} : found->second;
}

void CMemoryFolderSource::SetFolders(const CStr& path, const std::vector<CStr>& names)
{
    SFolderListing listing;
    for (const CStr& name : names)
        listing.folders.push_back({name, name.StartsWith(u".")});
    const std::lock_guard lock(m_mutex);
    m_listings[path] = std::move(listing);
}

void CMemoryFolderSource::SetError(const CStr& path, const CStr& error)
{
    const std::lock_guard lock(m_mutex);
    m_listings[path] = {{}, error};
}

void CMemoryFolderSource::Hang(const CStr& path)
{
    const std::lock_guard lock(m_mutex);
    m_hanging.insert(path);
}

void CMemoryFolderSource::Release(const CStr& path)
{
    const std::lock_guard lock(m_mutex);
    m_hanging.erase(path);
    m_changed.notify_all();
}

void CMemoryFolderSource::WaitForCalls(std::size_t count) const
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return m_calls >= count; });
}

std::size_t CMemoryFolderSource::GetCallCount() const
{
    const std::lock_guard lock(m_mutex);
    return m_calls;
}

} // namespace CommonUI

#pragma once

#include "../files/FolderSource.h"

#include <condition_variable>
#include <map>
#include <mutex>
#include <set>

namespace CommonUI
{

/// Folders that the program sets, with drives that hang until it lets them go: for tests. Any thread may
/// call.
class COMMONUI_API CMemoryFolderSource : public CFolderSource
{
public:
    /// @param roots such as "/" and "X:\"
    explicit CMemoryFolderSource(std::vector<CStr> roots);
    ~CMemoryFolderSource() override;

    SFolderListing List(const CStr& path) const override;
    std::vector<CStr> GetRoots() const override { return m_roots; }

    /// Sets what is in a folder. Names that begin with a full stop are hidden.
    void SetFolders(const CStr& path, const std::vector<CStr>& names);
    /// Has a folder answer with an error; every one that was not set does so.
    void SetError(const CStr& path, const CStr& error);
    /// From now on List of a folder does not return before Release.
    void Hang(const CStr& path);
    /// Lets the calls of List go on that wait for a folder, and those to come.
    void Release(const CStr& path);
    /// Waits until so many calls of List have begun in all.
    void WaitForCalls(std::size_t count) const;
    /// How many calls of List have begun.
    std::size_t GetCallCount() const;

private:
    std::vector<CStr> m_roots;
    mutable std::mutex m_mutex; // of what follows
    mutable std::condition_variable m_changed;
    mutable std::size_t m_calls = 0;
    std::map<CStr, SFolderListing> m_listings;
    std::set<CStr> m_hanging;
};

} // namespace CommonUI

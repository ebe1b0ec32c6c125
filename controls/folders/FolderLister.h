#pragma once

#include "../../platform/files/FolderSource.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace CommonUI
{

class CListingInbox;

/// Lists folders on threads of their own, so that a drive that is slow or hangs keeps nobody waiting: not
/// whoever asks, nor other drives, nor the end of the lister. Each drive has up to c_threadsPerDrive threads
/// in the process, whoever asks; what is beyond waits its turn.
class COMMONUI_API CFolderLister
{
public:
    /// How many threads wait for one drive at the same time.
    COMMONUI_CONSTANT int c_threadsPerDrive = 4;

    using TRequest = std::uint64_t; ///< never 0
    /// Receives an answer on the thread of the message loop.
    using FListed = std::function<void(const SFolderListing&)>;

    /// @param source whose folders are listed; not null
    explicit CFolderLister(std::shared_ptr<const CFolderSource> source);
    /// Gives up all that is on its way, without waiting for it.
    ~CFolderLister();
    CFolderLister(const CFolderLister&) = delete;
    CFolderLister& operator=(const CFolderLister&) = delete;

    /// What is asked.
    const CFolderSource& GetSource() const noexcept { return *m_source; }

    /// Asks for the folders in a folder and returns at once. The answer comes in a later message of the loop
    /// of the process, also when the system has no thread left. It may destroy the lister.
    TRequest List(const CStr& path, FListed listed);
    /// Gives a request up: its answer does not come. One that nobody knows is left alone.
    void Cancel(TRequest request);
    /// How many answers are still to come.
    std::size_t GetPending() const;

private:
    std::shared_ptr<const CFolderSource> m_source;
    std::shared_ptr<CListingInbox> m_inbox;
};

} // namespace CommonUI

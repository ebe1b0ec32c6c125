#include "controls/folders/FolderLister.h"

#include "common/StringTable.h"
#include "controls/folders/detail/DriveThreads.h"
#include "platform/MessageLoop.h"

#include <map>
#include <mutex>
#include <system_error>
#include <utility>

namespace CommonUI
{

// What a lister and the threads share. A thread that comes back after its lister is gone finds nobody
// waiting.
class CListingInbox : public std::enable_shared_from_this<CListingInbox>
{
public:
    using TRequest = CFolderLister::TRequest;
    using FListed = CFolderLister::FListed;

    explicit CListingInbox(CMessageLoop& loop)
        : m_loop(loop)
    {
    }

    TRequest Expect(FListed listed)
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.emplace(++m_last, std::move(listed));
        return m_last;
    }
    // Nothing is posted afterwards for the request.
    void Forget(TRequest request)
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.erase(request);
    }
    void ForgetAll()
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.clear();
    }
    bool IsWaitingFor(TRequest request) const
    {
        const std::lock_guard lock(m_mutex);
        return m_waiting.contains(request);
    }
    std::size_t GetCount() const
    {
        const std::lock_guard lock(m_mutex);
        return m_waiting.size();
    }
    // Under the lock, so that the loop is there: it outlives the lister.
    void Deliver(TRequest request, SFolderListing listing)
    {
        const std::lock_guard lock(m_mutex);
        if (!m_waiting.contains(request))
            return;
        m_loop.Post([weak = weak_from_this(), request, listing = std::move(listing)] {
            if (const auto self = weak.lock())
                self->Answer(request, listing);
        });
    }

private:
    void Answer(TRequest request, const SFolderListing& listing)
    {
        std::unique_lock lock(m_mutex);
        auto found = m_waiting.extract(request);
        lock.unlock();
        if (found)
            found.mapped()(listing);
    }

    CMessageLoop& m_loop;
    mutable std::mutex m_mutex; // of what follows
    TRequest m_last = 0;
    std::map<TRequest, FListed> m_waiting;
};

namespace
{

constexpr int c_noThread = 11452;

using CDrive = std::pair<const CFolderSource*, CStr>;

// The same threads for all who ask the same drive: however often a dialog is opened over one that hangs, no
// more threads hang with it. User-interface thread only.
std::shared_ptr<CDriveThreads> GetDriveThreads(const CFolderSource& source, const CStr& path)
{
    static auto& all = *new std::map<CDrive, std::weak_ptr<CDriveThreads>>;
    std::erase_if(all, [](const auto& entry) { return entry.second.expired(); });
    const std::vector<CStr> parts = source.SplitPath(path);
    std::weak_ptr<CDriveThreads>& known = all[{&source, parts.empty() ? CStr() : parts.front()}];
    auto threads = known.lock();
    if (!threads) {
        threads = std::make_shared<CDriveThreads>(CFolderLister::c_threadsPerDrive);
        known = threads;
    }
    return threads;
}

} // namespace

CFolderLister::CFolderLister(std::shared_ptr<const CFolderSource> source)
    : m_source(std::move(source))
    , m_inbox(std::make_shared<CListingInbox>(GetMessageLoop()))
{
}

CFolderLister::~CFolderLister()
{
    m_inbox->ForgetAll();
}

CFolderLister::TRequest CFolderLister::List(const CStr& path, FListed listed)
{
    const TRequest request = m_inbox->Expect(std::move(listed));
    try {
        GetDriveThreads(*m_source, path)->Push([source = m_source, inbox = m_inbox, path, request] {
            if (inbox->IsWaitingFor(request))
                inbox->Deliver(request, source->List(path));
        });
    } catch (const std::system_error&) {
        m_inbox->Deliver(request, {{}, GetString(c_noThread)});
    }
    return request;
}

void CFolderLister::Cancel(TRequest request)
{
    m_inbox->Forget(request);
}

std::size_t CFolderLister::GetPending() const
{
    return m_inbox->GetCount();
}

} // namespace CommonUI

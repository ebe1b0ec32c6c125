#include "platform/WorkerThread.h"

#include "platform/detail/ThreadQueue.h"

#include <utility>

namespace CommonUI
{

namespace
{

CThreadService* s_service = nullptr;

} // namespace

CThreadService::~CThreadService() = default;

bool CThreadService::SetPriority(int)
{
    return false;
}

CThreadService& GetThreadService()
{
    // Never destroyed, for workers that run to the end of the process.
    static CThreadService& defaults = *new CThreadService;
    return s_service ? *s_service : defaults;
}

CThreadService* SetThreadService(CThreadService* service)
{
    return std::exchange(s_service, service);
}

CWorkerThread::CWorkerThread(FEntry entry, int priority)
    : m_entry(std::move(entry))
    , m_priority(priority)
    , m_queue(CreateThreadQueue())
    , m_identifier(CommonUI::GetThreadIdentifier(*m_queue))
{
}

CWorkerThread::~CWorkerThread()
{
    Wait();
}

void CWorkerThread::Start()
{
    m_thread = std::thread([this, &service = GetThreadService()] {
        AdoptThreadQueue(std::move(m_queue));
        service.SetPriority(m_priority);
        m_exitCode = m_entry();
    });
}

unsigned long CWorkerThread::Wait()
{
    if (m_thread.joinable())
        m_thread.join();
    return m_exitCode;
}

} // namespace CommonUI

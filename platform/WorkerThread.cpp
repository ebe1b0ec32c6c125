#include "platform/WorkerThread.h"

#include "platform/detail/ThreadQueue.h"
#include "platform/ThreadService.h"

#include <utility>

namespace CommonUI
{

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

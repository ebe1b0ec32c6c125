#include "dialogs/detail/ProgressInbox.h"

#include <utility>

namespace CommonUI
{

CProgressInbox::CProgressInbox(FWake wake)
    : m_wake(std::move(wake))
{
}

void CProgressInbox::PutReport(bool hasText)
{
    ++m_steps;
    if (hasText)
        m_hasText = true;
    Wake();
}

void CProgressInbox::PutEnd(std::exception_ptr exception)
{
    m_exception = std::move(exception);
    m_isDone = true;
    Wake();
}

bool CProgressInbox::TakeStep()
{
    if (m_isClosed || m_steps == 0)
        return false;
    if (--m_steps != 0 || m_hasText || m_isDone)
        Wake();
    return true;
}

bool CProgressInbox::TakeText()
{
    return !m_isClosed && m_hasText.exchange(false);
}

std::exception_ptr CProgressInbox::TakeException()
{
    return std::exchange(m_exception, nullptr);
}

void CProgressInbox::Wake()
{
    // A message waits nearly always, and a look is cheaper than the exchange.
    if (m_isWaking || m_isWaking.exchange(true))
        return;
    m_loop.Post([inbox = shared_from_this()] {
        // First, so that what is put in while the rest is taken wakes again.
        inbox->m_isWaking = false;
        if (!inbox->m_isClosed)
            inbox->m_wake();
    });
}

} // namespace CommonUI

#include "dialogs/detail/ProgressInbox.h"

#include "dialogs/ProgressThreadDialog.h"

#include <algorithm>
#include <mutex>

namespace CommonUI
{

namespace
{

std::atomic<float> s_increment = 0.0F;
std::mutex s_textMutex;

// Never destroyed: workers of dialogs that are static objects may still report.
CStr& LatestText()
{
    static CStr& text = *new CStr;
    return text;
}

} // namespace

float GetLatestIncrement()
{
    return s_increment.load(std::memory_order_relaxed);
}

CStr GetLatestText()
{
    const std::lock_guard lock(s_textMutex);
    return LatestText();
}

void SetLatestReport(float increment, const CStr& text)
{
    s_increment.store(increment, std::memory_order_relaxed);
    if (text.IsEmpty())
        return;
    const std::lock_guard lock(s_textMutex);
    LatestText() = text;
}

void CProgressInbox::PostStep()
{
    ++m_steps;
    if (!m_stepWaits.exchange(true))
        Post(CProgressThreadDialog::c_stepMessage);
}

void CProgressInbox::PostNewText()
{
    if (!m_textWaits.exchange(true))
        Post(CProgressThreadDialog::c_newTextMessage);
}

void CProgressInbox::PostClose(std::exception_ptr exception)
{
    m_exception = std::move(exception);
    m_isDone = true;
    if (m_isOpen)
        Post(CProgressThreadDialog::c_closeMessage);
}

void CProgressInbox::DelayClose()
{
    Post(CProgressThreadDialog::c_closeMessage);
}

std::uint64_t CProgressInbox::TakeSteps(std::uint64_t most)
{
    // In this order: a step that is counted after the sum has been read posts a message of its own.
    m_stepWaits = false;
    const std::uint64_t waiting = m_steps;
    const std::uint64_t taken = std::min(waiting, most);
    m_steps -= taken;
    if (taken < waiting && !m_stepWaits.exchange(true))
        Post(CProgressThreadDialog::c_stepMessage);
    return taken;
}

void CProgressInbox::Detach()
{
    m_isOpen = false;
    m_dialog = nullptr;
}

void CProgressInbox::Post(unsigned int message)
{
    m_loop.Post([inbox = shared_from_this(), message] {
        if (inbox->m_dialog)
            inbox->m_dialog->OnMessage(message);
    });
}

} // namespace CommonUI

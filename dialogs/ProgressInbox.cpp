#include "dialogs/detail/ProgressInbox.h"

#include "dialogs/ProgressThreadDialog.h"

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
    const std::lock_guard lock(s_textMutex);
    LatestText() = text;
}

void CProgressInbox::PostStep()
{
    ++m_steps;
    PostSteps();
}

void CProgressInbox::PostSteps()
{
    if (m_steps != 0 && !m_stepWaits.exchange(true))
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

bool CProgressInbox::TakeStep()
{
    if (!m_dialog || m_steps == 0)
        return false;
    --m_steps;
    PostSteps();
    return true;
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

#include "dialogs/ProgressThreadDialog.h"

#include "platform/MessageLoop.h"

#include <cmath>
#include <exception>
#include <mutex>
#include <utility>

namespace CommonUI
{

/// What the two threads share.
struct CProgressThreadDialog::SShared {
    explicit SShared(CProgressThreadDialog* owner)
        : dialog(owner)
        , loop(GetMessageLoop())
    {
    }

    CProgressThreadDialog* dialog; ///< of the user interface alone; null when it is gone
    bool closed = false;           ///< of the user interface alone
    CMessageLoop& loop;
    CCancelQueue queue;
    std::exception_ptr error; ///< of the worker until it has ended

    std::mutex mutex;      ///< guards what follows
    double progress = 0;   ///< reported and not shown yet
    bool onItsWay = false; ///< a message that will show it
    CStr text;
};

CProgressThreadDialog::CProgressThreadDialog(const CStr& caption, const CStr& text)
    : CProgressDialog(caption, text)
{
}

CProgressThreadDialog::~CProgressThreadDialog()
{
    if (!m_shared)
        return;
    m_shared->dialog = nullptr;
    m_shared->closed = true;
    if (IsWorking()) {
        CCancelQueue::Post(m_shared->queue.GetIdentifier());
        m_thread.join();
    }
}

int CProgressThreadDialog::DoModal()
{
    if (!RunThread())
        return 0;
    const CWatch watch(*this);
    const auto shared = m_shared;
    shared->loop.RunUntil([&shared] { return shared->closed; });
    if (watch.IsGone())
        return 0;
    if (shared->error)
        std::rethrow_exception(shared->error);
    return 1;
}

bool CProgressThreadDialog::RunThread()
{
    const auto work = m_work.Share<void>();
    if (!work || IsWorking())
        return false;
    const auto shared = m_shared = std::make_shared<SShared>(this);
    SetNotifyThread(shared->queue.GetIdentifier());
    Open();
    m_thread = std::thread([shared, work] { Work(shared, *work); });
    return true;
}

void CProgressThreadDialog::Work(const std::shared_ptr<SShared>& shared, CClosureBase0<void>& work)
{
    try {
        work.Invoke();
    } catch (...) {
        shared->error = std::current_exception();
    }
    shared->loop.Post([shared] {
        if (shared->dialog)
            shared->dialog->End();
    });
}

void CProgressThreadDialog::End()
{
    m_thread.join();
    m_shared->closed = true;
    Close();
}

int CProgressThreadDialog::PostThreadProgress(float increment, const CStr& text)
{
    const std::shared_ptr<SShared>& shared = m_shared;
    if (shared->queue.Take())
        return 1;
    bool first = false;
    {
        const std::lock_guard lock(shared->mutex);
        first = !std::exchange(shared->onItsWay, true);
        if (std::isfinite(increment))
            shared->progress += increment;
        if (!text.IsEmpty())
            shared->text = text;
    }
    if (first)
        shared->loop.Post([shared] { Show(*shared); });
    return 0;
}

/// Shows what was reported since the last time.
void CProgressThreadDialog::Show(SShared& shared)
{
    if (!shared.dialog)
        return;
    std::unique_lock lock(shared.mutex);
    shared.onItsWay = false;
    const double progress = std::exchange(shared.progress, 0);
    const CStr text = std::exchange(shared.text, CStr());
    lock.unlock();
    if (!text.IsEmpty())
        shared.dialog->SetText(text);
    shared.dialog->AddProgress(progress);
}

} // namespace CommonUI

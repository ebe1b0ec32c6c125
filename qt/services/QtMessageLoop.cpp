#include "qt/services/QtMessageLoop.h"

#include "qt/detail/EventGuard.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>
#include <QTimerEvent>

#include <deque>
#include <mutex>
#include <utility>

namespace CommonUI
{

namespace
{

// A loop that ends when a condition holds or a callback throws.
class CConditionLoop final : public CEventGuard
{
public:
    explicit CConditionLoop(const CMessageLoop::FCondition& isDone)
        : m_isDone(isDone)
    {
    }

    bool Run()
    {
        // Events that are none of the library's may make the condition true as well.
        auto* const dispatcher = QAbstractEventDispatcher::instance();
        QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &m_loop, [this] { Ask(); });
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &m_loop, [this] { Ask(); });
        if (m_isDone())
            return true;
        m_loop.exec();
        if (m_exception)
            std::rethrow_exception(m_exception);
        return m_ended;
    }

    void OnHandled(std::exception_ptr exception) override
    {
        if (exception && !m_exception)
            m_exception = std::move(exception);
        Ask();
    }

private:
    void Ask()
    {
        // The condition may handle events itself.
        if (!m_loop.isRunning() || std::exchange(m_asking, true))
            return;
        try {
            m_ended = m_exception || m_isDone();
        } catch (...) {
            m_exception = std::current_exception();
            m_ended = true;
        }
        m_asking = false;
        if (m_ended)
            m_loop.exit();
    }

    const CMessageLoop::FCondition& m_isDone;
    QEventLoop m_loop;
    std::exception_ptr m_exception;
    bool m_asking = false;
    bool m_ended = false;
};

// Keeps the first exception of what it lets happen.
class CPumpGuard final : public CEventGuard
{
public:
    void OnHandled(std::exception_ptr exception) override
    {
        if (exception && !m_exception)
            m_exception = std::move(exception);
    }
    bool HasFailed() const noexcept { return m_exception != nullptr; }
    void Rethrow() const
    {
        if (m_exception)
            std::rethrow_exception(m_exception);
    }

private:
    std::exception_ptr m_exception;
};

} // namespace

// One message for each wake-up, so that Qt has its turn in between. A wake-up from within a message is a
// timer: Qt handles posted events before anything else, also those posted meanwhile.
class CQtMessageLoop::CQueue final : public QObject
{
public:
    void Post(FMessage message)
    {
        const std::lock_guard lock(m_mutex);
        m_messages.push_back(std::move(message));
        if (!std::exchange(m_waking, true))
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

    std::size_t GetCount() const
    {
        const std::lock_guard lock(m_mutex);
        return m_messages.size();
    }
    std::size_t GetHandled() const noexcept { return m_handled; }

    bool HandleOne()
    {
        FMessage message;
        {
            const std::lock_guard lock(m_mutex);
            if (m_messages.empty())
                return false;
            message = std::move(m_messages.front());
            m_messages.pop_front();
        }
        ++m_handled;
        Guarded(message);
        return true;
    }

protected:
    bool event(QEvent* event) override
    {
        const bool wakes = event->type() == QEvent::User || event->type() == QEvent::Timer;
        if (!wakes)
            return QObject::event(event);
        if (event->type() == QEvent::Timer)
            killTimer(static_cast<QTimerEvent*>(event)->timerId());
        ScheduleNext();
        HandleOne();
        return true;
    }

private:
    // Before a message is handled, which may run a loop of its own.
    void ScheduleNext()
    {
        const std::lock_guard lock(m_mutex);
        m_waking = !m_messages.empty();
        if (m_waking)
            startTimer(0);
    }

    mutable std::mutex m_mutex; // of the messages and whether a wake-up is on its way
    std::deque<FMessage> m_messages;
    bool m_waking = false;
    std::size_t m_handled = 0;
};

CQtMessageLoop::CQtMessageLoop()
    : m_queue(std::make_unique<CQueue>())
{
}

CQtMessageLoop::~CQtMessageLoop() = default;

void CQtMessageLoop::Post(FMessage message)
{
    m_queue->Post(std::move(message));
}

bool CQtMessageLoop::RunUntil(const FCondition& isDone)
{
    return CConditionLoop(isDone).Run();
}

std::size_t CQtMessageLoop::Pump()
{
    CPumpGuard guard;
    const std::size_t before = m_queue->GetHandled();
    for (std::size_t count = m_queue->GetCount(); count > 0 && !guard.HasFailed(); --count)
        m_queue->HandleOne();
    if (!guard.HasFailed())
        QCoreApplication::processEvents();
    guard.Rethrow();
    return m_queue->GetHandled() - before;
}

} // namespace CommonUI

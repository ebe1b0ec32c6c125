#include "qt/QtMessageLoop.h"

#include "qt/detail/EventGuard.h"

#include <QAbstractEventDispatcher>
#include <QEventLoop>

#include <utility>

namespace CommonUI
{

namespace
{

/// A loop that ends when a condition holds or a callback throws.
class CConditionLoop final : public CEventGuard
{
public:
    explicit CConditionLoop(const std::function<bool()>& done)
        : m_done(done)
    {
    }

    void Run()
    {
        // Events that are none of the library's may make the condition true as well.
        auto* const dispatcher = QAbstractEventDispatcher::instance();
        QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &m_loop, [this] { Ask(); });
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &m_loop, [this] { Ask(); });
        while (!m_exception && !m_done())
            m_loop.exec();
        if (m_exception)
            std::rethrow_exception(m_exception);
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
            if (m_exception || m_done())
                m_loop.exit();
        } catch (...) {
            m_exception = std::current_exception();
            m_loop.exit();
        }
        m_asking = false;
    }

    const std::function<bool()>& m_done;
    QEventLoop m_loop;
    std::exception_ptr m_exception;
    bool m_asking = false;
};

} // namespace

CQtMessageLoop::~CQtMessageLoop() = default;

void CQtMessageLoop::Post(CMessage message)
{
    QMetaObject::invokeMethod(
        &m_receiver, [message = std::move(message)] { Guarded(message); }, Qt::QueuedConnection);
}

void CQtMessageLoop::RunUntil(const std::function<bool()>& done)
{
    CConditionLoop(done).Run();
}

} // namespace CommonUI

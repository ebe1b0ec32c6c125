#include "windows/services/WinMessageLoop.h"

#include "windows/detail/CallGuard.h"
#include "windows/detail/MessageWindow.h"

#include <deque>
#include <mutex>
#include <system_error>
#include <utility>

namespace CommonUI
{

namespace
{

// A number that no other window uses, as the messages below and above it are handled without it.
UINT GetWakeUp()
{
    static const UINT number = RegisterWindowMessageW(L"CommonUIWakeUp");
    return number;
}

// Has the loops around this one end, too.
void PassOn(const MSG& quit)
{
    PostQuitMessage(static_cast<int>(quit.wParam));
}

bool DoesInputWait()
{
    return HIWORD(GetQueueStatus(QS_INPUT | QS_PAINT)) != 0;
}

bool DoTicksWait()
{
    return HIWORD(GetQueueStatus(QS_TIMER)) != 0;
}

// Those of all timers of the thread that are due, a few at a time: a tick may be due again before it ends.
void MakeTicks()
{
    constexpr int c_most = 16;
    MSG tick;
    for (int i = 0; i < c_most && PeekMessageW(&tick, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE); ++i) {
        if (tick.message == WM_QUIT) // which comes whatever is asked for
            return PassOn(tick);
        DispatchMessageW(&tick);
    }
}

} // namespace

// One message for each wake-up, so that Windows has its turn in between. There is one wake-up on its way at
// most: a message to the window or, where input waits, a timer, as the system hands out posted messages
// before input.
class CWinMessageLoop::CQueue final : public CMessageWindow
{
public:
    void Post(FMessage message)
    {
        const std::lock_guard lock(m_mutex);
        m_messages.push_back(std::move(message));
        WakeUp();
    }
    bool HandleOne()
    {
        FMessage message;
        {
            const std::lock_guard lock(m_mutex);
            if (m_messages.empty())
                return false;
            message = std::move(m_messages.front());
            m_messages.pop_front();
            WakeUp(); // before the message, which may run a loop of its own
        }
        ++m_handled;
        GuardedCall(message);
        return true;
    }
    // From a timer, which Pump would handle, to a message, which it leaves.
    void KeepWakeUp()
    {
        const std::lock_guard lock(m_mutex);
        if (KillTimer(GetHandle(), c_turn))
            m_isAwaited = SendWakeUp();
    }

    std::size_t GetCount() const
    {
        const std::lock_guard lock(m_mutex);
        return m_messages.size();
    }
    std::size_t GetHandled() const noexcept { return m_handled; }

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override
    {
        if (message == GetWakeUp() && wide == c_byTimer)
            OnWakeUpByTimer();
        else if (message == GetWakeUp())
            OnWakeUp();
        else if (message == WM_TIMER && wide == c_turn)
            OnTurn();
        else
            return CMessageWindow::OnMessage(message, wide, longer);
        return 0;
    }

private:
    static constexpr UINT_PTR c_turn = 1;
    static constexpr WPARAM c_byTimer = 1;

    // Under the lock.
    void WakeUp()
    {
        if (!m_messages.empty() && !m_isAwaited)
            m_isAwaited = SendWakeUp();
    }
    // Under the lock. A thread whose queue is full takes no posted message: a timer comes then, which only
    // the thread of the window can set.
    bool SendWakeUp()
    {
        if (PostMessageW(GetHandle(), GetWakeUp(), 0, 0))
            return true;
        if (GetWindowThreadProcessId(GetHandle(), nullptr) != GetCurrentThreadId())
            return SendNotifyMessageW(GetHandle(), GetWakeUp(), c_byTimer, 0) != 0;
        return SetTurn();
    }
    bool SetTurn() { return SetTimer(GetHandle(), c_turn, USER_TIMER_MINIMUM, nullptr) != 0; }
    void OnWakeUpByTimer()
    {
        if (SetTurn())
            return;
        const std::lock_guard lock(m_mutex);
        m_isAwaited = false; // the next message tries again
    }
    void OnWakeUp()
    {
        if (!DoesInputWait() || !SetTurn())
            HandleBehindTicks();
    }
    void OnTurn()
    {
        KillTimer(GetHandle(), c_turn);
        HandleBehindTicks();
    }
    void HandleBehindTicks()
    {
        const bool ticksWait = DoTicksWait();
        {
            const std::lock_guard lock(m_mutex);
            m_isAwaited = false;
            if (ticksWait) // of which one may run a loop that waits for a message
                WakeUp();
        }
        const std::weak_ptr<void> life = m_life;
        if (ticksWait)
            MakeTicks();
        if (!life.expired()) // a tick may end the application, and the loop with it
            HandleOne();
    }

    mutable std::mutex m_mutex; // of the messages and whether a wake-up is on its way
    std::deque<FMessage> m_messages;
    bool m_isAwaited = false;
    std::size_t m_handled = 0;
    std::shared_ptr<void> m_life = std::make_shared<char>();
};

CWinMessageLoop::CWinMessageLoop()
    : m_queue(std::make_unique<CQueue>())
{
}

CWinMessageLoop::~CWinMessageLoop() = default;

void CWinMessageLoop::Post(FMessage message)
{
    m_queue->Post(std::move(message));
}

bool CWinMessageLoop::RunUntil(const FCondition& isDone)
{
    CCallGuard guard;
    while (!isDone()) {
        MSG message;
        const int got = GetMessageW(&message, nullptr, 0, 0);
        if (got < 0) // and there is no message
            throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                                    "a message of Windows");
        if (got == 0) {
            PassOn(message);
            return false;
        }
        Dispatch(message);
        guard.Rethrow();
    }
    return true;
}

std::size_t CWinMessageLoop::Pump()
{
    constexpr ULONGLONG c_longest = 50;
    CCallGuard guard;
    const std::size_t before = m_queue->GetHandled();
    m_queue->KeepWakeUp();
    for (std::size_t count = m_queue->GetCount(); count > 0 && !guard.HasFailed(); --count)
        m_queue->HandleOne();
    const ULONGLONG start = GetTickCount64();
    MSG message;
    const auto take = [&message](UINT first, UINT last) {
        return PeekMessageW(&message, nullptr, first, last, PM_REMOVE) != 0;
    };
    while (!guard.HasFailed() && (take(0, GetWakeUp() - 1) || take(GetWakeUp() + 1, 0xFFFF))) {
        if (message.message == WM_QUIT) {
            PassOn(message);
            break;
        }
        Dispatch(message);
        if (GetTickCount64() - start > c_longest)
            break;
    }
    guard.Rethrow();
    return m_queue->GetHandled() - before;
}

void CWinMessageLoop::SetFilter(FFilter filter)
{
    m_filter = std::move(filter);
}

void CWinMessageLoop::Dispatch(tagMSG& message)
{
    if ((m_filter && m_filter(message)) || CControlWindow::TakeDialogKey(message))
        return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

} // namespace CommonUI

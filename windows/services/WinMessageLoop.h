#pragma once

#include "../../export/Export.h"
#include "../../platform/MessageLoop.h"

#include <memory>

struct tagMSG;

namespace CommonUI
{

/// The messages of the library, handled by whatever loop of Windows runs on the thread that makes the object:
/// the application's own, that of RunUntil, or one of the system's, as of a message box, a menu, or a window
/// that is moved. Messages that wait when the object goes are not handled. A message or a tick may end the
/// object unless it runs in its own RunUntil or Pump.
///
/// Windows hands out what is posted before keys, the mouse, painting and timers. A message of the library
/// lets those go first that wait by then.
///
/// Exceptions do not pass through the system. One of a message, a tick or another callback of the library
/// reaches the innermost RunUntil or Pump, which throws it on as soon as the system returns to it: when a box
/// was open, after that. Without either it becomes an error in the diagnostics.
class COMMONUIWIN_API CWinMessageLoop : public CMessageLoop
{
public:
    /// Looks at a message of Windows before it is dispatched, for accelerators and for dialogs without a loop
    /// of their own. @return whether it has been handled and goes nowhere else
    using FFilter = std::function<bool(tagMSG&)>;

    /// Throws std::system_error where the system has no window left for it.
    CWinMessageLoop();
    ~CWinMessageLoop() override;

    void Post(FMessage message) override;
    /// Throws std::system_error where the system fails to give messages.
    /// @return false if WM_QUIT ended the loop; the loops around it get that message, too
    bool RunUntil(const FCondition& isDone) override;
    /// What Windows has waiting is handled for a twentieth of a second at most: ticks that take longer than
    /// their intervals would keep it for ever.
    std::size_t Pump() override;

    /// Sets the filter of RunUntil and Pump, in place of the one before. Keys for dialogs of the library need
    /// none there; another loop calls IsDialogMessage with the windows of those that are open.
    void SetFilter(FFilter filter);

private:
    class CQueue;

    void Dispatch(tagMSG& message);

    std::unique_ptr<CQueue> m_queue;
    FFilter m_filter;
};

} // namespace CommonUI

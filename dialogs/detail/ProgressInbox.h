#pragma once

#include "common/Str.h"
#include "platform/MessageLoop.h"

#include <atomic>
#include <cstdint>
#include <exception>
#include <memory>
#include <utility>

namespace CommonUI
{

class CProgressThreadDialog;

/// What a progress dialog and its worker share: the way of the worker's messages to the dialog. Messages hold
/// it, so that one that arrives late finds out that the dialog is gone.
class CProgressInbox : public std::enable_shared_from_this<CProgressInbox>
{
public:
    /// @param isOpen whether the dialog has a window that messages can close
    CProgressInbox(CProgressThreadDialog& dialog, bool isOpen)
        : m_dialog(&dialog)
        , m_isOpen(isOpen)
    {
    }

    /// Worker: posts the message for a step, unless one waits, and counts the step.
    void PostStep();
    /// Worker: posts the message for the text, unless one waits.
    void PostNewText();
    /// Worker: the work is done. Posts the message that closes the dialog, if it is open.
    /// @param exception what the work threw, or null
    void PostClose(std::exception_ptr exception);

    /// Dialog: the message for steps has come; the next one may be posted.
    void AcceptSteps() { m_stepWaits = false; }
    /// Dialog: takes one of the steps that were counted; if that leaves some, a message for them waits from
    /// then on. @return false if there is none, or no dialog
    bool TakeStep();
    bool HasSteps() const { return m_steps != 0; }
    /// Dialog: has the message that closes it come again, behind those that wait.
    void DelayClose();
    bool IsDone() const { return m_isDone; }
    void AcceptNewText() { m_textWaits = false; }
    /// Dialog: no message shall reach it any more.
    void Detach();
    /// What the work threw, once. For who has waited for the worker.
    std::exception_ptr TakeException() { return std::exchange(m_exception, nullptr); }

private:
    void PostSteps();
    void Post(unsigned int message);

    CMessageLoop& m_loop = GetMessageLoop();
    CProgressThreadDialog* m_dialog; ///< for the user-interface thread only
    std::atomic<bool> m_isOpen;
    std::atomic<bool> m_isDone = false;
    std::atomic<std::uint64_t> m_steps = 0; ///< reported and not made yet
    std::atomic<bool> m_stepWaits = false;  ///< whether the loop has a message for them
    std::atomic<bool> m_textWaits = false;
    std::exception_ptr m_exception;
};

/// The increment of the last report in the process.
float GetLatestIncrement();
/// The text of the last report in the process that had one.
CStr GetLatestText();
/// @param text if empty, the text stays
void SetLatestReport(float increment, const CStr& text);

} // namespace CommonUI

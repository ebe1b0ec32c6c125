#pragma once

#include "../../export/Export.h"
#include "../../platform/MessageLoop.h"

#include <memory>

namespace CommonUI
{

/// The messages of the library, handled by whatever loop of Qt runs on the user-interface thread, and nested
/// loops that handle everything else as well. Between two messages Qt has its turn with input, timers and
/// painting. Messages that wait when the loop is destroyed are not handled.
///
/// An exception of a message that neither RunUntil nor Pump waits for becomes an error in the diagnostics, as
/// it must not pass through Qt. So does one of a timer or a control.
class COMMONUIQT_API CQtMessageLoop : public CMessageLoop
{
public:
    CQtMessageLoop();
    ~CQtMessageLoop() override;

    void Post(FMessage message) override;
    /// @return false if QCoreApplication::exit ended the loop; quit asks the windows first, and waits for a
    ///     progress dialog, which it cancels
    bool RunUntil(const FCondition& isDone) override;
    std::size_t Pump() override;

private:
    class CQueue;

    std::unique_ptr<CQueue> m_queue;
};

} // namespace CommonUI

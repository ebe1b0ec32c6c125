#pragma once

#include "../platform/MessageLoop.h"
#include "Export.h"

#include <QObject>

namespace CommonUI
{

/// Messages that are events of Qt, handled by whatever loop of Qt runs on the user-interface thread, and
/// nested loops that handle everything else as well. Messages that wait when the loop is destroyed are not
/// handled.
///
/// An exception of a message that no RunUntil waits for becomes an error in the diagnostics, as it must not
/// pass through Qt. So does one of a timer or a control.
class COMMONUIQT_API CQtMessageLoop : public CMessageLoop
{
public:
    ~CQtMessageLoop() override;

    void Post(CMessage message) override;
    void RunUntil(const std::function<bool()>& done) override;

private:
    QObject m_receiver;
};

} // namespace CommonUI

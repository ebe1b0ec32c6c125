#pragma once

#include "../../export/Export.h"
#include "../../platform/TimerService.h"

#include <QObject>

#include <map>

namespace CommonUI
{

/// Timers that tick from Qt's event loop, as punctual as the system can make them. An interval of 0 counts as
/// one millisecond, so that timers leave time for input.
class COMMONUIQT_API CQtTimerService : public QObject, public CTimerService
{
public:
    ~CQtTimerService() override;

    TIdentifier Create(unsigned int interval, FProcedure procedure) override;
    bool Kill(TIdentifier identifier) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    std::map<int, FProcedure> m_procedures; // by Qt's number of the timer
};

} // namespace CommonUI

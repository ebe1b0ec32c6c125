#pragma once

#include "../../export/Export.h"
#include "../../platform/TimerService.h"

#include <memory>

namespace CommonUI
{

/// Timers of the system (`SetTimer`). They tick from whatever loop of Windows runs on the thread, also that
/// of a message box, a menu, or a window that is moved. An interval below the system's shortest, 10
/// milliseconds, counts as that one; the system rounds others to its clock, which may advance by 16.
class COMMONUIWIN_API CWinTimerService : public CTimerService
{
public:
    /// Throws std::system_error where the system has no window left for them.
    CWinTimerService();
    ~CWinTimerService() override;

    TIdentifier Create(unsigned int interval, FProcedure procedure) override;
    bool Kill(TIdentifier identifier) override;

private:
    class CTicker;

    std::unique_ptr<CTicker> m_ticker;
};

} // namespace CommonUI

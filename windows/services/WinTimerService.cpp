#include "windows/services/WinTimerService.h"

#include "windows/detail/CallGuard.h"
#include "windows/detail/MessageWindow.h"

#include <algorithm>
#include <map>

namespace CommonUI
{

class CWinTimerService::CTicker final : public CMessageWindow
{
public:
    TIdentifier Create(unsigned int interval, FProcedure procedure)
    {
        do
            ++m_last;
        while (m_last == 0 || m_procedures.contains(m_last));
        const UINT time = std::clamp<UINT>(interval, USER_TIMER_MINIMUM, USER_TIMER_MAXIMUM);
        if (SetTimer(GetHandle(), m_last, time, nullptr) == 0)
            return 0;
        m_procedures[m_last] = procedure;
        return m_last;
    }
    bool Kill(TIdentifier identifier)
    {
        if (m_procedures.erase(identifier) == 0)
            return false;
        KillTimer(GetHandle(), identifier);
        return true;
    }

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override
    {
        if (message != WM_TIMER)
            return CMessageWindow::OnMessage(message, wide, longer);
        // A tick that was on its way when its timer was killed finds none: numbers are not given twice.
        if (const auto found = m_procedures.find(wide); found != m_procedures.end())
            GuardedCall([wide, procedure = found->second] { procedure(wide); });
        return 0;
    }

private:
    TIdentifier m_last = 0;
    std::map<TIdentifier, FProcedure> m_procedures;
};

CWinTimerService::CWinTimerService()
    : m_ticker(std::make_unique<CTicker>())
{
}

CWinTimerService::~CWinTimerService() = default;

CTimerService::TIdentifier CWinTimerService::Create(unsigned int interval, FProcedure procedure)
{
    return m_ticker->Create(interval, procedure);
}

bool CWinTimerService::Kill(TIdentifier identifier)
{
    return m_ticker->Kill(identifier);
}

} // namespace CommonUI

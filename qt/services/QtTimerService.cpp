#include "qt/services/QtTimerService.h"

#include "qt/detail/EventGuard.h"

#include <QTimerEvent>

#include <algorithm>
#include <limits>

namespace CommonUI
{

CQtTimerService::~CQtTimerService() = default;

CTimerService::TIdentifier CQtTimerService::Create(unsigned int interval, FProcedure procedure)
{
    constexpr unsigned int c_longest = std::numeric_limits<int>::max();
    const int milliseconds = static_cast<int>(std::clamp(interval, 1U, c_longest));
    const int number = startTimer(milliseconds, Qt::PreciseTimer);
    if (number != 0)
        m_procedures[number] = procedure;
    return static_cast<TIdentifier>(number);
}

bool CQtTimerService::Kill(TIdentifier identifier)
{
    const auto found =
        std::find_if(m_procedures.begin(), m_procedures.end(), [identifier](const auto& timer) {
            return static_cast<TIdentifier>(timer.first) == identifier;
        });
    if (found == m_procedures.end())
        return false;
    killTimer(found->first);
    m_procedures.erase(found);
    return true;
}

void CQtTimerService::timerEvent(QTimerEvent* event)
{
    const auto found = m_procedures.find(event->timerId());
    if (found == m_procedures.end())
        return;
    const auto [number, procedure] = *found;
    Guarded([number = number, procedure = procedure] { procedure(static_cast<TIdentifier>(number)); });
}

} // namespace CommonUI

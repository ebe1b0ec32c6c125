#include "dialogs/ProgressCtrl.h"

#include <algorithm>
#include <cmath>

namespace CommonUI
{

void CProgressCtrl::SetRange(int minimum, int maximum) noexcept
{
    m_minimum = minimum;
    m_maximum = std::max(minimum, maximum);
    m_position = std::clamp(m_position, m_minimum, m_maximum);
}

void CProgressCtrl::Step(double increment) noexcept
{
    if (!std::isfinite(m_progress + increment))
        return;
    m_progress += increment;
    const double reached = std::trunc(m_progress);
    if (reached <= m_position)
        return;
    if (reached <= m_maximum) {
        m_position = static_cast<int>(reached);
    } else if (m_wrap) {
        // The minimum comes one after the maximum.
        const double length = static_cast<double>(m_maximum) - m_minimum + 1;
        m_position = static_cast<int>(m_minimum + std::fmod(reached - m_minimum, length));
    }
}

} // namespace CommonUI

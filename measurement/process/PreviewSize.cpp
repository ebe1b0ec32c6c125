#include "measurement/process/PreviewSize.h"

namespace CommonUI::Measurement
{

// Twice the points along a side take four times as long, or little more; one that takes too long goes down at
// once, one that is quick goes up where it would be well within the time then.
void CPreviewSize::AddTime(double seconds) noexcept
{
    constexpr double c_growth = 6;
    if (!(seconds <= m_target))
        m_size = m_size > c_smallest ? m_size / 2 : c_smallest;
    else if (seconds * c_growth <= m_target && m_size < c_largest)
        m_size *= 2;
}

} // namespace CommonUI::Measurement

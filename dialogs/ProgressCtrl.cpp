#include "dialogs/ProgressCtrl.h"

#include <algorithm>

namespace CommonUI
{

CProgressBarView::~CProgressBarView() = default;

void CProgressCtrl::SetView(CProgressBarView* view)
{
    m_view = view;
    SetRange(m_minimum, m_maximum);
}

void CProgressCtrl::SetRange(int minimum, int maximum)
{
    m_minimum = minimum;
    m_maximum = std::max(minimum, maximum);
    if (m_view)
        m_view->SetBarRange(m_minimum, m_maximum);
    SetPos(m_position);
}

void CProgressCtrl::SetPos(int position)
{
    m_position = std::clamp(position, m_minimum, m_maximum);
    if (m_view)
        m_view->SetBarPosition(m_position);
}

void CProgressCtrl::StepIt()
{
    const long long next = static_cast<long long>(m_position) + m_step;
    SetPos(next > m_maximum ? m_minimum : static_cast<int>(std::max<long long>(next, m_minimum)));
}

} // namespace CommonUI

#include "controls/WheelSteps.h"

namespace CommonUI
{

std::optional<int> CWheelSteps::Turn(int delta, bool control)
{
    if (!control)
        return std::nullopt;
    const long long turned = static_cast<long long>(m_rest) + delta;
    m_rest = static_cast<int>(turned % c_notch);
    return static_cast<int>(turned / c_notch);
}

} // namespace CommonUI

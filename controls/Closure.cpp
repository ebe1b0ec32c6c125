#include "controls/Closure.h"

#include "controls/MultiClosure.h"

namespace CommonUI
{

void CCallbackSlot::Reset() noexcept
{
    Disconnect();
    m_closure.reset();
}

void CCallbackSlot::Disconnect() noexcept
{
    if (m_connection)
        m_connection->m_list = nullptr;
    m_connection = nullptr;
}

} // namespace CommonUI

#include "platform/memory/MemoryHelpService.h"

namespace CommonUI
{

bool CMemoryHelpService::Open(unsigned int topic)
{
    m_opened.push_back(topic);
    return true;
}

} // namespace CommonUI

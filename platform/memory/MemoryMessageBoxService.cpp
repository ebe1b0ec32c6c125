#include "platform/memory/MemoryMessageBoxService.h"

namespace CommonUI
{

EMessageBoxAnswer CMemoryMessageBoxService::Show(const SMessageBox& box)
{
    const EMessageBoxAnswer cautious = GetSilentMessageBoxService().Show(box);
    m_shown.push_back(box);
    if (m_answers.empty())
        return cautious;
    const EMessageBoxAnswer answer = m_answers.front();
    m_answers.erase(m_answers.begin());
    return answer;
}

} // namespace CommonUI

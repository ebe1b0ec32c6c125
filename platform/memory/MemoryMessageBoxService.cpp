#include "platform/memory/MemoryMessageBoxService.h"

namespace CommonUI
{

EMessageBoxAnswer CMemoryMessageBoxService::Show(const SMessageBox& box)
{
    m_checkText.Clear();
    const EMessageBoxAnswer cautious = GetSilentMessageBoxService().Show(box);
    m_shown.push_back(box);
    if (m_answers.empty())
        return cautious;
    const EMessageBoxAnswer answer = m_answers.front();
    m_answers.erase(m_answers.begin());
    return answer;
}

EMessageBoxAnswer CMemoryMessageBoxService::ShowWithCheck(const SMessageBox& box, const CStr& checkText,
                                                          bool& isChecked)
{
    const EMessageBoxAnswer answer = Show(box);
    m_checkText = checkText;
    isChecked = m_isChecking;
    return answer;
}

} // namespace CommonUI

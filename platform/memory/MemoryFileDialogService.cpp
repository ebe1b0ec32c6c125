#include "platform/memory/MemoryFileDialogService.h"

namespace CommonUI
{

bool CMemoryFileDialogService::Show(const SFileDialog& dialog, CStr& path)
{
    m_shown.push_back(dialog);
    if (m_answers.empty())
        return false;
    path = m_answers.front();
    m_answers.erase(m_answers.begin());
    return !path.IsEmpty();
}

} // namespace CommonUI

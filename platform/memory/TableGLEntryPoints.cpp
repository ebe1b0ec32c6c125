#include "platform/memory/TableGLEntryPoints.h"

namespace CommonUI
{

CGLEntryPoints::FProcedure CTableGLEntryPoints::GetProcedure(const char* name)
{
    const auto found = m_procedures.find(std::string_view(name));
    return found == m_procedures.end() ? nullptr : found->second;
}

void CTableGLEntryPoints::Remove(std::string_view name)
{
    if (const auto found = m_procedures.find(name); found != m_procedures.end())
        m_procedures.erase(found);
}

} // namespace CommonUI

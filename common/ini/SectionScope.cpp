#include "common/ini/SectionScope.h"

#include <new>

namespace CommonUI
{

CSectionScope::CSectionScope(CInifile& ini, const CStr& section)
    : m_ini(ini)
    , m_name(ini.GetSection())
    , m_section(ini.m_section)
{
    m_ini.SelectSection(section);
    // Selecting makes a document where there was none; its unnamed section has the number that is remembered.
    m_documentNumber = m_ini.m_documentNumber;
}

CSectionScope::~CSectionScope()
{
    m_ini.m_section = m_section;
    if (m_ini.m_documentNumber == m_documentNumber)
        return;
    m_ini.m_section = 0;
    try {
        m_ini.SelectSection(m_name);
    } catch (const std::bad_alloc&) {
        // A destructor has nobody to tell.
    }
}

} // namespace CommonUI

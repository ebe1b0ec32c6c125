#pragma once

#include "Inifile.h"

namespace CommonUI
{

/// Selects a section of a file for as long as the object lives.
class CSectionScope
{
public:
    CSectionScope(CInifile& ini, const CStr& section)
        : m_ini(ini)
        , m_previous(ini.GetSection())
    {
        m_ini.SelectSection(section);
    }
    ~CSectionScope() { m_ini.SelectSection(m_previous); }
    CSectionScope(const CSectionScope&) = delete;
    CSectionScope& operator=(const CSectionScope&) = delete;

private:
    CInifile& m_ini;
    CStr m_previous;
};

} // namespace CommonUI

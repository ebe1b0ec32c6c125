#pragma once

#include "Inifile.h"

#include <cstdint>

namespace CommonUI
{

/// Selects a section of a file for as long as the object lives. The section that was current before is
/// current again afterwards, without memory being needed, unless the whole document was replaced in between:
/// then it is the section of the same name, or the unnamed one where there is no memory to find that.
class COMMONDLL_API CSectionScope
{
public:
    /// @param ini not owned; it must outlive the scope
    CSectionScope(CInifile& ini, const CStr& section);
    ~CSectionScope();
    CSectionScope(const CSectionScope&) = delete;
    CSectionScope& operator=(const CSectionScope&) = delete;

private:
    CInifile& m_ini;
    CStr m_name; // of the section before
    std::uint32_t m_section;
    std::uint64_t m_documentNumber;
};

} // namespace CommonUI

#include "model/BaseData.h"

namespace CommonUI
{

CBaseData::~CBaseData() = default;

bool CBaseData::IsModified() const noexcept
{
    return m_modified;
}

void CBaseData::ClearModified() noexcept
{
    m_modified = false;
}

void CBaseData::Reset()
{
    const bool modified = m_modified;
    ClearModified();
    try {
        Init();
    } catch (...) {
        m_modified = modified;
        throw;
    }
}

void CBaseData::Migrate(CInifile& /*ini*/, std::u16string_view /*section*/, int /*fromVersion*/,
                        int /*toVersion*/)
{
}

bool CBaseData::LoadBytes(std::string_view /*bytes*/)
{
    Reset();
    return true;
}

bool CBaseData::Load(CInifile& /*ini*/, bool reset)
{
    if (reset)
        Reset();
    return true;
}

bool CBaseData::LoadText(std::u16string_view /*text*/)
{
    Reset();
    return true;
}

bool CBaseData::SaveBytes(std::string& /*bytes*/)
{
    ClearModified();
    return true;
}

bool CBaseData::SaveText(CStr& /*text*/)
{
    ClearModified();
    return true;
}

} // namespace CommonUI

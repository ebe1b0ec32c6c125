#include "settings/preferences/PreferencesManager.h"

namespace CommonUI
{

bool CPreferencesManager::Load(CInifile& ini)
{
    return m_data.Load(ini);
}

bool CPreferencesManager::Save(CInifile& ini)
{
    return m_data.Save(ini);
}

CPreferencesManager& GetPreferencesManager()
{
    // Never destroyed, so that destructors of static objects may still save.
    static auto& manager = *new CPreferencesManager;
    return manager;
}

} // namespace CommonUI

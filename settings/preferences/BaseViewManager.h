#pragma once

#include "../../common/ini/Inifile.h"
#include "../../export/Export.h"

namespace CommonUI
{

/// What managers of the preferences of views share: an application loads them at its start and saves them at
/// its end, whatever they manage. User-interface thread only.
class COMMONUI_API CBaseViewManager
{
public:
    virtual ~CBaseViewManager();

    /// Reads what is managed.
    /// @return whether it succeeded; what could not be read is as the manager's class says
    virtual bool Load(CInifile& ini) = 0;
    /// Writes what is managed to `ini`, which the caller saves.
    virtual bool Save(CInifile& ini) = 0;

protected:
    CBaseViewManager() = default;
    CBaseViewManager(const CBaseViewManager&) = default;
    CBaseViewManager& operator=(const CBaseViewManager&) = default;
};

} // namespace CommonUI

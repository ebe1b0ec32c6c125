#pragma once

#include "../../export/Export.h"
#include "BaseViewManager.h"
#include "PreferencesData.h"

namespace CommonUI
{

/// Owns the preferences of the application that belong to no analysis. A copy has preferences of its own,
/// which start as those of the original: a dialog works on a copy and assigns it back.
class COMMONUI_API CPreferencesManager : public CBaseViewManager
{
public:
    /// The preferences, at the same place as long as the manager lives.
    CPreferencesData& GetData() noexcept { return m_data; }
    /// The preferences, to be read.
    const CPreferencesData& GetData() const noexcept { return m_data; }

    bool Load(CInifile& ini) override;
    bool Save(CInifile& ini) override;

private:
    CPreferencesData m_data;
};

/// The one manager of the process, made on the first call and never destroyed.
COMMONUI_API CPreferencesManager& GetPreferencesManager();

} // namespace CommonUI

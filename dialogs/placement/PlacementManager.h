#pragma once

#include "../../settings/preferences/BaseViewManager.h"
#include "WindowPlacement.h"

#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace CommonUI
{

/// Where the windows of the application stand, by their names and for each set-up of monitors of its own:
/// who carries a laptop between two desks finds the windows of either. The section and its values are
/// described in docs/dialogs.md. User-interface thread only.
class COMMONUI_API CPlacementManager : public CBaseViewManager
{
public:
    /// The section that Load and Save use.
    COMMONUI_CONSTANT std::u16string_view c_section = u"WindowPlacement";
    /// Of more set-ups the ones not used for longest are forgotten.
    COMMONUI_CONSTANT std::size_t c_greatestSetUpCount = 8;

    /// The placement of a window in a set-up, or, where there is none, in the set-up used last that has one.
    /// Its numbers may be any: FitToScreens makes them usable.
    /// @return nothing when the window is not known
    std::optional<SWindowPlacement> Find(const CStr& window, const CStr& setUp) const;
    /// Keeps a placement; the set-up counts as the one used last. An empty name of a window is none and
    /// keeps nothing.
    void Remember(const CStr& window, const CStr& setUp, const SWindowPlacement& placement);
    /// Forgets all placements, so that every window opens where it does by default.
    void Clear() noexcept { m_setUps.clear(); }

    /// Replaces what is remembered by what the section holds. A placement that is none is left out, with a
    /// line in the diagnostics. @return true always
    bool Load(CInifile& ini) override;
    /// Replaces the section's placements; what is none stays, also words behind them. @return true always
    bool Save(CInifile& ini) override;

private:
    struct SSetUp {
        CStr name;
        std::map<CStr, SWindowPlacement> windows;
    };

    SSetUp& Use(const CStr& setUp);

    std::vector<SSetUp> m_setUps; // the one used last at the front
};

/// The one manager of the process, made on the first call and never destroyed.
COMMONUI_API CPlacementManager& GetPlacementManager();

} // namespace CommonUI

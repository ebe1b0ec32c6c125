#pragma once

#include "../../export/Export.h"
#include "../../model/AnalysisPreferencesManager.h"
#include "../SettingsDifference.h"

#include <memory>
#include <string>
#include <vector>

namespace CommonUI
{

/// The keys of two stores of the preferences of all analyses, compared by what a manager reads from them: a
/// key that is missing has the default of its analysis, a store of the earlier layout is as one of today's,
/// units are the same in all their spellings. What is no preference of an analysis is left out.
/// @param section what both are stored below, as for CAnalysisPreferencesManager::Load
COMMONUI_API std::vector<SSettingsDifference>
CompareAnalysisPreferences(const CInifile& left, const CInifile& right, const CStr& section = u"Analysis");

/// Takes the preferences of analyses over from another store, in two steps: Prepare finds out what would
/// change and changes nothing, Apply does all of it or nothing. What the other store does not say stays, as
/// do the preferences of analyses that it has nothing of. User-interface thread.
class COMMONUI_API CAnalysisPreferencesImport
{
public:
    /// Prepares nothing yet.
    /// @param manager whose preferences are to change; must live longer
    /// @param section what the other store has them below
    explicit CAnalysisPreferencesImport(CAnalysisPreferencesManager& manager,
                                        const CStr& section = u"Analysis");
    CAnalysisPreferencesImport(const CAnalysisPreferencesImport&) = delete;
    CAnalysisPreferencesImport& operator=(const CAnalysisPreferencesImport&) = delete;
    ~CAnalysisPreferencesImport();

    /// The first step: reads the file of another store, which stays as it is. What of it cannot be read as a
    /// value is a line in the diagnostics and changes nothing.
    /// @param reason why it is false, in a sentence: the file cannot be read or has no preferences
    /// @return whether the second step can be done
    bool Prepare(const CStr& path, CStr& reason);

    /// The keys of the preferences as they are, on the left, and as they would be; for use after Prepare was
    /// true. CountDifferences tells how many would change.
    const std::vector<SSettingsDifference>& GetKeys() const noexcept { return m_keys; }

    /// The second step, after Prepare was true. Listeners of the manager are told when everything is as it
    /// shall be. Without memory nothing has changed, and std::bad_alloc is thrown.
    /// @param reason why it is false: the preferences are no longer those that the keys were shown for
    bool Apply(CStr& reason);

private:
    CAnalysisPreferencesManager& m_manager;
    CStr m_section;
    std::unique_ptr<CAnalysisPreferencesManager> m_next; // what would be
    std::string m_before;                                // what m_manager would save
    std::vector<SSettingsDifference> m_keys;
};

} // namespace CommonUI

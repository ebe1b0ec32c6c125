#pragma once

#include "common/ini/IniStore.h"
#include "common/Str.h"
#include "model/AnalysisPreferencesManager.h"
#include "settings/factory/SettingsFactory.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Python
{

/// An analysis by the name that files have for it, such as "RoughnessAnalysis".
/// @throws std::invalid_argument
CommonUI::EAnalysis AnalysisOf(const std::string& name);

/// The preferences of all analyses with the settings sets that were used recently, in a file or in memory.
/// Python's lock is held in all functions.
class CScriptPreferences
{
public:
    /// The defaults, or what a file has, which need not be there yet.
    /// @throws Measurement::ERequest for a file that cannot be read
    CScriptPreferences(const std::optional<std::filesystem::path>& path, const CommonUI::CStr& section);

    const CommonUI::CAnalysisPreferencesManager& GetManager() const noexcept { return m_manager; }
    CommonUI::CSettingsFactory& GetFactory() noexcept { return m_factory; }
    const CommonUI::CAnalysisPreferencesData& GetData(const std::string& analysis) const;
    /// @throws Measurement::ERequest, see EditPreferences
    void Change(const CommonUI::CStr& change);
    /// Saves to the file from which they come. What it holds besides stays as it is.
    /// @throws Measurement::ERequest where there is none, and where it cannot be written
    void Save();
    /// What was found in the file and repaired, in sentences.
    std::vector<CommonUI::CStr> GetRemarks() const { return m_store.GetAccount().GetSentences(); }

private:
    CommonUI::CAnalysisPreferencesManager m_manager{};
    CommonUI::CSettingsFactory m_factory{};
    CommonUI::CIniStore m_store{};
    CommonUI::CStr m_section;
    bool m_hasFile;
};

} // namespace Python

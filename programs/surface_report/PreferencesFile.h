#pragma once

#include "programs/surface_report/Options.h"

#include "common/ini/IniStore.h"
#include "model/AnalysisPreferencesManager.h"
#include "settings/factory/SettingsFactory.h"

#include <cstddef>
#include <ostream>

namespace SurfaceReport
{

/// The section under which the program keeps the preferences of all analyses in its file.
constexpr std::u16string_view c_section = u"SurfaceReport";

/// The preferences of all analyses in the options' file, and the settings sets that were used recently.
class CPreferencesFile
{
public:
    /// Loads the preferences, or takes the defaults where there is no file, and changes them as the options
    /// say.
    /// @throws EUsage for a change that cannot be made
    /// @throws std::runtime_error when the file cannot be read
    explicit CPreferencesFile(const SOptions& options);

    const CommonUI::CAnalysisPreferencesManager& GetManager() const { return m_manager; }
    CommonUI::CSettingsFactory& GetFactory() { return m_factory; }
    /// Saves when the file is not there yet, something was to be changed or sets were used. What the file
    /// holds besides stays as it is.
    /// @throws std::runtime_error when the file cannot be written
    void Save();
    /// Prints what was found, taken and kept of the file and has not been told yet.
    void Tell(std::ostream& err);

private:
    CommonUI::CAnalysisPreferencesManager m_manager;
    CommonUI::CSettingsFactory m_factory;
    CommonUI::CIniStore m_store;
    std::size_t m_toldCount = 0;
    bool m_needsSaving = false;
    bool m_usesSettings = false;
};

} // namespace SurfaceReport

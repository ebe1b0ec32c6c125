#pragma once

#include "common/ini/IniStore.h"
#include "examples/gallery/Log.h"
#include "model/AnalysisPreferencesManager.h"
#include "settings/readers/GrainThresholdSettings.h"

#include <filesystem>

namespace Gallery
{

/// What the gallery keeps from one start to the next: the preferences of all analyses, the choice of grains,
/// the layouts of results and where windows stand. There is one at a time.
class CPreferences
{
public:
    /// Loads the file, where it is there.
    /// @param file empty for preferences that begin with the defaults and are not kept
    explicit CPreferences(const std::filesystem::path& file);
    /// Saves.
    ~CPreferences();
    CPreferences(const CPreferences&) = delete;
    CPreferences& operator=(const CPreferences&) = delete;

    /// CommonUIGallery/preferences.ini in the user's folder for settings.
    static std::filesystem::path GetUsualFile();
    /// False where the file is there and cannot be read. It is not replaced then.
    bool IsLoaded() const noexcept { return m_isLoaded; }
    /// Says which file it is, and what people should know of what was found in it.
    void Tell(const FLog& log) const;
    /// @return false where the file cannot be written
    bool Save();

    CommonUI::CAnalysisPreferencesManager manager;
    CommonUI::SGrainThresholdSettings grains{.threshold = CommonUI::Analysis::EGrainThreshold::Otsu};

private:
    std::filesystem::path m_file;
    void Take();

    CommonUI::CIniStore m_store;
    bool m_isLoaded = true;
};

/// Those that are there.
CPreferences& GetPreferences();

} // namespace Gallery

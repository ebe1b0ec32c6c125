#include "examples/gallery/Preferences.h"

#include "common/PathText.h"
#include "dialogs/placement/PlacementManager.h"
#include "dialogs/results/ResultLayout.h"
#include "platform/Folders.h"

namespace Gallery
{

namespace
{

using namespace CommonUI;

constexpr const char16_t* c_section = u"SurfaceReport"; // its --preferences takes the file
constexpr const char16_t* c_grainSection = u"GrainThreshold";

CPreferences* s_preferences = nullptr;

} // namespace

CPreferences& GetPreferences()
{
    return *s_preferences;
}

CPreferences::CPreferences(const std::filesystem::path& file)
    : m_file(file)
{
    s_preferences = this;
    std::error_code error;
    CStr name;
    ToText(file, name);
    m_ini.SetFileName(name);
    if (std::filesystem::exists(file, error))
        m_isLoaded = m_ini.Load();
    GetPlacementManager().Load(m_ini);
    GetResultLayoutManager().Load(m_ini);
    m_ini.SelectSection(c_section);
    manager.Load(m_ini);
    if (m_ini.HasSection(c_grainSection))
        grains.Load(m_ini);
}

CPreferences::~CPreferences()
{
    Save();
    s_preferences = nullptr;
}

std::filesystem::path CPreferences::GetUsualFile()
{
    return GetFolders().GetSettingsFolder() / "CommonUIGallery" / "preferences.ini";
}

bool CPreferences::Save()
{
    GetPlacementManager().Save(m_ini);
    GetResultLayoutManager().Save(m_ini);
    m_ini.SelectSection(c_section);
    manager.Save(m_ini);
    grains.Save(m_ini);
    if (m_file.empty())
        return true;
    std::error_code error;
    if (m_file.has_parent_path())
        std::filesystem::create_directories(m_file.parent_path(), error);
    return m_ini.Save();
}

} // namespace Gallery

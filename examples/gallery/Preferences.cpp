#include "examples/gallery/Preferences.h"

#include "common/PathText.h"
#include "dialogs/placement/PlacementManager.h"
#include "dialogs/results/ResultLayout.h"
#include "model/ParameterList.h"
#include "platform/Folders.h"
#include "qt/QtText.h"

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
    CStr name;
    ToText(file, name);
    m_store.GetInifile().SetFileName(name);
    m_isLoaded = file.empty() || m_store.Load();
    Take();
}

void CPreferences::Take()
{
    CInifile& ini = m_store.GetInifile();
    GetPlacementManager().Load(ini);
    GetResultLayoutManager().Load(ini);
    ini.SelectSection(c_section);
    manager.Load(ini);
    if (ini.HasSection(c_grainSection))
        grains.Load(ini);
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

void CPreferences::Tell(const FLog& log) const
{
    if (m_file.empty())
        return;
    log(QStringLiteral("Preferences: %1").arg(ToQString(m_store.GetInifile().GetFileName())));
    for (const CStr& sentence : m_store.GetAccount().GetSentences())
        log(ToQString(sentence));
}

bool CPreferences::Save()
{
    CInifile& ini = m_store.GetInifile();
    GetPlacementManager().Save(ini);
    GetResultLayoutManager().Save(ini);
    ini.SelectSection(c_section);
    manager.Save(ini);
    grains.Save(ini);
    if (m_file.empty())
        return true;
    std::error_code error;
    if (m_file.has_parent_path())
        std::filesystem::create_directories(m_file.parent_path(), error);
    const bool isSaved = m_store.Save(IsDynamicParametersSection);
    if (m_store.GetAccount().hasOthers)
        Take();
    return isSaved;
}

} // namespace Gallery

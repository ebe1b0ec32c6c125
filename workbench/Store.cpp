#include "workbench/Store.h"

#include "common/PathText.h"
#include "dialogs/placement/PlacementManager.h"
#include "measurement/FailureReason.h"
#include "model/AnalysisPreferencesManager.h"
#include "model/ParameterList.h"
#include "platform/FileDialogService.h"
#include "platform/Folders.h"
#include "settings/factory/SettingsFactory.h"
#include "settings/preferences/PreferencesManager.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace Workbench
{

using namespace CommonUI;

namespace
{

constexpr const char16_t* c_section = u"Workbench";
constexpr const char16_t* c_analyses = u"SurfaceReport"; // so that the program of that name takes the file
constexpr const char16_t* c_defaultScale = u"BUILT-IN:CSQuickLaunchDefault3D";

double WithinOr(double value, double lowest, double highest, double otherwise)
{
    return value >= lowest && value <= highest ? value : otherwise;
}

} // namespace

CStore::CStore()
{
    const std::filesystem::path folder = GetFolders().GetSettingsFolder() / "CommonUIWorkbench";
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    m_ini.SetFileName((folder / "preferences.ini").u16string());
    if (std::filesystem::exists(folder / "preferences.ini", error))
        m_ini.Load();
    m_ini.SelectSection(c_analyses);
    GetAnalysisPreferencesManager().Load(m_ini);
    GetPreferencesManager().Load(m_ini);
    GetPlacementManager().Load(m_ini);
    GetFileDialogService().GetMemory().Load(m_ini);
    GetSettingsFactory().Load(m_ini);

    m_ini.SelectSection(c_section);
    files.Set(m_ini.ReadTexts(u"RecentFiles"));
    colorScale = m_ini.ReadText(u"ColorScale", c_defaultScale);
    look.lightAround = WithinOr(m_ini.ReadDouble(u"LightAround", look.lightAround), 0, 360, look.lightAround);
    look.lightAbove = WithinOr(m_ini.ReadDouble(u"LightAbove", look.lightAbove), 0, 90, look.lightAbove);
    look.isParallel = m_ini.ReadBool(u"Parallel", look.isParallel);
    colors = static_cast<EInterfaceScheme>(GetInterfaceSchemeEnum().GetValue(m_ini.ReadText(u"Colors")));
    showsMap = m_ini.ReadBool(u"ShowMap", true);
    showsBlock = m_ini.ReadBool(u"ShowBlock", true);
}

bool CStore::Save(CStr& reason)
{
    const Measurement::CFailureReason failure;
    m_ini.SelectSection(c_analyses);
    GetAnalysisPreferencesManager().Save(m_ini);
    GetPreferencesManager().Save(m_ini);
    GetPlacementManager().Save(m_ini);
    GetFileDialogService().GetMemory().Save(m_ini);
    GetSettingsFactory().Save(m_ini);

    m_ini.SelectSection(c_section);
    m_ini.WriteTexts(u"RecentFiles", files.GetAll());
    m_ini.WriteText(u"ColorScale", colorScale);
    m_ini.WriteDouble(u"LightAround", look.lightAround);
    m_ini.WriteDouble(u"LightAbove", look.lightAbove);
    m_ini.WriteBool(u"Parallel", look.isParallel);
    m_ini.WriteText(u"Colors", GetInterfaceSchemeEnum().GetIniName(static_cast<int>(colors)));
    m_ini.WriteBool(u"ShowMap", showsMap);
    m_ini.WriteBool(u"ShowBlock", showsBlock);
    const bool isSaved = m_ini.SaveMerged(IsDynamicParametersSection);
    if (!isSaved)
        reason = failure.GetText();
    return isSaved;
}

} // namespace Workbench

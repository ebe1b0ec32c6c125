#include "workbench/Store.h"

#include "common/PathText.h"
#include "dialogs/placement/PlacementManager.h"
#include "dialogs/results/ResultLayout.h"
#include "measurement/FailureReason.h"
#include "model/AnalysisPreferencesManager.h"
#include "model/Enumerations.h"
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

// A name that only later versions know stays until the user chooses another one.
EInterfaceScheme ReadColors(CInifile& ini)
{
    constexpr std::u16string_view c_key = u"Colors";
    const auto& names = GetInterfaceSchemeEnum();
    const auto scheme = static_cast<EInterfaceScheme>(names.GetValue(ini.ReadText(c_key)));
    if (ini.HasKey(c_key))
        ini.KeepUnknown(c_key, names.GetIniName(static_cast<int>(scheme)));
    return scheme;
}

// Likewise.
EAnalysis ReadAnalysis(CInifile& ini)
{
    constexpr std::u16string_view c_key = u"Analysis";
    const CStr name = ini.ReadText(c_key);
    for (int i = 0; i <= static_cast<int>(EAnalysis::Measure); ++i)
        if (CAnalysisPreferencesData::GetININame(static_cast<EAnalysis>(i)) == name)
            return static_cast<EAnalysis>(i);
    if (ini.HasKey(c_key))
        ini.KeepUnknown(c_key, CAnalysisPreferencesData::GetININame(EAnalysis::Roughness));
    return EAnalysis::Roughness;
}

// Keys of the lengths that analyses take, m.
constexpr std::pair<const char16_t*, double SAnalysisChoice::*> c_lengths[] = {
    {u"NominalPitch", &SAnalysisChoice::pitch},
    {u"NominalPitchY", &SAnalysisChoice::pitchY},
    {u"NominalStep", &SAnalysisChoice::step},
    {u"TipWidth", &SAnalysisChoice::tipWidth},
    {u"TipNoise", &SAnalysisChoice::tipNoise}};
constexpr double c_longest = 0.1;

} // namespace

CStore::CStore()
    : m_folder(GetFolders().GetSettingsFolder() / "CommonUIWorkbench")
{
    std::error_code error;
    std::filesystem::create_directories(m_folder, error);
    m_store.GetInifile().SetFileName((m_folder / "preferences.ini").u16string());
    m_store.Load();
    CInifile& ini = m_store.GetInifile();
    TakeShared();
    ini.SelectSection(c_section);
    colorScale = ini.ReadText(u"ColorScale", c_defaultScale);
    look.lightAround = WithinOr(ini.ReadDouble(u"LightAround", look.lightAround), 0, 360, look.lightAround);
    look.lightAbove = WithinOr(ini.ReadDouble(u"LightAbove", look.lightAbove), 0, 90, look.lightAbove);
    look.isParallel = ini.ReadBool(u"Parallel", look.isParallel);
    colors = ReadColors(ini);
    analysis.analysis = ReadAnalysis(ini);
    for (const auto& [key, length] : c_lengths)
        analysis.*length =
            WithinOr(ini.ReadDouble(key, analysis.*length), 0, c_longest, SAnalysisChoice().*length);
    analysis.pitchMethod = ini.ReadBool(u"PitchByCentroids", false) ? Measurement::EPitchMethod::Centroid
                                                                    : Measurement::EPitchMethod::Fourier;
    if (const auto area = GetTipEstimationAreaEnum().FindIniName(ini.ReadText(u"TipArea"));
        area != GetTipEstimationAreaEnum().end())
        analysis.tipArea = static_cast<ETipEstimationArea>(area->GetValue());
    analysis.grains.set = ini.ReadText(u"GrainSet", SGrainChoice().set);
    analysis.grains.kind =
        ini.ReadBool(u"Pores", false) ? Analysis::EGrainKind::Pore : Analysis::EGrainKind::Particle;
    series.isOfFolder = ini.ReadBool(u"SeriesOfFolder", false);
    series.folder = ini.ReadText(u"SeriesFolder");
    series.steps = static_cast<ESeriesSteps>(
        std::clamp(ini.ReadInt(u"SeriesSteps", static_cast<int>(series.steps)), 0, 2));
    report.set = ini.ReadText(u"ReportTemplate", report.set);
    report.hasPictures = ini.ReadBool(u"ReportPictures", report.hasPictures);
    report.opens = ini.ReadBool(u"ReportOpens", report.opens);
    showsMap = ini.ReadBool(u"ShowMap", true);
    showsBlock = ini.ReadBool(u"ShowBlock", true);
}

// What both workbenches go on with that use the file.
void CStore::TakeShared()
{
    CInifile& ini = m_store.GetInifile();
    ini.SelectSection(c_analyses);
    GetAnalysisPreferencesManager().Load(ini);
    GetPreferencesManager().Load(ini);
    GetPlacementManager().Load(ini);
    GetResultLayoutManager().Load(ini);
    GetFileDialogService().GetMemory().Load(ini);
    GetSettingsFactory().Load(ini);
    ini.SelectSection(c_section);
    files.Set(ini.ReadTexts(u"RecentFiles"));
}

bool CStore::Save(CStr& reason)
{
    const Measurement::CFailureReason failure;
    CInifile& ini = m_store.GetInifile();
    ini.SelectSection(c_analyses);
    GetAnalysisPreferencesManager().Save(ini);
    GetPreferencesManager().Save(ini);
    GetPlacementManager().Save(ini);
    GetResultLayoutManager().Save(ini);
    GetFileDialogService().GetMemory().Save(ini);
    GetSettingsFactory().Save(ini);

    ini.SelectSection(c_section);
    ini.WriteRecentTexts(u"RecentFiles", files.GetAll(), c_mostFiles);
    ini.WriteText(u"ColorScale", colorScale);
    ini.WriteDouble(u"LightAround", look.lightAround);
    ini.WriteDouble(u"LightAbove", look.lightAbove);
    ini.WriteBool(u"Parallel", look.isParallel);
    ini.WriteText(u"Colors", GetInterfaceSchemeEnum().GetIniName(static_cast<int>(colors)));
    ini.WriteText(u"Analysis", CAnalysisPreferencesData::GetININame(analysis.analysis));
    for (const auto& [key, length] : c_lengths)
        ini.WriteDouble(key, analysis.*length);
    ini.WriteBool(u"PitchByCentroids", analysis.pitchMethod == Measurement::EPitchMethod::Centroid);
    ini.WriteText(u"TipArea", GetTipEstimationAreaEnum().GetIniName(static_cast<int>(analysis.tipArea)));
    ini.WriteText(u"GrainSet", analysis.grains.set);
    ini.WriteBool(u"Pores", analysis.grains.kind == Analysis::EGrainKind::Pore);
    ini.WriteBool(u"SeriesOfFolder", series.isOfFolder);
    ini.WriteText(u"SeriesFolder", series.folder);
    ini.WriteInt(u"SeriesSteps", static_cast<int>(series.steps));
    ini.WriteText(u"ReportTemplate", report.set);
    ini.WriteBool(u"ReportPictures", report.hasPictures);
    ini.WriteBool(u"ReportOpens", report.opens);
    ini.WriteBool(u"ShowMap", showsMap);
    ini.WriteBool(u"ShowBlock", showsBlock);
    const bool isSaved = m_store.Save(IsDynamicParametersSection);
    if (!isSaved)
        reason = failure.GetText();
    else if (GetAccount().hasOthers)
        TakeShared(); // or the next save would undo what another workbench has saved
    return isSaved;
}

} // namespace Workbench

#include "settings/factory/SettingsFactory.h"
#include "settings/preferences/PreferencesManager.h"
#include "settings/readers/AnimationSettings.h"
#include "settings/readers/BatchSequenceSettings.h"
#include "settings/readers/ColorScale.h"
#include "settings/readers/FilterSettings.h"
#include "settings/readers/GrainThresholdSettings.h"
#include "settings/readers/PlaneCorrectionSettings.h"
#include "settings/readers/ReportTemplateSettings.h"
#include "settings/readers/RoughnessSettings.h"
#include "tests/fuzz/FuzzBytes.h"
#include "tests/fuzz/Targets.h"

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

using namespace CommonUI;
using Fuzz::IniOf;

namespace
{

// What is accepted is saved so that it reads back the same, beside what else stands in the file.
template<class T>
void RunSet(std::string_view bytes)
{
    static const T c_default;
    CInifile ini = IniOf(bytes);
    T set = c_default;
    if (!set.Load(ini)) {
        Fuzz::Expect(set == c_default, "a set that is refused changes nothing");
        return;
    }
    Fuzz::Expect(ini.GetBytes() == bytes, "reading changes nothing");
    set.Save(ini);
    T again = c_default;
    Fuzz::Expect(again.Load(ini), "what was saved can be loaded");
    Fuzz::Expect(again == set, "what was saved reads back the same");
    const std::string saved = ini.GetBytes();
    again.Save(ini);
    Fuzz::Expect(ini.GetBytes() == saved, "saving the same again changes nothing");
}

} // namespace

void Fuzz::RunAnimation(std::string_view bytes)
{
    RunSet<SAnimationSettings>(bytes);
}
void Fuzz::RunBatchSequence(std::string_view bytes)
{
    RunSet<SBatchSequenceSettings>(bytes);
}
void Fuzz::RunFilter(std::string_view bytes)
{
    RunSet<SFilterSettings>(bytes);
}
void Fuzz::RunGrainThreshold(std::string_view bytes)
{
    RunSet<SGrainThresholdSettings>(bytes);
}
void Fuzz::RunPlaneCorrection(std::string_view bytes)
{
    RunSet<SPlaneCorrectionSettings>(bytes);
}
void Fuzz::RunReportTemplate(std::string_view bytes)
{
    RunSet<SReportTemplateSettings>(bytes);
}

void Fuzz::RunColorScale(std::string_view bytes)
{
    RunSet<SColorScale>(bytes);
    CInifile ini = IniOf(bytes);
    static const SColorScale c_default;
    SColorScale scale = c_default;
    scale.Load(ini);
    const std::vector<SColor> table = scale.MakeTable(17);
    Expect(table.size() == 17 && table.front() == scale.GetColor(0) && table.back() == scale.GetColor(1),
           "a table begins and ends with the colours of 0 and 1");
    const double infinity = std::numeric_limits<double>::infinity();
    Expect(scale.GetColor(infinity) == scale.GetColor(2), "all that is above has one colour");
    Expect(scale.GetColor(-infinity) == scale.GetColor(-1), "all that is below has one colour");
    scale.GetColor(std::numeric_limits<double>::quiet_NaN());
}

void Fuzz::RunRoughness(std::string_view bytes)
{
    for (const EAnalysis analysis : {EAnalysis::Roughness, EAnalysis::RoughnessProfile}) {
        CInifile ini = IniOf(bytes);
        CRoughnessAnalysisPreferencesData data(analysis);
        if (!LoadRoughnessSettings(ini, data))
            continue;
        CInifile saved;
        SaveRoughnessSettings(data, saved);
        CRoughnessAnalysisPreferencesData again(analysis);
        Expect(LoadRoughnessSettings(saved, again), "what was saved can be loaded");
        CInifile savedAgain;
        SaveRoughnessSettings(again, savedAgain);
        Expect(savedAgain.GetBytes() == saved.GetBytes(), "what was saved is saved the same again");
    }
}

// Preferences that belong to no analysis.
void Fuzz::RunPreferences(std::string_view bytes)
{
    CInifile ini = IniOf(bytes);
    CPreferencesManager manager;
    manager.Load(ini);
    manager.Save(ini);
    CPreferencesManager again;
    again.Load(ini);
    const std::string saved = ini.GetBytes();
    again.Save(ini);
    Expect(ini.GetBytes() == saved, "saving the same again changes nothing");
}

// A text that shall name a set.
void Fuzz::RunUserSpecification(std::string_view bytes)
{
    CSettingsFactory factory;
    CSettingsFactory::SParseInfo info;
    const CStr text = CStr::FromUtf8(bytes);
    const bool isOne = factory.ParseUserSpec(text, info);
    Expect(isOne == info.error.IsEmpty(), "what is none has an error, and only that");
    Expect(isOne || info.entries.empty(), "what is none names nothing");
    for (const SSettingsEntry& entry : info.entries)
        Expect(entry.m_Type == info.type, "the set is of the type that is named");

    CInifile ini = IniOf(bytes);
    ini.SelectSection(CSettingsFactory::c_StorageSection);
    factory.Load(ini);
    CInifile saved;
    factory.Save(saved);
    CSettingsFactory again;
    again.Load(saved);
    CInifile savedAgain;
    again.Save(savedAgain);
    saved.SelectSection(CSettingsFactory::c_StorageSection);
    savedAgain.SelectSection(CSettingsFactory::c_StorageSection);
    for (const auto& type : GetSettingTypeEnum()) {
        const std::vector<CStr> texts = saved.ReadTexts(type.GetIniName());
        // A path loses a backslash at its end each time it is met, and what is met first of a type that is
        // not known does not become recent.
        const bool stays = type.GetValue() != static_cast<int>(ESettingType::Unknown) &&
                           std::ranges::none_of(texts, [](const CStr& path) { return path.EndsWith(u"\\"); });
        Expect(!stays || savedAgain.ReadTexts(type.GetIniName()) == texts,
               "recent lists are saved the same again");
    }
}

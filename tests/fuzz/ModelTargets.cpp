#include "measurement/EditPreferences.h"
#include "measurement/Request.h"
#include "model/AnalysisPreferencesManager.h"
#include "model/ParameterList.h"
#include "tests/fuzz/FuzzBytes.h"
#include "tests/fuzz/Targets.h"

#include <string>
#include <vector>

using namespace CommonUI;
using Fuzz::IniOf;

namespace
{

std::string Saved(const CAnalysisPreferencesManager& manager)
{
    CInifile ini;
    ini.SelectSection(u"Analysis");
    manager.Save(ini);
    return ini.GetBytes();
}

std::string SavedParameters(std::vector<CParameter>& parameters, EAnalysis analysis)
{
    CInifile ini;
    ini.SelectSection(u"List");
    SaveParameterList(parameters, ini, analysis);
    return ini.GetBytes();
}

} // namespace

// The preferences of all analyses.
void Fuzz::RunAnalysisPreferences(std::string_view bytes)
{
    CInifile ini = IniOf(bytes);
    ini.SelectSection(u"Analysis");
    CAnalysisPreferencesManager manager;
    manager.Load(ini);
    const std::string saved = Saved(manager);
    CInifile back = IniOf(saved);
    back.SelectSection(u"Analysis");
    CAnalysisPreferencesManager again;
    again.Load(back);
    Expect(Saved(again) == saved, "what was saved is saved the same again");
    manager.Save(ini);
    CAnalysisPreferencesManager beside;
    beside.Load(ini);
    Expect(Saved(beside) == saved, "the same is read where it was saved beside what was there");
}

// The stored choices of a list of parameters, those made from templates among them.
void Fuzz::RunParameterList(std::string_view bytes)
{
    static const CAnalysisPreferencesManager c_catalogues;
    for (const EAnalysis analysis : {EAnalysis::Roughness, EAnalysis::RoughnessProfile, EAnalysis::Measure}) {
        CInifile ini = IniOf(bytes);
        ini.SelectSection(u"List");
        std::vector<CParameter> parameters = c_catalogues.GetData(analysis).GetParameters();
        LoadParameterList(parameters, ini, analysis);
        const std::string saved = SavedParameters(parameters, analysis);
        CInifile back = IniOf(saved);
        back.SelectSection(u"List");
        std::vector<CParameter> again = c_catalogues.GetData(analysis).GetParameters();
        LoadParameterList(again, back, analysis);
        Expect(SavedParameters(again, analysis) == saved, "what was saved is saved the same again");
    }
}

// A change of preferences as a command line has it.
void Fuzz::RunPreferenceChange(std::string_view bytes)
{
    static const std::string c_defaults = Saved({});
    CAnalysisPreferencesManager manager;
    try {
        Measurement::EditPreferences(manager, CStr::FromUtf8(bytes));
    } catch (const Measurement::ERequest& error) {
        Expect(std::string_view(error.what()).find('\n') == std::string_view::npos, "a refusal is one line");
        Expect(Saved(manager) == c_defaults, "what is refused changes nothing");
        return;
    }
    const std::string once = Saved(manager);
    CInifile back = IniOf(once);
    back.SelectSection(u"Analysis");
    CAnalysisPreferencesManager again;
    again.Load(back);
    Expect(Saved(again) == once, "the change is stored");
}

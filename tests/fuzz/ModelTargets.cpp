#include "measurement/EditPreferences.h"
#include "measurement/Request.h"
#include "model/AnalysisPreferencesManager.h"
#include "model/ParameterList.h"
#include "tests/fuzz/FuzzBytes.h"
#include "tests/fuzz/Targets.h"

#include <algorithm>
#include <array>
#include <memory>
#include <ranges>
#include <string>
#include <vector>

using namespace CommonUI;
using Fuzz::IniOf;

namespace
{

constexpr int c_analyses = static_cast<int>(EAnalysis::Measure) + 1;

const CAnalysisPreferencesManager& Defaults()
{
    static const CAnalysisPreferencesManager c_defaults;
    return c_defaults;
}

// To store all analyses takes long: few inputs do.
bool IsForAll(std::string_view bytes)
{
    return bytes.size() % 64 == 63;
}

CStr SectionOf(EAnalysis analysis)
{
    return u"Analysis_" + CAnalysisPreferencesData::GetININame(analysis);
}

// The first analysis that an input has a section of, or one by its length.
EAnalysis ChooseAnalysis(std::string_view bytes)
{
    const auto place = [bytes](int analysis) {
        return bytes.find("[" + SectionOf(EAnalysis{analysis}).ToUtf8() + "]");
    };
    const int first = std::ranges::min(std::views::iota(0, c_analyses), {}, place);
    const bool hasOne = place(first) != bytes.npos;
    return EAnalysis{hasOne ? first : static_cast<int>(bytes.size() % c_analyses)};
}

// Preferences are loaded by a name for the section, and saved.
class CAll
{
public:
    void Load(CInifile& ini)
    {
        ini.SelectSection(u"Analysis");
        m_manager.Load(ini);
    }
    void Save(CInifile& ini) const
    {
        ini.SelectSection(u"Analysis");
        m_manager.Save(ini);
    }

private:
    CAnalysisPreferencesManager m_manager;
};

class COne
{
public:
    explicit COne(const CAnalysisPreferencesData& data)
        : m_data(data.Clone())
    {
    }
    explicit COne(EAnalysis analysis)
        : COne(Defaults().GetData(analysis))
    {
    }

    void Load(CInifile& ini)
    {
        ini.SelectSection(SectionOf(m_data->GetAnalysis()));
        m_data->Load(ini);
    }
    void Save(CInifile& ini) const
    {
        ini.SelectSection(SectionOf(m_data->GetAnalysis()));
        m_data->Save(ini);
    }

private:
    std::unique_ptr<CAnalysisPreferencesData> m_data;
};

template<class TPreferences>
std::string Saved(const TPreferences& preferences)
{
    CInifile ini;
    preferences.Save(ini);
    return ini.GetBytes();
}

// @param make gives preferences with their defaults
template<class FMake>
void LoadAndSave(std::string_view bytes, FMake make)
{
    CInifile ini = IniOf(bytes);
    auto preferences = make();
    preferences.Load(ini);
    const std::string saved = Saved(preferences);
    CInifile back = IniOf(saved);
    auto again = make();
    again.Load(back);
    Fuzz::Expect(Saved(again) == saved, "what was saved is saved the same again");
    preferences.Save(ini);
    auto beside = make();
    beside.Load(ini);
    Fuzz::Expect(Saved(beside) == saved, "the same is read where it was saved beside what was there");
}

bool IsDefault(const CAnalysisPreferencesData& data)
{
    return data.Compare(Defaults().GetData(data.GetAnalysis())) == CAnalysisPreferencesData::SDifferences();
}

std::string SavedParameters(std::vector<CParameter>& parameters, EAnalysis analysis)
{
    CInifile ini;
    ini.SelectSection(u"List");
    SaveParameterList(parameters, ini, analysis);
    return ini.GetBytes();
}

} // namespace

// The preferences of the analyses.
void Fuzz::RunAnalysisPreferences(std::string_view bytes)
{
    if (IsForAll(bytes))
        LoadAndSave(bytes, [] { return CAll(); });
    else
        LoadAndSave(bytes, [analysis = ChooseAnalysis(bytes)] { return COne(analysis); });
}

// The stored choices of a list of parameters, those made from templates among them.
void Fuzz::RunParameterList(std::string_view bytes)
{
    constexpr std::array c_kinds{EAnalysis::Roughness, EAnalysis::RoughnessProfile, EAnalysis::Measure};
    const EAnalysis analysis = c_kinds[bytes.size() % c_kinds.size()];
    CInifile ini = IniOf(bytes);
    ini.SelectSection(u"List");
    std::vector<CParameter> parameters = Defaults().GetData(analysis).GetParameters();
    LoadParameterList(parameters, ini, analysis);
    const std::string saved = SavedParameters(parameters, analysis);
    CInifile back = IniOf(saved);
    back.SelectSection(u"List");
    std::vector<CParameter> again = Defaults().GetData(analysis).GetParameters();
    LoadParameterList(again, back, analysis);
    Expect(SavedParameters(again, analysis) == saved, "what was saved is saved the same again");
}

// A change of preferences as a command line has it.
void Fuzz::RunPreferenceChange(std::string_view bytes)
{
    CAnalysisPreferencesManager manager;
    bool isTaken = true;
    try {
        Measurement::EditPreferences(manager, CStr::FromUtf8(bytes));
    } catch (const Measurement::ERequest& error) {
        isTaken = false;
        Expect(std::string_view(error.what()).find('\n') == std::string_view::npos, "a refusal is one line");
    }
    for (int i = 0; i < c_analyses; ++i) {
        const CAnalysisPreferencesData& data = manager.GetData(EAnalysis{i});
        const bool isChanged = !IsDefault(data);
        Expect(isTaken || !isChanged, "what is refused changes nothing");
        if (!isChanged && !IsForAll(bytes))
            continue;
        const std::string once = Saved(COne(data));
        CInifile back = IniOf(once);
        COne again(data.GetAnalysis());
        again.Load(back);
        Expect(Saved(again) == once, "the change is stored");
        Expect(isTaken || once == Saved(COne(data.GetAnalysis())), "what is refused is not stored");
    }
}

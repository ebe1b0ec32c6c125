#include "settings/readers/RoughnessSettings.h"

#include "settings/readers/detail/SettingsExchange.h"

namespace CommonUI
{

namespace
{

CStr SectionOf(EAnalysis analysis)
{
    return u"Analysis_" + CAnalysisPreferencesData::GetININame(analysis);
}

} // namespace

bool LoadRoughnessSettings(CInifile& ini, CRoughnessAnalysisPreferencesData& data)
{
    const CStr section = SectionOf(data.GetAnalysis());
    CSettingsReader reader(ini, section);
    if (!reader.Require(ini.HasSection(section), u"there is no such section"))
        return false;
    CRoughnessAnalysisPreferencesData read = data;
    read.Init();
    read.Load(ini);
    return data.Assign(read);
}

void SaveRoughnessSettings(const CRoughnessAnalysisPreferencesData& data, CInifile& ini)
{
    const CSettingsWriter writer(ini, SectionOf(data.GetAnalysis()));
    CRoughnessAnalysisPreferencesData(data).Save(ini);
}

} // namespace CommonUI

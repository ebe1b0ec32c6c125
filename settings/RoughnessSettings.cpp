#include "settings/RoughnessSettings.h"

#include "settings/detail/SettingFields.h"

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
    const EAnalysis analysis = data.GetAnalysis();
    const ESettingType type =
        analysis == EAnalysis::Roughness ? ESettingType::ImageRoughness : ESettingType::ProfileRoughness;
    const Detail::CSettingReader reader(ini, type, SectionOf(analysis));
    if (!reader.IsUsable())
        return false;
    CRoughnessAnalysisPreferencesData read = data;
    read.Init();
    read.Load(ini);
    return data.Assign(read);
}

void SaveRoughnessSettings(const CRoughnessAnalysisPreferencesData& data, CInifile& ini)
{
    const Detail::CSettingWriter writer(ini, SectionOf(data.GetAnalysis()));
    CRoughnessAnalysisPreferencesData(data).Save(ini);
}

} // namespace CommonUI

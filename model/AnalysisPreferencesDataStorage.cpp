#include "model/AnalysisPreferencesData.h"

#include "common/Diagnostics.h"
#include "common/ini/SectionScope.h"
#include "common/Rollback.h"
#include "model/detail/OldPreferences.h"
#include "model/detail/StoredAnalysisPreferences.h"
#include "model/ParameterList.h"

#include <algorithm>
#include <optional>

namespace CommonUI
{

namespace
{

// Whether a statistic can have the value: a percentile lies between 0 and 100.
bool IsValueOf(const CParameter& statistic, double value)
{
    return statistic != static_cast<int>(EStatistics::Fractile) || (value >= 0 && value <= 100);
}

void ReadOn(std::vector<CParameter>& list, int id, const CInifile& ini, const CStr& key)
{
    const auto found = std::find(list.begin(), list.end(), id);
    if (found != list.end())
        found->SetOn(ini.ReadBool(key, found->IsOn()));
}

} // namespace

void CAnalysisPreferencesData::SStored::ReadOld(CData& data, const CInifile& ini, const SOldKey& row)
{
    switch (row.target) {
    case EOldTarget::WriteToFile:
        return ReadPreference(ini, row.key, data.m_writeToFile);
    case EOldTarget::WriteToDB:
        return ReadPreference(ini, row.key, data.m_writeToDB);
    case EOldTarget::HeightUnit:
        return ReadOldUnit(ini, row.key, data.m_unit);
    case EOldTarget::Preprocessing:
        return ReadPreference(ini, row.key, data.m_preprocessing);
    case EOldTarget::Parameter:
        return ReadOn(data.m_parameters, row.id, ini, row.key);
    case EOldTarget::Output:
        return ReadOn(data.m_outputs, row.id, ini, row.key);
    case EOldTarget::ReportOption:
        return; // the roughness analyses, which alone have it, read it themselves
    }
}

bool CAnalysisPreferencesData::Save(CInifile& ini)
{
    const SAnalysisDefaults& defaults = *FindAnalysisDefaults(m_analysis);
    SavePreferences(*this, ini, SStored::BeforeLists(defaults));
    SaveParameters(m_parameters, ini, m_analysis);
    SaveStatistics(m_statistics, ini);
    SaveOutput(m_outputs, ini);
    SavePreferences(*this, ini, SStored::BehindLists(defaults));
    ClearModified();
    return true;
}

bool CAnalysisPreferencesData::Load(CInifile& ini)
{
    CRollback rollback(*this);
    CBaseData::Load(ini, false);
    if (!ini.HasKey(u"WriteToFile") && LoadOld(ini)) {
        rollback.Commit();
        return true;
    }
    const SAnalysisDefaults& defaults = *FindAnalysisDefaults(m_analysis);
    LoadPreferences(*this, ini, SStored::BeforeLists(defaults));
    m_places.Forget();
    LoadParameters(m_parameters, ini, m_analysis);
    LoadStatistics(m_statistics, ini);
    LoadOutput(m_outputs, ini);
    LoadPreferences(*this, ini, SStored::BehindLists(defaults));
    ClearModified();
    rollback.Commit();
    return true;
}

void CAnalysisPreferencesData::SaveParameters(std::vector<CParameter>& parameters, CInifile& ini,
                                              EAnalysis analysis)
{
    SaveParameterList(parameters, ini, analysis);
}

void CAnalysisPreferencesData::LoadParameters(std::vector<CParameter>& parameters, CInifile& ini,
                                              EAnalysis analysis)
{
    LoadParameterList(parameters, ini, analysis);
}

void CAnalysisPreferencesData::SaveStatistics(const std::vector<CParameter>& statistics, CInifile& ini)
{
    for (const CParameter& statistic : statistics) {
        ini.WriteBool(statistic.GetIniName() + u"_S_On", statistic.IsOn());
        ini.WriteDouble(statistic.GetIniName() + u"_S_Value", statistic.GetVariableValue());
    }
}

void CAnalysisPreferencesData::LoadStatistics(std::vector<CParameter>& statistics, const CInifile& ini)
{
    for (CParameter& statistic : statistics) {
        bool on = statistic.IsOn();
        double value = statistic.GetVariableValue();
        ReadPreference(ini, statistic.GetIniName() + u"_S_On", on);
        ReadPreference(ini, statistic.GetIniName() + u"_S_Value", value);
        statistic.SetOn(on);
        if (IsValueOf(statistic, value))
            statistic.SetVariableValue(value);
        else
            GetDiagnostics().Write(
                u"Preferences", EDiagnosticLevel::Warning,
                CStr::Format(u"%s_S_Value: %G is no percentile", statistic.GetIniName(), value));
    }
}

void CAnalysisPreferencesData::SaveOutput(const std::vector<CParameter>& outputs, CInifile& ini)
{
    for (const CParameter& output : outputs)
        ini.WriteBool(output.GetIniName() + u"_O_On", output.IsOn());
}

void CAnalysisPreferencesData::LoadOutput(std::vector<CParameter>& outputs, const CInifile& ini)
{
    for (CParameter& output : outputs)
        output.SetOn(ini.ReadBool(output.GetIniName() + u"_O_On", output.IsOn()));
}

bool CAnalysisPreferencesData::LoadOld(CInifile& ini)
{
    const std::optional<CStr> section = FindOldSection(ini, m_analysis);
    if (!section)
        return false;
    CRollback rollback(*this);
    const CSectionScope scope(ini, *section);
    for (const SOldKey& row : GetOldKeys()) {
        if (row.IsOf(m_analysis) && ini.HasKey(row.key))
            SStored::ReadOld(*this, ini, row);
    }
    SetModified();
    rollback.Commit();
    return true;
}

} // namespace CommonUI

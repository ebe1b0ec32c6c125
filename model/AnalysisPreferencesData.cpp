#include "model/AnalysisPreferencesData.h"

#include "common/Exceptions.h"
#include "common/Rollback.h"
#include "common/StringTable.h"
#include "model/detail/AnalysisDefaults.h"
#include "model/detail/FreeNumbers.h"
#include "model/detail/StoredAnalysisPreferences.h"
#include "model/RoughnessCatalogue.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace CommonUI
{

namespace
{

constexpr int c_allParameters = 7412;

[[noreturn]] void ThrowIllegal(int line, std::u16string_view function, std::u16string_view format, int number)
{
    throw EInternal(u"AnalysisPreferencesData", line, u"CAnalysisPreferencesData::" + CStr(function),
                    CStr::Format(format, number));
}

const SAnalysisDefaults& DefaultsOf(EAnalysis analysis, std::u16string_view function)
{
    const SAnalysisDefaults* const found = FindAnalysisDefaults(analysis);
    if (!found)
        ThrowIllegal(__LINE__, function, u"Illegal Analysis value: %d", static_cast<int>(analysis));
    return *found;
}

// The first entry of that number, or null.
template<class TList>
auto* FindIn(TList& list, int id)
{
    const auto found = std::find(list.begin(), list.end(), id);
    return found == list.end() ? nullptr : &*found;
}

bool SetIn(std::vector<CParameter>& list, int id, const CParameter& entry)
{
    CParameter* const found = FindIn(list, id);
    if (found)
        *found = CParameter(entry);
    return found;
}

// Gives every entry to that of its number, all of them or, without memory, none.
// @return whether there was one for each
bool SetAllIn(std::vector<CParameter>& list, const std::vector<CParameter>& entries, bool& changed)
{
    std::vector<CParameter> next = list;
    bool all = true;
    for (const CParameter& entry : entries) {
        const bool set = SetIn(next, entry.GetValue(), entry);
        all &= set;
        changed |= set;
    }
    list = std::move(next);
    return all;
}

void SetOn(CParameter& entry, bool on)
{
    entry.SetOn(on && !entry.IsTemplate());
}

bool SetOnIn(std::vector<CParameter>& list, int id, bool on)
{
    CParameter* const found = FindIn(list, id);
    if (found)
        SetOn(*found, on);
    return found;
}

std::vector<int> NumbersOf(const std::vector<CParameter>& list)
{
    std::vector<int> numbers(list.size());
    std::ranges::transform(list, numbers.begin(), &CParameter::GetValue);
    return numbers;
}

std::vector<SParameterGroup> OneGroup(std::vector<CParameter> entries)
{
    std::vector<SParameterGroup> groups(1);
    groups[0].name = GetString(c_allParameters);
    groups[0].parameters = std::move(entries);
    return groups;
}

} // namespace

CAnalysisPreferencesData::CAnalysisPreferencesData(EAnalysis analysis)
    : m_analysis(analysis)
{
    CAnalysisPreferencesData::Init();
    m_allowed.reports = m_allowed.plugIns = IsRoughness(analysis);
    m_allowed.histograms = analysis == EAnalysis::Measure;
}

CAnalysisPreferencesData::~CAnalysisPreferencesData() = default;

void CAnalysisPreferencesData::Init()
{
    const SAnalysisDefaults& defaults = DefaultsOf(m_analysis, u"Init");
    CRollback rollback(*this);
    InitPreferences(*this, SStored::BeforeLists(defaults));
    InitPreferences(*this, SStored::BehindLists(defaults));
    m_parameters = MakeDefaultParameters(m_analysis);
    m_places.Forget();
    m_statistics = MakeDefaultStatistics(m_analysis);
    m_outputs = MakeDefaultOutputs(m_analysis);
    rollback.Commit();
}

CStr CAnalysisPreferencesData::GetININame(EAnalysis analysis)
{
    return DefaultsOf(analysis, u"GetININame").iniName;
}

CStr CAnalysisPreferencesData::GetFriendlyName(EAnalysis analysis)
{
    return GetString(DefaultsOf(analysis, u"GetFriendlyName").textId);
}

std::unique_ptr<CAnalysisPreferencesData> CAnalysisPreferencesData::Clone() const
{
    return std::make_unique<CAnalysisPreferencesData>(*this);
}

bool CAnalysisPreferencesData::Assign(const CAnalysisPreferencesData& other)
{
    if (other.m_analysis != m_analysis)
        return false;
    CAnalysisPreferencesData::operator=(CAnalysisPreferencesData(other));
    SetModified();
    return true;
}

CAnalysisPreferencesData::SDifferences
CAnalysisPreferencesData::Compare(const CAnalysisPreferencesData& other) const
{
    const auto differs = [](const std::vector<CParameter>& a, const std::vector<CParameter>& b) {
        return !std::ranges::equal(a, b, CParameter::IsSame);
    };
    return {.parameters = differs(m_parameters, other.m_parameters) || m_unit != other.m_unit ||
                          m_preprocessing != other.m_preprocessing || m_allowed != other.m_allowed ||
                          m_enabledStandards != other.m_enabledStandards,
            .statistics = differs(m_statistics, other.m_statistics),
            .outputs = differs(m_outputs, other.m_outputs) || m_writeToFile != other.m_writeToFile ||
                       m_writeToDB != other.m_writeToDB};
}

std::vector<SParameterGroup> CAnalysisPreferencesData::GetGroups(FGetter getter, bool all) const
{
    std::vector<CParameter> entries;
    for (const CParameter& parameter : m_parameters) {
        if (all || (!parameter.HasParent() && parameter.GetVariableCount() == 0))
            entries.push_back((this->*getter)(parameter.GetValue()));
    }
    return OneGroup(std::move(entries));
}

std::vector<SParameterGroup> CAnalysisPreferencesData::GetParameterGroups(bool all) const
{
    return GetGroups(&CAnalysisPreferencesData::GetParameter, all);
}

std::vector<SParameterGroup> CAnalysisPreferencesData::GetStatisticGroups() const
{
    return OneGroup(m_statistics);
}

std::vector<SParameterGroup> CAnalysisPreferencesData::GetOutputGroups() const
{
    return OneGroup(m_outputs);
}

int CAnalysisPreferencesData::FindParameterMaxValue() const
{
    const int largest = m_places.GetLargest(m_parameters);
    return largest < std::numeric_limits<int>::max() ? largest + 1 : CFreeNumbers(m_parameters, 0).Take();
}

int CAnalysisPreferencesData::AddParameter(int /*parent*/, const CParameter& parameter)
{
    constexpr int c_plugIn = static_cast<int>(ERoughnessParameters::PlugIn);
    CParameter added(FindParameterMaxValue(), parameter);
    added.SetParentValue(c_plugIn);
    m_parameters.push_back(added);
    SetModified();
    return added.GetValue();
}

const CParameter* CAnalysisPreferencesData::FindParameter(int id) const noexcept
{
    const std::size_t place = m_places.Find(m_parameters, id);
    return place == m_parameters.size() ? nullptr : &m_parameters[place];
}

CParameter CAnalysisPreferencesData::GetParameter(int id) const
{
    const CParameter* const found = FindParameter(id);
    if (!found)
        ThrowIllegal(__LINE__, u"GetParameter", u"Illegal Parameter ID: %d", id);
    return *found;
}

CParameter CAnalysisPreferencesData::GetStatistic(int id) const
{
    const CParameter* const found = FindIn(m_statistics, id);
    if (!found)
        ThrowIllegal(__LINE__, u"GetStatistic", u"Illegal m_Statistic ID: %d", id);
    return *found;
}

CParameter CAnalysisPreferencesData::GetOutput(int id) const
{
    const CParameter* const found = FindIn(m_outputs, id);
    if (!found)
        ThrowIllegal(__LINE__, u"GetOutput", u"Illegal Output ID: %d", id);
    return *found;
}

bool CAnalysisPreferencesData::IsParameterOn(int id) const
{
    const CParameter* const found = FindParameter(id);
    return found && found->IsOn();
}

std::vector<int> CAnalysisPreferencesData::GetParameterIDs() const
{
    return NumbersOf(m_parameters);
}

std::vector<int> CAnalysisPreferencesData::GetStatisticIDs() const
{
    return NumbersOf(m_statistics);
}

std::vector<int> CAnalysisPreferencesData::GetOutputIDs() const
{
    return NumbersOf(m_outputs);
}

bool CAnalysisPreferencesData::Changed(bool changed) noexcept
{
    if (changed)
        SetModified();
    return changed;
}

bool CAnalysisPreferencesData::SetParameter(int id, const CParameter& parameter)
{
    const std::size_t place = m_places.Find(m_parameters, id);
    if (place == m_parameters.size()) {
        m_parameters.push_back(parameter);
    } else {
        m_parameters[place] = CParameter(parameter);
        if (parameter.GetValue() != id)
            m_places.Forget();
    }
    return Changed(true);
}

bool CAnalysisPreferencesData::SetStatistic(int id, const CParameter& statistic)
{
    return Changed(SetIn(m_statistics, id, statistic));
}

bool CAnalysisPreferencesData::SetOutput(int id, const CParameter& output)
{
    return Changed(SetIn(m_outputs, id, output));
}

bool CAnalysisPreferencesData::SetParameterOn(int id, bool on)
{
    const std::size_t place = m_places.Find(m_parameters, id);
    if (place == m_parameters.size())
        return false;
    SetOn(m_parameters[place], on);
    return Changed(true);
}

bool CAnalysisPreferencesData::SetStatsOn(int id, bool on)
{
    return Changed(SetOnIn(m_statistics, id, on));
}

bool CAnalysisPreferencesData::SetOutputOn(int id, bool on)
{
    return Changed(SetOnIn(m_outputs, id, on));
}

bool CAnalysisPreferencesData::SetParameters(const std::vector<CParameter>& parameters)
{
    m_parameters = std::vector<CParameter>(parameters);
    m_places.Forget();
    return Changed(true);
}

bool CAnalysisPreferencesData::SetStatistics(const std::vector<CParameter>& statistics)
{
    bool changed = false;
    const bool all = SetAllIn(m_statistics, statistics, changed);
    Changed(changed);
    return all;
}

bool CAnalysisPreferencesData::SetOutputs(const std::vector<CParameter>& outputs)
{
    bool changed = false;
    const bool all = SetAllIn(m_outputs, outputs, changed);
    Changed(changed);
    return all;
}

void CAnalysisPreferencesData::SetWriteToFile(bool write)
{
    m_writeToFile = write;
    SetModified();
}

void CAnalysisPreferencesData::SetWriteToDB(bool write)
{
    m_writeToDB = write;
    SetModified();
}

void CAnalysisPreferencesData::SetUnit(const CUnit& unit)
{
    m_unit = unit;
    SetModified();
}

bool CAnalysisPreferencesData::SetPreprocessingNo(int number)
{
    if (number < 0 || number > static_cast<int>(ERoughnessPreprocessingOptions::Lines))
        return false;
    m_preprocessing = static_cast<ERoughnessPreprocessingOptions>(number);
    return Changed(true);
}

void CAnalysisPreferencesData::SetAllowed(const SAllowed& allowed)
{
    m_allowed = allowed;
    SetModified();
}

bool CAnalysisPreferencesData::IsStandardEnabled(EAnalysisStandards standard) const
{
    const auto found = m_enabledStandards.find(standard);
    return found == m_enabledStandards.end() || found->second;
}

void CAnalysisPreferencesData::SetEnabledStandards(const std::map<EAnalysisStandards, bool>& enabled)
{
    m_enabledStandards = enabled;
    SetModified();
}

} // namespace CommonUI

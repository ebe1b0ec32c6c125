#include "model/AnalysisPreferencesManager.h"

#include "common/Exceptions.h"
#include "common/ini/SectionScope.h"
#include "model/GrainAnalysisPreferencesData.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <utility>

namespace CommonUI
{

namespace
{

using CData = CAnalysisPreferencesData;
using CRoughnessData = CRoughnessAnalysisPreferencesData;

std::unique_ptr<CData> MakeData(EAnalysis analysis)
{
    if (analysis == EAnalysis::Measure)
        return std::make_unique<CGrainAnalysisPreferencesData>();
    if (IsRoughness(analysis))
        return std::make_unique<CRoughnessData>(analysis);
    return std::make_unique<CData>(analysis);
}

// The object of the analysis in an array of all.
template<class TArray>
auto& At(TArray& data, EAnalysis analysis, std::u16string_view function)
{
    const auto index = static_cast<std::size_t>(analysis);
    if (index >= data.size())
        throw EInternal(u"AnalysisPreferencesManager", __LINE__,
                        u"CAnalysisPreferencesManager::" + CStr(function),
                        CStr::Format(u"Illegal Analysis value: %d", static_cast<int>(analysis)));
    return *data[index];
}

template<class TData>
bool MoveAs(CData& to, CData& from) noexcept
{
    auto* const target = dynamic_cast<TData*>(&to);
    if (target)
        *target = std::move(dynamic_cast<TData&>(from));
    return target != nullptr;
}

// Between objects of the same class.
void Move(CData& to, CData& from) noexcept
{
    static_cast<void>(MoveAs<CGrainAnalysisPreferencesData>(to, from) || MoveAs<CRoughnessData>(to, from) ||
                      MoveAs<CData>(to, from));
}

void SortByValue(std::vector<CParameter>& list)
{
    std::ranges::stable_sort(list, {}, &CParameter::GetValue);
}

// Sorts `list` and answers whether it differs from `current`.
bool SortAndCompare(std::vector<CParameter>& list, std::vector<CParameter> current)
{
    SortByValue(list);
    SortByValue(current);
    return !std::ranges::equal(list, current, CParameter::IsEqual);
}

// Calls `visit` for every analysis with its section selected, which is `ini`'s with the analysis's name
// behind it.
template<class FVisit>
bool ForAll(CInifile& ini, FVisit visit)
{
    const CStr base = ini.GetSection();
    bool all = true;
    for (int i = 0; i <= static_cast<int>(EAnalysis::Measure); ++i) {
        const EAnalysis analysis{i};
        const CSectionScope scope(ini, base + u"_" + CData::GetININame(analysis));
        all &= visit(analysis);
    }
    return all;
}

} // namespace

CAnalysisPreferencesManager::CAnalysisPreferencesManager()
{
    for (std::size_t i = 0; i < m_data.size(); ++i)
        m_data[i] = MakeData(static_cast<EAnalysis>(i));
}

CAnalysisPreferencesManager::~CAnalysisPreferencesManager() = default;

const CAnalysisPreferencesData& CAnalysisPreferencesManager::GetData(EAnalysis analysis) const
{
    return At(m_data, analysis, u"GetData");
}

CAnalysisPreferencesData& CAnalysisPreferencesManager::_GetData(EAnalysis analysis)
{
    return At(m_data, analysis, u"_GetData");
}

bool CAnalysisPreferencesManager::SetData(EAnalysis analysis, const CAnalysisPreferencesData& data)
{
    CData& own = _GetData(analysis);
    if (data != analysis)
        return false;
    const CData::SDifferences differences = own.Compare(data);
    if (differences == CData::SDifferences())
        return true;
    if (!own.Assign(data))
        return false;
    Announce(analysis, differences);
    return true;
}

void CAnalysisPreferencesManager::Assign(const CAnalysisPreferencesManager& other)
{
    std::array<CData::SDifferences, std::tuple_size_v<decltype(m_data)>> differences;
    decltype(m_data) next;
    for (std::size_t i = 0; i < m_data.size(); ++i) {
        differences[i] = m_data[i]->Compare(*other.m_data[i]);
        if (differences[i] == CData::SDifferences())
            continue;
        next[i] = m_data[i]->Clone();
        next[i]->Assign(*other.m_data[i]);
    }
    for (std::size_t i = 0; i < m_data.size(); ++i)
        if (next[i])
            Move(*m_data[i], *next[i]);
    for (std::size_t i = 0; i < m_data.size(); ++i)
        Announce(static_cast<EAnalysis>(i), differences[i]);
}

bool CAnalysisPreferencesManager::SetDataParameters(EAnalysis analysis, std::vector<CParameter>& list)
{
    CData& data = _GetData(analysis);
    // A template is never on: a list that says so is no change.
    for (CParameter& parameter : list)
        parameter.SetOn(parameter.IsOn() && !parameter.IsTemplate());
    if (!SortAndCompare(list, data.GetParameters()))
        return false;
    if (data.SetParameters(list))
        Announce(analysis, EPreferencesChange::Parameters);
    return true;
}

bool CAnalysisPreferencesManager::SetDataStatistics(EAnalysis analysis, std::vector<CParameter>& list)
{
    CData& data = _GetData(analysis);
    if (!SortAndCompare(list, data.GetStatistics()))
        return false;
    if (data.SetStatistics(list))
        Announce(analysis, EPreferencesChange::Statistics);
    return true;
}

bool CAnalysisPreferencesManager::SetDataOutputs(EAnalysis analysis, std::vector<CParameter>& list)
{
    CData& data = _GetData(analysis);
    if (!SortAndCompare(list, data.GetOutputs()))
        return false;
    if (data.SetOutputs(list))
        Announce(analysis, EPreferencesChange::Outputs);
    return true;
}

bool CAnalysisPreferencesManager::SetDataParameterOn(EAnalysis analysis, int id, bool on)
{
    CData& data = At(m_data, analysis, u"SetDataParameterOn");
    const bool before = data.IsParameterOn(id);
    const bool done = data.SetParameterOn(id, on);
    if (data.IsParameterOn(id) != before)
        Announce(analysis, EPreferencesChange::Parameters);
    return done;
}

bool CAnalysisPreferencesManager::SetDataPreprocessingNo(EAnalysis analysis, int number)
{
    CData& data = At(m_data, analysis, u"SetDataPreprocessingNo");
    const auto before = data.GetPreprocessingOption();
    const bool done = data.SetPreprocessingNo(number);
    if (data.GetPreprocessingOption() != before)
        Announce(analysis, EPreferencesChange::Parameters);
    return done;
}

bool CAnalysisPreferencesManager::SetBarChartConfig(EAnalysis analysis,
                                                    const CRoughnessData::SBarChartConfig& config)
{
    auto* const data = dynamic_cast<CRoughnessData*>(&_GetData(analysis));
    if (!data)
        return false;
    const CRoughnessData::SBarChartConfig before = data->GetBarChartConfig();
    data->SetBarChartConfig(config);
    if (data->GetBarChartConfig() != before)
        Announce(analysis, EPreferencesChange::Outputs);
    return true;
}

bool CAnalysisPreferencesManager::LoadData(EAnalysis analysis, CInifile& ini)
{
    const bool done = _GetData(analysis).Load(ini);
    if (done)
        AnnounceAll(analysis);
    return done;
}

bool CAnalysisPreferencesManager::SaveData(EAnalysis analysis, CInifile& ini)
{
    return _GetData(analysis).Save(ini);
}

bool CAnalysisPreferencesManager::Load(CInifile& ini)
{
    // Listeners are told when everything is as the file says, not in between.
    std::vector<EAnalysis> loaded;
    loaded.reserve(m_data.size());
    const auto announce = [&] {
        for (const EAnalysis analysis : loaded)
            AnnounceAll(analysis);
    };
    bool done = false;
    try {
        done = ForAll(ini, [&](EAnalysis analysis) {
            const bool success = _GetData(analysis).Load(ini);
            if (success)
                loaded.push_back(analysis);
            return success;
        });
    } catch (...) {
        announce();
        throw;
    }
    announce();
    return done;
}

bool CAnalysisPreferencesManager::Save(CInifile& ini) const
{
    return ForAll(ini, [&](EAnalysis analysis) { return At(m_data, analysis, u"Save").Save(ini); });
}

void CAnalysisPreferencesManager::Announce(EAnalysis analysis, EPreferencesChange kind) const
{
    m_changes.Invoke({analysis, kind});
}

void CAnalysisPreferencesManager::Announce(EAnalysis analysis, const CData::SDifferences& differences) const
{
    if (differences.parameters)
        Announce(analysis, EPreferencesChange::Parameters);
    if (differences.statistics)
        Announce(analysis, EPreferencesChange::Statistics);
    if (differences.outputs)
        Announce(analysis, EPreferencesChange::Outputs);
}

void CAnalysisPreferencesManager::AnnounceAll(EAnalysis analysis) const
{
    for (const auto kind :
         {EPreferencesChange::Parameters, EPreferencesChange::Statistics, EPreferencesChange::Outputs})
        Announce(analysis, kind);
}

CAnalysisPreferencesManager& GetAnalysisPreferencesManager()
{
    // Never destroyed, so that destructors of static objects may still save.
    static auto& manager = *new CAnalysisPreferencesManager;
    return manager;
}

} // namespace CommonUI

#include "model/RoughnessAnalysisPreferencesData.h"

#include "common/ini/SectionScope.h"
#include "common/Rollback.h"
#include "model/detail/CatalogueOrder.h"
#include "model/detail/OldPreferences.h"
#include "model/detail/ParameterGroups.h"
#include "model/detail/RoughnessNames.h"
#include "model/detail/SameNumber.h"
#include "model/Preference.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <tuple>

namespace CommonUI
{

template<>
const CEnum<ERoughnessParameters>& NamesOf()
{
    return GetRoughnessParametersEnum();
}

template<>
const CEnum<ERoughnessFormRemoval>& NamesOf()
{
    return GetRoughnessFormRemovalEnum();
}

template<>
const CEnum<ERoughnessReportOption>& NamesOf()
{
    return GetRoughnessReportOptionEnum();
}

template<>
const CEnum<EMUFUFilterType>& NamesOf()
{
    return GetMUFUFilterTypeEnum();
}

template<>
const CEnum<EMUFURobustSeed>& NamesOf()
{
    return GetMUFURobustSeedEnum();
}

template<>
const CEnum<EMUFUClosingCutOffRatio>& NamesOf()
{
    return GetMUFUClosingCutOffRatioEnum();
}

namespace
{

using CConfig = CRoughnessAnalysisPreferencesData::SBarChartConfig;

constexpr int c_mostBars = 1000;
constexpr std::u16string_view c_barChartPrefix = u"BarChart_";

constexpr auto BarChartTable(EAnalysis analysis)
{
    using enum ERoughnessParameters;
    constexpr CConfig c_byDefault;
    return std::tuple{
        SPreference{u"Parameter", &CConfig::parameter, analysis == EAnalysis::Roughness ? Sa : Iso4287Ra},
        SPreference{u"BarCount", &CConfig::barCount, c_byDefault.barCount},
        SPreference{u"AutoScale", &CConfig::autoScale, c_byDefault.autoScale},
        SPreference{u"Lower", &CConfig::lower, c_byDefault.lower},
        SPreference{u"Upper", &CConfig::upper, c_byDefault.upper},
        SPreference{u"LimitsOn", &CConfig::limitsOn, c_byDefault.limitsOn},
        SPreference{u"LowerLimit", &CConfig::lowerLimit, c_byDefault.lowerLimit},
        SPreference{u"UpperLimit", &CConfig::upperLimit, c_byDefault.upperLimit}};
}

bool SameConfig(const CConfig& a, const CConfig& b)
{
    return a.parameter == b.parameter && a.barCount == b.barCount && a.autoScale == b.autoScale &&
           SameNumber(a.lower, b.lower) && SameNumber(a.upper, b.upper) && a.limitsOn == b.limitsOn &&
           SameNumber(a.lowerLimit, b.lowerLimit) && SameNumber(a.upperLimit, b.upperLimit);
}

const CParameter* FindTemplate(const std::vector<CParameter>& parameters, int value)
{
    const auto found = std::find(parameters.begin(), parameters.end(), value);
    const bool isTemplate = found != parameters.end() && found->IsTemplate();
    return isTemplate ? &*found : nullptr;
}

} // namespace

struct CRoughnessAnalysisPreferencesData::SStored {
    using CData = CRoughnessAnalysisPreferencesData;

    static constexpr std::tuple c_table{
        SPreference{u"FormRemoval", &CData::m_formRemoval, ERoughnessFormRemoval::Line},
        SPreference{u"ReportOption", &CData::m_reportOption, ERoughnessReportOption::None},
        SPreference{u"MUFU_FilterType", &CData::m_mufuFilterType, EMUFUFilterType::RGR2},
        SPreference{u"MUFU_RobustSeed", &CData::m_mufuRobustSeed, EMUFURobustSeed::Closing},
        SPreference{u"MUFU_ClosingCutOffRatio", &CData::m_mufuRatio, EMUFUClosingCutOffRatio::Ratio2}};
};

CRoughnessAnalysisPreferencesData::CRoughnessAnalysisPreferencesData(EAnalysis analysis)
    : CAnalysisPreferencesData(analysis)
{
    InitOwn();
}

CRoughnessAnalysisPreferencesData::~CRoughnessAnalysisPreferencesData() = default;

void CRoughnessAnalysisPreferencesData::Init()
{
    CRollback rollback(*this);
    CAnalysisPreferencesData::Init();
    InitOwn();
    rollback.Commit();
}

void CRoughnessAnalysisPreferencesData::InitOwn()
{
    InitPreferences(*this, SStored::c_table);
    InitPreferences(m_barChart, BarChartTable(GetAnalysis()));
}

bool CRoughnessAnalysisPreferencesData::Save(CInifile& ini)
{
    const bool saved = CAnalysisPreferencesData::Save(ini);
    SavePreferences(*this, ini, SStored::c_table);
    SavePreferences(m_barChart, ini, BarChartTable(GetAnalysis()), c_barChartPrefix);
    return saved;
}

bool CRoughnessAnalysisPreferencesData::Load(CInifile& ini)
{
    CRollback rollback(*this);
    if (!CAnalysisPreferencesData::Load(ini))
        return false;
    LoadPreferences(*this, ini, SStored::c_table);
    LoadPreferences(m_barChart, ini, BarChartTable(GetAnalysis()), c_barChartPrefix);
    m_barChart.barCount = std::clamp(m_barChart.barCount, 1, c_mostBars);
    for (CParameter& parameter : EditParameters()) {
        if (!parameter.HasParent())
            continue;
        if (const CParameter* parent = FindTemplate(ViewParameters(), parameter.GetParentValue()))
            NameByVariables(parameter, *parent);
    }
    rollback.Commit();
    return true;
}

bool CRoughnessAnalysisPreferencesData::LoadOld(CInifile& ini)
{
    const std::optional<CStr> section = FindOldSection(ini, GetAnalysis());
    CRollback rollback(*this);
    if (!section || !CAnalysisPreferencesData::LoadOld(ini))
        return false;
    const CSectionScope scope(ini, *section);
    for (const SOldKey& row : GetOldKeys()) {
        if (row.target != EOldTarget::ReportOption || !row.IsOf(GetAnalysis()))
            continue;
        const int number = ini.ReadInt(row.key, static_cast<int>(m_reportOption));
        if (GetRoughnessReportOptionEnum().Find(number) != GetRoughnessReportOptionEnum().end())
            m_reportOption = static_cast<ERoughnessReportOption>(number);
        else
            WarnOfPreference(CStr::Format(u"%s: there is no %d", row.key, number));
    }
    rollback.Commit();
    return true;
}

std::unique_ptr<CAnalysisPreferencesData> CRoughnessAnalysisPreferencesData::Clone() const
{
    return std::make_unique<CRoughnessAnalysisPreferencesData>(*this);
}

bool CRoughnessAnalysisPreferencesData::Assign(const CAnalysisPreferencesData& other)
{
    if (const auto* same = dynamic_cast<const CRoughnessAnalysisPreferencesData*>(&other)) {
        if (same->GetAnalysis() != GetAnalysis())
            return false;
        *this = CRoughnessAnalysisPreferencesData(*same);
        SetModified();
        return true;
    }
    return CAnalysisPreferencesData::Assign(other);
}

CAnalysisPreferencesData::SDifferences
CRoughnessAnalysisPreferencesData::Compare(const CAnalysisPreferencesData& other) const
{
    SDifferences differences = CAnalysisPreferencesData::Compare(other);
    if (const auto* same = dynamic_cast<const CRoughnessAnalysisPreferencesData*>(&other)) {
        differences.parameters |=
            m_formRemoval != same->m_formRemoval || m_mufuFilterType != same->m_mufuFilterType ||
            m_mufuRobustSeed != same->m_mufuRobustSeed || m_mufuRatio != same->m_mufuRatio;
        differences.outputs |=
            m_reportOption != same->m_reportOption || !SameConfig(m_barChart, same->m_barChart);
    }
    return differences;
}

std::vector<SParameterGroup> CRoughnessAnalysisPreferencesData::GetGroups(FGetter getter, bool all) const
{
    std::vector<CParameter> entries;
    for (const SParameterGroup& group : CAnalysisPreferencesData::GetGroups(getter, all))
        entries.insert(entries.end(), group.parameters.begin(), group.parameters.end());

    std::vector<SParameterGroup> groups;
    for (const auto& standard : GetAnalysisStandardsEnum()) {
        SParameterGroup group{standard.GetFriendlyString(), standard.GetValue(), false, {}, {}};
        std::ranges::copy_if(entries, std::back_inserter(group.parameters), [&](const CParameter& entry) {
            return entry.GetStandard() == standard.GetValue();
        });
        if (group.parameters.empty() || !IsStandardEnabled(EAnalysisStandards{standard.GetValue()}))
            continue;
        group.subGroups = GroupByKind(group.parameters, GetRoughnessKinds(), group.standard);
        if (!group.subGroups.empty())
            group.parameters.clear();
        groups.push_back(std::move(group));
    }
    return groups;
}

std::vector<SParameterGroup> CRoughnessAnalysisPreferencesData::GetCurveGroups() const
{
    return GroupByKind(ViewOutputs(), GetRoughnessCurveKinds());
}

std::vector<SParameterGroup> CRoughnessAnalysisPreferencesData::GetOutputGroups() const
{
    constexpr int c_results = 9782;
    constexpr SGroupRow c_row = {static_cast<int>(ERoughnessOutputs::RoughnessChart),
                                 static_cast<int>(ERoughnessOutputs::ResultMainImage), c_results};
    std::vector<SParameterGroup> groups = GetCurveGroups();
    for (SParameterGroup& group : GroupByKind(ViewOutputs(), {&c_row, 1}))
        groups.push_back(std::move(group));
    return groups;
}

int CRoughnessAnalysisPreferencesData::AddParameter(int parent, const CParameter& parameter)
{
    const CParameter* const found = FindTemplate(ViewParameters(), parent);
    if (!found) {
        CParameter plugIn = parameter;
        // Only parameters of this standard are stored with their texts.
        plugIn.SetStandard(static_cast<int>(EAnalysisStandards::RoughnessPlugIns));
        return CAnalysisPreferencesData::AddParameter(parent, plugIn);
    }
    CParameter added(FindParameterMaxValue(), *found);
    for (std::size_t i = 0; i < std::min(added.GetVariableCount(), parameter.GetVariableCount()); ++i)
        added.GetVariable(i).SetVariableValue(parameter.GetVariable(i).GetVariableValue());
    added.SetOn(parameter.IsOn());
    added.SetUnitFactor(parameter.GetUnitFactor());
    added.SetFloatFormat(parameter.GetFloatFormat());
    NameByVariables(added, *found);
    SetParameter(added.GetValue(), added);
    return added.GetValue();
}

int CRoughnessAnalysisPreferencesData::AddTemplateInstance(ERoughnessParameters parent,
                                                           const std::vector<double>& values)
{
    const int value = static_cast<int>(parent);
    const CParameter* const found = FindTemplate(ViewParameters(), value);
    if (!found || found->GetVariableCount() != values.size())
        return CParameter::c_noParent;
    CParameter instance = *found;
    instance.SetOn(true);
    for (std::size_t i = 0; i < values.size(); ++i)
        instance.GetVariable(i).SetVariableValue(values[i]);
    return AddParameter(value, instance);
}

bool CRoughnessAnalysisPreferencesData::SetParameters(const std::vector<CParameter>& parameters)
{
    std::vector<CParameter> sorted = parameters;
    for (CParameter& parameter : sorted) {
        if (parameter.IsTemplate())
            parameter.SetOn(false);
    }
    SortByCatalogue(sorted, GetRoughnessParametersEnum());
    return CAnalysisPreferencesData::SetParameters(sorted);
}

void CRoughnessAnalysisPreferencesData::SetBarChartConfig(const SBarChartConfig& config)
{
    m_barChart = config;
    m_barChart.barCount = std::clamp(config.barCount, 1, c_mostBars);
    SetModified();
}

void CRoughnessAnalysisPreferencesData::SetFormRemoval(ERoughnessFormRemoval removal)
{
    m_formRemoval = removal;
    SetModified();
}

void CRoughnessAnalysisPreferencesData::SetReportOption(ERoughnessReportOption option)
{
    m_reportOption = option;
    SetModified();
}

void CRoughnessAnalysisPreferencesData::SetMUFUFilterType(EMUFUFilterType type)
{
    m_mufuFilterType = type;
    SetModified();
}

void CRoughnessAnalysisPreferencesData::SetMUFURobustSeed(EMUFURobustSeed seed)
{
    m_mufuRobustSeed = seed;
    SetModified();
}

void CRoughnessAnalysisPreferencesData::SetMUFUClosingCutOffRatio(EMUFUClosingCutOffRatio ratio)
{
    m_mufuRatio = ratio;
    SetModified();
}

} // namespace CommonUI

#include "model/GrainAnalysisPreferencesData.h"

#include "common/Rollback.h"
#include "model/detail/CatalogueOrder.h"
#include "model/detail/ParameterGroups.h"
#include "model/Preference.h"

#include <algorithm>
#include <cfloat>
#include <tuple>

namespace CommonUI
{

namespace
{

// In the order of EGrainHistograms; they follow the key of the quantity.
constexpr std::u16string_view c_histogramNames[] = {u"_HistNumber", u"_HistArea", u"_HistVolume"};
static_assert(std::size(c_histogramNames) == CParameter::c_histogramCount);

// What is stored of a histogram.
struct SStoredHistogram {
    bool minOn;
    double minVal;
    bool maxOn;
    double maxVal;
    int bins;
};

constexpr std::tuple c_histogramTable{SPreference{u"_MinOn", &SStoredHistogram::minOn, false},
                                      SPreference{u"_MinVal", &SStoredHistogram::minVal, -DBL_MAX},
                                      SPreference{u"_MaxOn", &SStoredHistogram::maxOn, false},
                                      SPreference{u"_MaxVal", &SStoredHistogram::maxVal, DBL_MAX},
                                      SPreference{u"_Bins", &SStoredHistogram::bins, 20}};

SStoredHistogram StoredOf(const CParameter::SHistogramSetup& setup)
{
    return {setup.lowerOn, setup.range.GetLower(), setup.upperOn, setup.range.GetUpper(), setup.classCount};
}

// The setup with what is stored of it replaced.
CParameter::SHistogramSetup SetupOf(const SStoredHistogram& stored, CParameter::SHistogramSetup setup)
{
    setup.lowerOn = stored.minOn;
    setup.upperOn = stored.maxOn;
    setup.range = {stored.minVal, stored.maxVal};
    setup.classCount = stored.bins;
    return setup;
}

bool IsClassCount(int count)
{
    return count >= 1 && count <= CGrainAnalysisPreferencesData::c_mostClasses;
}

// Calls `visit` with the name of each stored histogram of each quantity, its parameter and its index. Added
// parameters share their key with their quantity, so theirs are not stored.
template<class TList, class FVisit>
void ForEachHistogram(TList& parameters, FVisit visit)
{
    for (auto& parameter : parameters) {
        if (parameter.HasParent())
            continue;
        for (std::size_t i = 0; i < CParameter::c_histogramCount; ++i)
            visit(parameter.GetIniName() + c_histogramNames[i], parameter, i);
    }
}

} // namespace

CGrainAnalysisPreferencesData::CGrainAnalysisPreferencesData()
    : CAnalysisPreferencesData(EAnalysis::Measure)
{
    InitHistograms();
}

CGrainAnalysisPreferencesData::~CGrainAnalysisPreferencesData() = default;

void CGrainAnalysisPreferencesData::Init()
{
    CRollback rollback(*this);
    CAnalysisPreferencesData::Init();
    InitHistograms();
    rollback.Commit();
}

void CGrainAnalysisPreferencesData::InitHistograms()
{
    SStoredHistogram byDefault{};
    InitPreferences(byDefault, c_histogramTable);
    ForEachHistogram(EditParameters(), [&](const CStr&, CParameter& parameter, std::size_t i) {
        parameter.SetHistogramSetup(i, SetupOf(byDefault, parameter.GetHistogramSetup(i)));
    });
}

bool CGrainAnalysisPreferencesData::Save(CInifile& ini)
{
    CAnalysisPreferencesData::Save(ini);
    ForEachHistogram(ViewParameters(), [&](const CStr& name, const CParameter& parameter, std::size_t i) {
        SavePreferences(StoredOf(parameter.GetHistogramSetup(i)), ini, c_histogramTable, name);
    });
    return true;
}

bool CGrainAnalysisPreferencesData::Load(CInifile& ini)
{
    CRollback rollback(*this);
    if (!CAnalysisPreferencesData::Load(ini))
        return false;
    ForEachHistogram(EditParameters(), [&](const CStr& name, CParameter& parameter, std::size_t i) {
        const CParameter::SHistogramSetup before = parameter.GetHistogramSetup(i);
        SStoredHistogram stored = StoredOf(before);
        LoadPreferences(stored, ini, c_histogramTable, name);
        if (!IsClassCount(stored.bins)) {
            WarnOfPreference(CStr::Format(u"%s_Bins: not a count of classes: %d", name, stored.bins));
            stored.bins = before.classCount;
        }
        parameter.SetHistogramSetup(i, SetupOf(stored, before));
    });
    rollback.Commit();
    return true;
}

std::unique_ptr<CAnalysisPreferencesData> CGrainAnalysisPreferencesData::Clone() const
{
    return std::make_unique<CGrainAnalysisPreferencesData>(*this);
}

std::vector<SParameterGroup> CGrainAnalysisPreferencesData::GetGroups(FGetter getter, bool all) const
{
    const std::vector<SParameterGroup> ungrouped = CAnalysisPreferencesData::GetGroups(getter, all);
    return GroupByKind(ungrouped.front().parameters, GetMeasureKinds());
}

std::vector<SParameterGroup> CGrainAnalysisPreferencesData::GetStatisticGroups() const
{
    return GroupByKind(ViewStatistics(), GetStatisticKinds());
}

std::vector<SParameterGroup> CGrainAnalysisPreferencesData::GetOutputGroups() const
{
    return GroupByKind(ViewOutputs(), GetMeasureKinds());
}

int CGrainAnalysisPreferencesData::AddParameter(int parent, const CParameter& parameter)
{
    const auto found = std::find(ViewParameters().begin(), ViewParameters().end(), parent);
    if (found == ViewParameters().end() || found->HasParent())
        return CParameter::c_noParent;
    CParameter added(FindParameterMaxValue(), *found);
    added.SetOn(parameter.IsOn());
    added.SetUnitFactor(parameter.GetUnitFactor());
    added.SetFloatFormat(parameter.GetFloatFormat());
    SetParameter(added.GetValue(), added);
    return added.GetValue();
}

bool CGrainAnalysisPreferencesData::SetParameters(const std::vector<CParameter>& parameters)
{
    std::vector<CParameter> sorted = parameters;
    SortByCatalogue(sorted, GetMeasureParametersEnum());
    return CAnalysisPreferencesData::SetParameters(sorted);
}

CParameter::SHistogramSetup CGrainAnalysisPreferencesData::GetHistogramSetup(EMeasureParameters quantity,
                                                                             EGrainHistograms histogram) const
{
    return GetParameter(static_cast<int>(quantity)).GetHistogramSetup(static_cast<std::size_t>(histogram));
}

bool CGrainAnalysisPreferencesData::SetHistogramSetup(EMeasureParameters quantity, EGrainHistograms histogram,
                                                      const CParameter::SHistogramSetup& setup)
{
    std::vector<CParameter>& parameters = EditParameters();
    const auto found = std::find(parameters.begin(), parameters.end(), static_cast<int>(quantity));
    if (found == parameters.end() || !IsClassCount(setup.classCount))
        return false;
    found->SetHistogramSetup(static_cast<std::size_t>(histogram), setup);
    SetModified();
    return true;
}

} // namespace CommonUI

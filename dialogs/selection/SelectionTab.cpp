#include "dialogs/selection/SelectionTab.h"

#include "common/StringTable.h"
#include "dialogs/selection/detail/SelectionTexts.h"
#include "model/RoughnessAnalysisPreferencesData.h"
#include "output/results/NumberFormat.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

using ETab = ESelectionTab;
using EColumn = ESelectionColumn;
using EOption = ESelectionOption;

bool HasAny(const CAnalysisPreferencesData& data, std::initializer_list<EOption> options)
{
    return std::ranges::any_of(options, [&](EOption option) { return HasSelectionOption(data, option); });
}

// What is in no groups is called as its tab.
std::vector<SParameterGroup> Named(std::vector<SParameterGroup> groups, ETab tab)
{
    if (groups.size() == 1)
        groups[0].name = GetSelectionTabName(tab);
    return groups;
}

// What of the outputs is no curve.
std::vector<SParameterGroup> WithoutCurves(const CRoughnessAnalysisPreferencesData& data)
{
    std::vector<SParameterGroup> groups = data.GetOutputGroups();
    const std::size_t curves = data.GetCurveGroups().size();
    groups.erase(groups.begin(), groups.begin() + static_cast<std::ptrdiff_t>(curves));
    return groups;
}

// The count means nothing for integers.
CStr FormatOf(const CParameter& entry)
{
    const CParameter::SFormatSpecifier& format = entry.GetFloatFormat();
    return format.type == CParameter::EFormatSpecifier::FormatInteger
               ? GetFormatSpecifierEnum().GetFriendlyString(static_cast<int>(format.type))
               : GenerateNumberFormatText(format);
}

// The classes of the three histograms, which are those of the quantity of the same number.
CStr ClassesOf(int quantity, const CAnalysisPreferencesData& data)
{
    const std::vector<int> ids = data.GetParameterIDs();
    if (std::ranges::find(ids, quantity) == ids.end())
        return {};
    const CParameter parameter = data.GetParameter(quantity);
    CStr counts;
    for (std::size_t i = 0; i < CParameter::c_histogramCount; ++i)
        counts += CStr::Format(i == 0 ? u"%d" : u", %d", parameter.GetHistogramSetup(i).classCount);
    return CStr::Format(GetString(SelectionText::c_classesAre), counts);
}

CStr SettingOf(const CParameter& entry, ETab tab, const CAnalysisPreferencesData& data)
{
    if (tab == ETab::Outputs)
        return ClassesOf(entry.GetValue(), data);
    return entry == static_cast<int>(EStatistics::Fractile)
               ? CStr::Format(u"%.10G %%", entry.GetVariableValue())
               : CStr();
}

} // namespace

std::vector<ETab> GetSelectionTabs(const SSelectionSubject& subject)
{
    const CAnalysisPreferencesData& data = subject.selection.GetData();
    const bool isRoughness = IsRoughness(data.GetAnalysis());
    std::vector<ETab> tabs{ETab::Parameters};
    if (isRoughness)
        tabs.push_back(ETab::Curves);
    tabs.insert(tabs.end(), {ETab::Statistics, ETab::Outputs});
    if (HasAny(data, {EOption::Preprocessing, EOption::FormRemoval}))
        tabs.push_back(ETab::Preprocessing);
    if (isRoughness)
        tabs.push_back(ETab::BarChart);
    if (subject.grains && data.GetAnalysis() == EAnalysis::Measure)
        tabs.push_back(ETab::Grains);
    return tabs;
}

CStr GetSelectionTabName(ETab tab)
{
    return GetString(SelectionText::c_firstTab + static_cast<int>(tab));
}

ESelectionList GetSelectionList(ETab tab)
{
    if (tab == ETab::Parameters)
        return ESelectionList::Parameters;
    return tab == ETab::Statistics ? ESelectionList::Statistics : ESelectionList::Outputs;
}

std::vector<SParameterGroup> GetSelectionGroups(ETab tab, const CAnalysisPreferencesData& data)
{
    const auto* const roughness = dynamic_cast<const CRoughnessAnalysisPreferencesData*>(&data);
    switch (tab) {
    case ETab::Parameters:
        return data.GetParameterGroups(true);
    case ETab::Curves:
        return roughness ? roughness->GetCurveGroups() : std::vector<SParameterGroup>();
    case ETab::Statistics:
        return Named(data.GetStatisticGroups(), tab);
    case ETab::Outputs:
        return roughness ? WithoutCurves(*roughness) : Named(data.GetOutputGroups(), tab);
    default:
        return {};
    }
}

std::vector<EColumn> GetSelectionColumns(ETab tab, EAnalysis analysis)
{
    switch (tab) {
    case ETab::Parameters:
        return {EColumn::Name, EColumn::Unit, EColumn::Format};
    case ETab::Curves:
        return {EColumn::Name};
    case ETab::Statistics:
        return {EColumn::Name, EColumn::Setting};
    case ETab::Outputs:
        return analysis == EAnalysis::Measure ? std::vector{EColumn::Name, EColumn::Setting}
                                              : std::vector{EColumn::Name};
    default:
        return {};
    }
}

CStr GetSelectionColumnName(EColumn column)
{
    return GetString(SelectionText::c_firstColumn + static_cast<int>(column));
}

CStr GetSelectionText(const CParameter& entry, EColumn column, ETab tab, const SSelectionSubject& subject)
{
    switch (column) {
    case EColumn::Name:
        return entry.GetFriendlyString();
    case EColumn::Unit:
        return entry.GetScaledUnitStr(subject.units);
    case EColumn::Format:
        return FormatOf(entry);
    default:
        return SettingOf(entry, tab, subject.selection.GetData());
    }
}

CStr GetSelectionToolTip(const CParameter& entry, ESelectionMark mark, const SBase3D<CUnit>& units)
{
    CStr text = entry.GetFriendlyString();
    const auto add = [&text](const CStr& line) { text += u"\n" + line; };
    if (entry.GetStandard() != static_cast<int>(EAnalysisStandards::None)) {
        const CStr standard = GetAnalysisStandardsEnum().GetFriendlyString(entry.GetStandard());
        add(CStr::Format(GetString(SelectionText::c_standardIs), standard));
    }
    if (const CStr unit = entry.GetScaledUnitStr(units); !unit.IsEmpty())
        add(CStr::Format(GetString(SelectionText::c_unitIs), unit));
    if (entry.IsTemplate())
        add(GetString(SelectionText::c_isTemplate));
    if (mark != ESelectionMark::None)
        add(GetString(SelectionText::c_firstMark + static_cast<int>(mark) - 1));
    return text;
}

} // namespace CommonUI

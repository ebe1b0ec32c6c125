#include "dialogs/selection/TabOptions.h"

#include "common/StringTable.h"
#include "dialogs/selection/detail/SelectionTexts.h"
#include "model/Enumerations.h"
#include "model/RoughnessAnalysisPreferencesData.h"

#include <algorithm>
#include <cfloat>
#include <limits>
#include <span>

namespace CommonUI
{

namespace
{

using ETab = ESelectionTab;
using EOption = ESelectionOption;
using EKind = SDialogOption::EKind;
using EThreshold = Analysis::EGrainThreshold;
using CData = CAnalysisPreferencesData;

constexpr struct {
    EOption option;
    ETab tab;
} c_tabs[] = {
    {EOption::HeightUnit, ETab::Outputs},          {EOption::WriteToFile, ETab::Outputs},
    {EOption::WriteToDB, ETab::Outputs},           {EOption::Report, ETab::Outputs},
    {EOption::Preprocessing, ETab::Preprocessing}, {EOption::FormRemoval, ETab::Preprocessing},
    {EOption::MufuFilter, ETab::Preprocessing},    {EOption::MufuSeed, ETab::Preprocessing},
    {EOption::MufuRatio, ETab::Preprocessing},     {EOption::BarParameter, ETab::BarChart},
    {EOption::BarCount, ETab::BarChart},           {EOption::BarAutoScale, ETab::BarChart},
    {EOption::BarLower, ETab::BarChart},           {EOption::BarUpper, ETab::BarChart},
    {EOption::BarLimitsOn, ETab::BarChart},        {EOption::BarLowerLimit, ETab::BarChart},
    {EOption::BarUpperLimit, ETab::BarChart},
};

void AddChoice(SDialogOption& option, const CStr& text, double number, double chosen)
{
    if (number == chosen)
        option.value = static_cast<int>(option.choices.size());
    option.choices.push_back(text);
    option.numbers.push_back(number);
}

template<class T>
void AddEnum(SDialogOption& option, const CEnum<T>& names, double chosen)
{
    for (const auto& row : names)
        AddChoice(option, row.GetFriendlyString(), row.GetValue(), chosen);
}

void AddTexts(SDialogOption& option, int first, int count, double chosen)
{
    for (int i = 0; i < count; ++i)
        AddChoice(option, GetString(first + i), i, chosen);
}

void AddUnits(SDialogOption& option, const SSelectionSubject& subject, double chosen)
{
    for (const auto& [factor, text] : GetScalings(CParameter::EDimension::LengthZ, subject.units))
        AddChoice(option, text, static_cast<double>(factor), chosen);
}

// What the chart can show: all parameters that are computed by themselves.
void AddParameters(SDialogOption& option, const CData& data, double chosen)
{
    for (const CParameter& parameter : data.GetParameters())
        if (!parameter.IsTemplate() && !parameter.HasParent() &&
            parameter != static_cast<int>(ERoughnessParameters::PlugIn))
            AddChoice(option, parameter.GetFriendlyString(), parameter.GetValue(), chosen);
}

void SetNumber(SDialogOption& option, double number)
{
    if (!option.unit.IsEmpty())
        option.label = CStr::Format(GetString(SelectionText::c_labelWithUnit), option.label, option.unit);
    option.text = ShowOptionNumber(option, number);
}

// A bound of the chart, in the unit of the parameter that it shows.
void SetBound(SDialogOption& option, const SSelectionSubject& subject, double number)
{
    const CData& data = subject.selection.GetData();
    const int id = static_cast<int>(GetSelectionOption(data, EOption::BarParameter));
    const std::vector<int> ids = data.GetParameterIDs();
    option.kind = EKind::Number;
    option.lower = -DBL_MAX;
    option.upper = DBL_MAX;
    if (std::ranges::find(ids, id) != ids.end()) {
        const CParameter parameter = data.GetParameter(id);
        option.factor = 1 / parameter.CalcFactor();
        option.unit = parameter.GetScaledUnitStr(subject.units);
    }
    SetNumber(option, number);
    const bool isLimit = option.id == static_cast<int>(EOption::BarLowerLimit) ||
                         option.id == static_cast<int>(EOption::BarUpperLimit);
    option.enabled = isLimit ? GetSelectionOption(data, EOption::BarLimitsOn) != 0
                             : GetSelectionOption(data, EOption::BarAutoScale) == 0;
}

void SetValue(SDialogOption& option, EOption what, const SSelectionSubject& subject)
{
    const CData& data = subject.selection.GetData();
    const double number = GetSelectionOption(data, what);
    option.kind = EKind::Choice;
    switch (what) {
    case EOption::HeightUnit:
        return AddUnits(option, subject, number);
    case EOption::Preprocessing:
        return AddTexts(option, SelectionText::c_firstPreprocessing, 4, number);
    case EOption::FormRemoval:
        return AddEnum(option, GetRoughnessFormRemovalEnum(), number);
    case EOption::MufuFilter:
        return AddEnum(option, GetMUFUFilterTypeEnum(), number);
    case EOption::MufuSeed:
        return AddEnum(option, GetMUFURobustSeedEnum(), number);
    case EOption::MufuRatio:
        return AddEnum(option, GetMUFUClosingCutOffRatioEnum(), number);
    case EOption::Report:
        return AddEnum(option, GetRoughnessReportOptionEnum(), number);
    case EOption::BarParameter:
        return AddParameters(option, data, number);
    case EOption::BarCount:
        option.kind = EKind::Number;
        option.lower = 1;
        option.upper = 1000;
        option.whole = true;
        return SetNumber(option, number);
    case EOption::BarLower:
    case EOption::BarUpper:
    case EOption::BarLowerLimit:
    case EOption::BarUpperLimit:
        return SetBound(option, subject, number);
    default:
        option.kind = EKind::Check;
        option.value = number != 0 ? 1 : 0;
    }
}

SDialogOption MakeOption(EOption what, const SSelectionSubject& subject)
{
    SDialogOption option{.id = static_cast<int>(what)};
    option.label = GetString(SelectionText::c_firstOption + option.id);
    SetValue(option, what, subject);
    if (const ESelectionMark mark = subject.selection.GetMark(what); mark != ESelectionMark::None)
        option.remark = GetString(SelectionText::c_firstMark + static_cast<int>(mark) - 1);
    return option;
}

SDialogOption MakeGrainOption(EGrainOption what, int label)
{
    return {.id = static_cast<int>(what), .label = GetString(label)};
}

SDialogOption MakeGrainNumber(EGrainOption what, int label, double number, const CStr& unit, double factor,
                              double lower, double upper)
{
    SDialogOption option = MakeGrainOption(what, label);
    option.kind = EKind::Number;
    option.unit = unit;
    option.factor = factor;
    option.lower = lower;
    option.upper = upper;
    SetNumber(option, number);
    return option;
}

std::vector<SDialogOption> MakeGrainOptions(const SGrainThresholdSettings& settings)
{
    constexpr double c_most = std::numeric_limits<int>::max();
    const bool isHeight = settings.threshold == EThreshold::Absolute;
    SDialogOption kind = MakeGrainOption(EGrainOption::Kind, SelectionText::c_grainKind);
    kind.kind = EKind::Choice;
    AddEnum(kind, GetGrainKindEnum(), static_cast<double>(settings.kind));
    SDialogOption threshold = MakeGrainOption(EGrainOption::Threshold, SelectionText::c_grainThreshold);
    threshold.kind = EKind::Choice;
    AddEnum(threshold, GetGrainThresholdEnum(), static_cast<double>(settings.threshold));
    SDialogOption value = MakeGrainNumber(EGrainOption::Value, SelectionText::c_grainValue, settings.value,
                                          isHeight ? u"nm" : u"%", isHeight ? 1e-9 : 1,
                                          isHeight ? -DBL_MAX : 0, isHeight ? DBL_MAX : 100);
    value.enabled = settings.threshold != EThreshold::Otsu;
    const SDialogOption area = MakeGrainNumber(EGrainOption::MinimumArea, SelectionText::c_grainArea,
                                               settings.minimumArea, u"µm²", 1e-12, 0, DBL_MAX);
    SDialogOption points = MakeGrainNumber(EGrainOption::MinimumPoints, SelectionText::c_grainPoints,
                                           settings.minimumPoints, {}, 1, 1, c_most);
    points.whole = true;
    SDialogOption edge = MakeGrainOption(EGrainOption::IncludeEdge, SelectionText::c_grainEdge);
    edge.value = settings.includeEdgeGrains ? 1 : 0;
    return {kind, threshold, value, area, points, edge};
}

} // namespace

std::vector<EOption> GetTabOptions(ETab tab, const CData& data)
{
    std::vector<EOption> options;
    for (const auto& row : c_tabs)
        if (row.tab == tab && HasSelectionOption(data, row.option))
            options.push_back(row.option);
    return options;
}

std::vector<SDialogOption> MakeTabOptions(ETab tab, const SSelectionSubject& subject)
{
    if (tab == ETab::Grains)
        return subject.grains ? MakeGrainOptions(*subject.grains) : std::vector<SDialogOption>();
    std::vector<SDialogOption> options;
    for (const EOption option : GetTabOptions(tab, subject.selection.GetData()))
        options.push_back(MakeOption(option, subject));
    return options;
}

void SetGrainOption(SGrainThresholdSettings& settings, EGrainOption option, double number)
{
    const auto isHeight = [&settings] { return settings.threshold == EThreshold::Absolute; };
    const bool wasHeight = isHeight();
    switch (option) {
    case EGrainOption::Kind:
        settings.kind = static_cast<Analysis::EGrainKind>(static_cast<int>(number));
        break;
    case EGrainOption::Threshold:
        settings.threshold = static_cast<EThreshold>(static_cast<int>(number));
        if (isHeight() != wasHeight)
            settings.value = isHeight() ? 0 : SGrainThresholdSettings().value;
        break;
    case EGrainOption::Value:
        settings.value = number;
        break;
    case EGrainOption::MinimumArea:
        settings.minimumArea = number;
        break;
    case EGrainOption::MinimumPoints:
        settings.minimumPoints = static_cast<int>(number);
        break;
    case EGrainOption::IncludeEdge:
        settings.includeEdgeGrains = number != 0;
    }
}

} // namespace CommonUI

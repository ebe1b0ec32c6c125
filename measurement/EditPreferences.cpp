#include "measurement/EditPreferences.h"

#include "common/NumberText.h"
#include "measurement/detail/AddFromTemplate.h"
#include "measurement/Request.h"
#include "model/selection/AnalysisSelection.h"
#include "model/selection/TemplateInputs.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Measurement
{

using EFormat = CParameter::EFormatSpecifier;
using CList = std::vector<CParameter>;

namespace
{

constexpr EAnalysis c_analyses[] = {EAnalysis::Roughness,        EAnalysis::RoughnessProfile,
                                    EAnalysis::Measure,          EAnalysis::Calibration1D,
                                    EAnalysis::CalibrationXY,    EAnalysis::CalibrationZ,
                                    EAnalysis::CrossCorrelation, EAnalysis::Linearity,
                                    EAnalysis::PlaneCorrection,  EAnalysis::Tip};

// A change taken apart: `subject.aspect=value:arguments`.
struct SChange {
    CStr text; // as given, for messages
    CStr subject{};
    CStr aspect{}; // "unit", "format", or empty
    CStr value{};
    std::vector<CStr> arguments{};
    bool statistic = false; // the subject is a statistic for sure

    [[noreturn]] void Fail(const CStr& reason) const { throw ERequest(text, reason); }
};

SChange ParseChange(const CStr& text)
{
    constexpr std::u16string_view c_statistic = u"statistic.";
    SChange change{.text = text};
    std::u16string_view left = text.View().substr(0, text.Find(u'='));
    if (left.size() == text.GetLength())
        change.Fail(u"it has the form KEY=VALUE");
    const std::vector<CStr> right = text.Mid(left.size() + 1).Split(u":");
    change.value = right.front();
    if (right.size() > 1)
        change.arguments = right[1].Split(u",");
    if (right.size() > 2)
        change.Fail(u"it has one colon too many");
    change.statistic = left.starts_with(c_statistic);
    if (change.statistic)
        left.remove_prefix(c_statistic.size());
    for (const std::u16string_view aspect : {u".unit", u".format"}) {
        if (left.ends_with(aspect)) {
            change.aspect = aspect.substr(1);
            left.remove_suffix(aspect.size());
        }
    }
    change.subject = left;
    return change;
}

// False for a number that is none.
bool IsWithin(double number, double lower, double upper)
{
    return lower <= number && number <= upper;
}

bool OnOff(const SChange& change)
{
    if (change.value != u"on" && change.value != u"off")
        change.Fail(u"the value is on or off");
    return change.value == u"on";
}

std::vector<double> Numbers(const SChange& change)
{
    std::vector<double> numbers;
    for (const CStr& argument : change.arguments) {
        if (!ParseDouble(argument, numbers.emplace_back()) || !std::isfinite(numbers.back()))
            change.Fail(u"\"" + argument + u"\" is no number");
    }
    return numbers;
}

void RefuseArguments(const SChange& change)
{
    if (!change.arguments.empty())
        change.Fail(u"it takes no values");
}

CParameter::SFormatSpecifier FormatOf(const SChange& change, CParameter::SFormatSpecifier format)
{
    const auto& kinds = GetFormatSpecifierEnum();
    const auto kind = std::ranges::find(kinds, change.value, &CEnumValue<int>::GetFriendlyString);
    if (kind == kinds.end())
        change.Fail(u"the format is Decimals, Digits or Integer");
    format.type = static_cast<EFormat>(kind->GetValue());
    const std::vector<double> counts = Numbers(change);
    if (counts.empty())
        return format;
    if (counts.size() > 1 || !IsWithin(counts[0], 1, 12) || counts[0] != std::floor(counts[0]))
        change.Fail(u"the count of a format is 1 to 12");
    format.count = static_cast<int>(counts[0]);
    return format;
}

CUnit::EUnitFactor UnitOf(const SChange& change, const CParameter& parameter)
{
    RefuseArguments(change);
    const CUnit metre(CUnit::EUnitFactor::Unity);
    if (CParameter::GetScalingsList(parameter.GetDimension(), {metre, metre, metre}).empty())
        change.Fail(u"the parameter is no length, area or volume");
    CUnit unit;
    if (!CUnit::ParseLength(change.value, unit))
        change.Fail(u"\"" + change.value + u"\" is no unit of length");
    return unit.GetFactor();
}

// The values of a template's variables.
std::vector<double> VariableValues(const SChange& change, const CParameter& parent)
{
    std::vector<double> values = Numbers(change);
    const auto fault = CheckInputs(parent, values);
    if (!fault)
        return values;
    if (fault->kind == EInputFault::Count)
        change.Fail(CStr::Format(u"it takes %d values", parent.GetVariableCount()));
    const CStr quoted = u"\"" + change.arguments[fault->index] + u"\"";
    if (fault->kind == EInputFault::Order)
        change.Fail(quoted + u" is not above \"" + change.arguments[fault->index - 1] + u"\"");
    change.Fail(quoted + u" is no percentage, 0 to 100");
}

// Switches a template's parameters: one with the values on, or all of them off for good.
void EditTemplate(CAnalysisSelection& selection, const CParameter& parent, const SChange& change)
{
    if (OnOff(change)) {
        if (selection.AddInstance(parent.GetValue(), VariableValues(change, parent)) ==
            CParameter::c_noParent)
            change.Fail(u"no parameter can be made from it");
        return;
    }
    RefuseArguments(change);
    for (const CParameter& parameter : selection.GetList(ESelectionList::Parameters))
        if (parameter.GetParentValue() == parent.GetValue())
            selection.Remove(parameter.GetValue());
}

void EditEntry(CAnalysisSelection& selection, const CParameter& entry, const SChange& change)
{
    const int id = entry.GetValue();
    if (change.aspect == u"unit") {
        if (!selection.SetUnitFactor(id, UnitOf(change, entry)))
            change.Fail(u"\"" + change.value + u"\" is not among the units of parameters");
    } else if (change.aspect == u"format") {
        if (!selection.SetFormat(id, FormatOf(change, entry.GetFloatFormat())))
            change.Fail(u"the count of a format is 1 to 12");
    } else {
        selection.SetOn(ESelectionList::Parameters, id, OnOff(change));
    }
}

// @return whether the analysis has a parameter of the key
bool EditParameters(CAnalysisPreferencesManager& manager, EAnalysis analysis, const SChange& change)
{
    CAnalysisSelection selection(manager, analysis);
    const CList list = selection.GetList(ESelectionList::Parameters);
    const auto found = std::ranges::find(list, change.subject, &CParameter::GetIniName);
    if (found == list.end())
        return false;
    if (change.aspect.IsEmpty() && found->IsTemplate()) {
        EditTemplate(selection, *found, change);
    } else {
        if (change.aspect.IsEmpty())
            RefuseArguments(change);
        for (const CParameter& parameter : list)
            if (parameter.GetBaseValue() == found->GetBaseValue())
                EditEntry(selection, parameter, change);
    }
    selection.Commit();
    return true;
}

bool EditStatistics(CAnalysisPreferencesManager& manager, EAnalysis analysis, const SChange& change)
{
    CAnalysisSelection selection(manager, analysis);
    const CList list = selection.GetList(ESelectionList::Statistics);
    // The key of one statistic ends in a blank, which nobody types.
    const auto found = std::ranges::find_if(
        list, [&](const CParameter& p) { return p.GetIniName().TrimRight() == change.subject.TrimRight(); });
    if (found == list.end())
        return false;
    if (!change.aspect.IsEmpty())
        change.Fail(u"a statistic has no unit and no format");
    const bool on = OnOff(change);
    selection.SetOn(ESelectionList::Statistics, found->GetValue(), on);
    const std::vector<double> values = Numbers(change);
    const bool taken = values.empty() || (values.size() == 1 && on &&
                                          selection.SetStatisticValue(found->GetValue(), values[0]));
    if (!taken)
        change.Fail(u"only Fractile=on takes a value, 0 to 100");
    selection.Commit();
    return true;
}

// @return whether one of the analyses has what is edited
template<class FEdit>
bool EditAll(CAnalysisPreferencesManager& manager, const SChange& change, FEdit edit)
{
    bool found = false;
    for (const EAnalysis analysis : c_analyses)
        found |= edit(manager, analysis, change);
    return found;
}

} // namespace

STemplateValues AddFromTemplate(CAnalysisPreferencesManager& manager, const CStr& text)
{
    const std::size_t open = text.Find(u'(');
    SChange change{.text = text, .subject = text.Left(open), .value = u"on"};
    if (open == CStr::npos || text.View().back() != u')')
        change.Fail(u"it has the form KEY(VALUE,...)");
    change.arguments = text.Mid(open + 1, text.GetLength() - open - 2).Split(u",");
    if (!EditAll(manager, change, EditParameters))
        change.Fail(u"there is no parameter \"" + change.subject + u"\"");
    return {change.subject, Numbers(change)};
}

void EditPreferences(CAnalysisPreferencesManager& manager, const CStr& change)
{
    const SChange parsed = ParseChange(change);
    const bool found = (!parsed.statistic && EditAll(manager, parsed, EditParameters)) ||
                       EditAll(manager, parsed, EditStatistics);
    if (!found)
        parsed.Fail(u"there is no parameter or statistic \"" + parsed.subject + u"\"");
}

} // namespace CommonUI::Measurement

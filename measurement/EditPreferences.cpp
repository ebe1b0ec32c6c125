#include "measurement/EditPreferences.h"

#include "common/NumberText.h"
#include "measurement/detail/AddFromTemplate.h"
#include "measurement/Request.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Measurement
{

using EFormat = CParameter::EFormatSpecifier;
using CList = std::vector<CParameter>;

namespace
{

constexpr EAnalysis c_analyses[] = {EAnalysis::Roughness, EAnalysis::RoughnessProfile, EAnalysis::Measure};

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

bool IsPercentage(double number)
{
    return IsWithin(number, 0, 100);
}

// The values of a template's variables.
std::vector<double> VariableValues(const SChange& change, const CParameter& parent)
{
    std::vector<double> values = Numbers(change);
    if (values.size() != parent.GetVariableCount())
        change.Fail(CStr::Format(u"it takes %d values", parent.GetVariableCount()));
    for (std::size_t i = 0; i < values.size(); ++i) {
        const bool isShare = parent.GetVariable(i).GetDimension() == CParameter::EDimension::Percent;
        if (isShare && !IsPercentage(values[i]))
            change.Fail(u"\"" + change.arguments[i] + u"\" is no percentage, 0 to 100");
    }
    return values;
}

bool IsInstance(const CParameter& parameter, const CParameter& parent, const std::vector<double>& values)
{
    return parameter.GetParentValue() == parent.GetValue() &&
           std::ranges::equal(parameter.GetVariables(), values, {}, &CParameter::GetVariableValue);
}

// Switches a template's parameters: one with the values on, or all of them off for good.
void EditTemplate(CAnalysisPreferencesManager& manager, EAnalysis analysis, const CParameter& parent,
                  const SChange& change)
{
    CList list = manager.GetData(analysis).GetParameters();
    if (!OnOff(change)) {
        RefuseArguments(change);
        std::erase_if(list, [&](const CParameter& p) { return p.GetParentValue() == parent.GetValue(); });
        manager.SetDataParameters(analysis, list);
        return;
    }
    const std::vector<double> values = VariableValues(change, parent);
    const auto same =
        std::ranges::find_if(list, [&](const CParameter& p) { return IsInstance(p, parent, values); });
    if (same != list.end()) {
        same->SetOn(true);
    } else {
        const auto copy = manager.GetData(analysis).Clone();
        auto* roughness = dynamic_cast<CRoughnessAnalysisPreferencesData*>(copy.get());
        const auto id = static_cast<ERoughnessParameters>(parent.GetValue());
        if (!roughness || roughness->AddTemplateInstance(id, values) == CParameter::c_noParent)
            change.Fail(u"no parameter can be made from it");
        list = roughness->GetParameters();
    }
    manager.SetDataParameters(analysis, list);
}

void EditEntry(CParameter& entry, const SChange& change)
{
    if (change.aspect == u"unit")
        entry.SetUnitFactor(UnitOf(change, entry));
    else if (change.aspect == u"format")
        entry.SetFloatFormat(FormatOf(change, entry.GetFloatFormat()));
    else
        entry.SetOn(OnOff(change));
}

// @return whether the analysis has a parameter of the key
bool EditParameters(CAnalysisPreferencesManager& manager, EAnalysis analysis, const SChange& change)
{
    CList list = manager.GetData(analysis).GetParameters();
    const auto found = std::ranges::find(list, change.subject, &CParameter::GetIniName);
    if (found == list.end())
        return false;
    if (change.aspect.IsEmpty() && found->IsTemplate()) {
        EditTemplate(manager, analysis, CParameter(*found), change);
        return true;
    }
    if (change.aspect.IsEmpty())
        RefuseArguments(change);
    const int base = found->GetBaseValue();
    for (CParameter& parameter : list) {
        if (parameter.GetBaseValue() == base)
            EditEntry(parameter, change);
    }
    manager.SetDataParameters(analysis, list);
    return true;
}

bool EditStatistics(CAnalysisPreferencesManager& manager, EAnalysis analysis, const SChange& change)
{
    CList list = manager.GetData(analysis).GetStatistics();
    // The key of one statistic ends in a blank, which nobody types.
    const auto found = std::ranges::find_if(
        list, [&](const CParameter& p) { return p.GetIniName().TrimRight() == change.subject.TrimRight(); });
    if (found == list.end())
        return false;
    if (!change.aspect.IsEmpty())
        change.Fail(u"a statistic has no unit and no format");
    found->SetOn(OnOff(change));
    const std::vector<double> values = Numbers(change);
    const bool isFractile = found->IsOn() && *found == static_cast<int>(EStatistics::Fractile);
    if (values.size() > (isFractile ? 1U : 0U) || (values.size() == 1 && !IsPercentage(values[0])))
        change.Fail(u"only Fractile=on takes a value, 0 to 100");
    if (values.size() == 1)
        found->SetVariableValue(values[0]);
    manager.SetDataStatistics(analysis, list);
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

#include "programs/surface_report/Preferences.h"

#include "common/NumberText.h"
#include "programs/surface_report/Reason.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <stdexcept>

namespace SurfaceReport
{

using namespace CommonUI;
using EFormat = CParameter::EFormatSpecifier;
using CList = std::vector<CParameter>;

namespace
{

constexpr EAnalysis c_analyses[] = {EAnalysis::Roughness, EAnalysis::RoughnessProfile, EAnalysis::Measure};

// A change taken apart: `subject.aspect=value:arguments`.
struct SChange {
    std::string text; // as given, for messages
    CStr subject{};
    std::string aspect{}; // "unit", "format", or empty
    std::string value{};
    std::vector<std::string> arguments{};
    bool statistic = false; // the subject is a statistic for sure

    [[noreturn]] void Fail(const std::string& reason) const { throw EUsage("--set " + text + ": " + reason); }
};

SChange ParseChange(const std::string& text)
{
    constexpr std::string_view statistic = "statistic.";
    SChange change{.text = text};
    std::string_view left = std::string_view(text).substr(0, text.find('='));
    if (left.size() == text.size())
        change.Fail("it has the form KEY=VALUE");
    const auto right = Split(std::string_view(text).substr(left.size() + 1), ':');
    change.value = right.front();
    if (right.size() > 1)
        change.arguments = Split(right[1], ',');
    if (right.size() > 2)
        change.Fail("it has one colon too many");
    change.statistic = left.starts_with(statistic);
    if (change.statistic)
        left.remove_prefix(statistic.size());
    for (const std::string_view aspect : {".unit", ".format"}) {
        if (left.ends_with(aspect)) {
            change.aspect = aspect.substr(1);
            left.remove_suffix(aspect.size());
        }
    }
    change.subject = CStr::FromUtf8(left);
    return change;
}

// False for a number that is none.
bool IsWithin(double number, double lower, double upper)
{
    return lower <= number && number <= upper;
}

bool OnOff(const SChange& change)
{
    if (change.value != "on" && change.value != "off")
        change.Fail("the value is on or off");
    return change.value == "on";
}

std::vector<double> Numbers(const SChange& change)
{
    std::vector<double> numbers;
    for (const std::string& argument : change.arguments) {
        if (!ParseDouble(CStr::FromUtf8(argument), numbers.emplace_back()) || !std::isfinite(numbers.back()))
            change.Fail("\"" + argument + "\" is no number");
    }
    return numbers;
}

void RefuseArguments(const SChange& change)
{
    if (!change.arguments.empty())
        change.Fail("it takes no values");
}

CParameter::SFormatSpecifier FormatOf(const SChange& change, CParameter::SFormatSpecifier format)
{
    const auto& kinds = GetFormatSpecifierEnum();
    const auto kind =
        std::ranges::find(kinds, CStr::FromUtf8(change.value), &CEnumValue<int>::GetFriendlyString);
    if (kind == kinds.end())
        change.Fail("the format is Decimals, Digits or Integer");
    format.type = static_cast<EFormat>(kind->GetValue());
    const std::vector<double> counts = Numbers(change);
    if (counts.empty())
        return format;
    if (counts.size() > 1 || !IsWithin(counts[0], 1, 12) || counts[0] != std::floor(counts[0]))
        change.Fail("the count of a format is 1 to 12");
    format.count = static_cast<int>(counts[0]);
    return format;
}

CUnit::EUnitFactor UnitOf(const SChange& change, const CParameter& parameter)
{
    RefuseArguments(change);
    const CUnit metre(CUnit::EUnitFactor::Unity);
    if (CParameter::GetScalingsList(parameter.GetDimension(), {metre, metre, metre}).empty())
        change.Fail("the parameter is no length, area or volume");
    return ParseUnit("--set " + change.text, change.value);
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
    const std::vector<double> values = Numbers(change);
    const auto same =
        std::ranges::find_if(list, [&](const CParameter& p) { return IsInstance(p, parent, values); });
    if (same != list.end()) {
        same->SetOn(true);
    } else {
        const auto copy = manager.GetData(analysis).Clone();
        auto* roughness = dynamic_cast<CRoughnessAnalysisPreferencesData*>(copy.get());
        const auto id = static_cast<ERoughnessParameters>(parent.GetValue());
        if (!roughness || roughness->AddTemplateInstance(id, values) == CParameter::c_noParent)
            change.Fail("it takes " + std::to_string(parent.GetVariableCount()) + " values");
        list = roughness->GetParameters();
    }
    manager.SetDataParameters(analysis, list);
}

void EditEntry(CParameter& entry, const SChange& change)
{
    if (change.aspect == "unit")
        entry.SetUnitFactor(UnitOf(change, entry));
    else if (change.aspect == "format")
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
    if (change.aspect.empty() && found->IsTemplate()) {
        EditTemplate(manager, analysis, CParameter(*found), change);
        return true;
    }
    if (change.aspect.empty())
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
    if (!change.aspect.empty())
        change.Fail("a statistic has no unit and no format");
    found->SetOn(OnOff(change));
    const std::vector<double> values = Numbers(change);
    const bool isFractile = found->IsOn() && *found == static_cast<int>(EStatistics::Fractile);
    if (values.size() > (isFractile ? 1U : 0U) || (values.size() == 1 && !IsWithin(values[0], 0, 100)))
        change.Fail("only Fractile=on takes a value, 0 to 100");
    if (values.size() == 1)
        found->SetVariableValue(values[0]);
    manager.SetDataStatistics(analysis, list);
    return true;
}

} // namespace

void EditPreferences(CAnalysisPreferencesManager& manager, const std::string& change)
{
    const SChange parsed = ParseChange(change);
    const auto editAll = [&](auto edit) {
        bool found = false;
        for (const EAnalysis analysis : c_analyses)
            found |= edit(manager, analysis, parsed);
        return found;
    };
    const bool found = (!parsed.statistic && editAll(EditParameters)) || editAll(EditStatistics);
    if (!found)
        parsed.Fail("there is no parameter or statistic \"" + parsed.subject.ToUtf8() + "\"");
}

CPreferencesFile::CPreferencesFile(const SOptions& options)
{
    if (options.preferences.empty())
        return;
    m_ini.SetFileName(options.preferences.u16string());
    const bool exists = std::filesystem::exists(options.preferences);
    if (const CReason reason; exists && !m_ini.Load())
        reason.Fail();
    m_factory.Load(m_ini);
    m_ini.SelectSection(c_section);
    if (exists)
        m_manager.Load(m_ini);
    for (const std::string& change : options.sets)
        EditPreferences(m_manager, change);
    m_usesSettings = !options.settings.empty();
    m_needsSaving = !exists || !options.sets.empty() || m_usesSettings;
}

void CPreferencesFile::Save()
{
    if (!m_needsSaving)
        return;
    m_manager.Save(m_ini);
    if (m_usesSettings)
        m_factory.Save(m_ini);
    if (const CReason reason; !m_ini.Save())
        reason.Fail();
}

} // namespace SurfaceReport

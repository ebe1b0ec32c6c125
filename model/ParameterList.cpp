#include "model/ParameterList.h"

#include "common/Diagnostics.h"
#include "common/ini/SectionScope.h"
#include "common/Rollback.h"
#include "model/detail/FreeNumbers.h"
#include "model/Enumerations.h"
#include "model/MeasureParameters.h"
#include "model/RoughnessCatalogue.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace CommonUI
{

namespace
{

using EDimension = CParameter::EDimension;
using EUnitFactor = CUnit::EUnitFactor;

constexpr std::u16string_view c_on = u"P_On";
constexpr std::u16string_view c_factor = u"P_Factor";
constexpr std::u16string_view c_format = u"_P_FloatFormat";
constexpr std::u16string_view c_size = u"_P_FloatSize";
constexpr std::u16string_view c_countKey = u"NumDynamicParameters";

// More digits than a double has would only show noise; no choice in the dialogs comes near.
constexpr int c_largestSize = 20;

// The number below which no dynamic parameter's lies: the largest that the analysis's catalogue has ever
// used.
int LargestCatalogueValue(EAnalysis analysis)
{
    if (IsRoughness(analysis))
        return 143;
    return analysis == EAnalysis::Measure ? 76 : 0;
}

// The key of a catalogue entry; empty for analyses without a catalogue.
CStr CatalogueKey(EAnalysis analysis, int value)
{
    if (IsRoughness(analysis))
        return GetRoughnessParametersEnum().GetIniName(value);
    return analysis == EAnalysis::Measure ? GetMeasureParametersEnum().GetIniName(value) : CStr();
}

template<class T>
std::optional<int> ValueOfKey(const CEnum<T>& catalogue, const CStr& key)
{
    const auto found = catalogue.FindIniName(key);
    return found == catalogue.end() ? std::nullopt : std::optional<int>(found->GetValue());
}

constexpr std::u16string_view c_dynamicEnd = u"_DynamicParameters";

std::optional<int> CatalogueValue(EAnalysis analysis, const CStr& key)
{
    if (IsRoughness(analysis))
        return ValueOfKey(GetRoughnessParametersEnum(), key);
    return analysis == EAnalysis::Measure ? ValueOfKey(GetMeasureParametersEnum(), key) : std::nullopt;
}

void Warn(const CStr& text)
{
    GetDiagnostics().Write(u"Parameters", EDiagnosticLevel::Warning, text);
}

CStr DynamicSection(const CInifile& ini)
{
    return ini.GetSection() + c_dynamicEnd;
}

void WriteFormat(const CParameter& parameter, CInifile& ini, const CStr& prefix)
{
    const CParameter::SFormatSpecifier& format = parameter.GetFloatFormat();
    ini.WriteText(prefix + c_format, GetFormatSpecifierEnum().GetIniName(static_cast<int>(format.type)));
    ini.WriteInt(prefix + c_size, format.count);
}

// The value whose name a key has; `byDefault` where the key is missing or the name unknown, which then stays
// until another value is written.
template<class T>
T ReadName(CInifile& ini, const CStr& key, const CEnum<T>& names, T byDefault)
{
    if (!ini.HasKey(key))
        return byDefault;
    const CStr name = ini.ReadText(key);
    const auto found = names.FindIniName(name);
    if (found != names.end())
        return static_cast<T>(found->GetValue());
    Warn(CStr::Format(u"%s: there is no \"%s\"", key, name));
    ini.KeepUnknown(key, names.GetIniName(static_cast<int>(byDefault)));
    return byDefault;
}

void ReadFormat(CParameter& parameter, CInifile& ini, const CStr& prefix)
{
    CParameter::SFormatSpecifier format = parameter.GetFloatFormat();
    format.type = ReadName(ini, prefix + c_format, GetFormatSpecifierEnum(), format.type);
    const int size = ini.ReadInt(prefix + c_size, format.count);
    if (size >= 0 && size <= c_largestSize)
        format.count = size;
    else
        Warn(CStr::Format(u"%s%s: %d digits cannot be shown", prefix, CStr(c_size), size));
    parameter.SetFloatFormat(format);
}

CStr FactorKey(const CParameter& parameter)
{
    return CUnit::GetUnitFactorEnum().GetIniName(static_cast<int>(parameter.GetUnitFactor()));
}

EUnitFactor ReadFactor(CInifile& ini, const CStr& key, EUnitFactor byDefault)
{
    return ReadName(ini, key, CUnit::GetUnitFactorEnum(), byDefault);
}

void SaveStatic(const CParameter& parameter, CInifile& ini)
{
    const CStr prefix = parameter.GetIniName();
    ini.WriteBool(prefix + u'_' + c_on, parameter.IsOn() && !parameter.IsTemplate());
    ini.WriteText(prefix + u'_' + c_factor, FactorKey(parameter));
    WriteFormat(parameter, ini, prefix);
}

void LoadStatic(CParameter& parameter, CInifile& ini)
{
    const CStr prefix = parameter.GetIniName();
    parameter.SetOn(ini.ReadBool(prefix + u'_' + c_on, parameter.IsOn()));
    parameter.SetUnitFactor(ReadFactor(ini, prefix + u'_' + c_factor, parameter.GetUnitFactor()));
    ReadFormat(parameter, ini, prefix);
    if (parameter.IsTemplate())
        parameter.SetOn(false);
}

CStr DynamicPrefix(int number)
{
    return CStr::Format(u"Dyn%d_", number);
}

void SaveDynamic(const CParameter& parameter, CInifile& ini, const CStr& prefix, EAnalysis analysis)
{
    std::vector<double> values;
    for (std::size_t i = 0; i < parameter.GetVariableCount(); ++i)
        values.push_back(parameter.GetVariable(i).GetVariableValue());
    ini.WriteText(prefix + u"ParentParam", CatalogueKey(analysis, parameter.GetParentValue()));
    ini.WriteInt(prefix + u"NumVariables", static_cast<int>(values.size()));
    ini.WriteDoubles(prefix + u"VariableValues", values);
    ini.WriteBool(prefix + c_on, parameter.IsOn());
    ini.WriteText(prefix + c_factor, FactorKey(parameter));
    // The format's suffixes begin with an underscore of their own, so there are two in these keys.
    WriteFormat(parameter, ini, prefix);
    if (parameter.GetStandard() != static_cast<int>(EAnalysisStandards::RoughnessPlugIns))
        return;
    ini.WriteInt(prefix + u"P_Dimension", static_cast<int>(parameter.GetDimension()));
    ini.WriteText(prefix + u"IniName", parameter.GetIniName());
    ini.WriteText(prefix + u"FriendlyName", parameter.GetFriendlyString());
    // Without a short text the parameter answers with the friendly one, which shall not become a text of its
    // own.
    const CStr shortText = parameter.GetShortFriendlyString();
    ini.WriteText(prefix + u"ShortFriendlyName",
                  shortText == parameter.GetFriendlyString() ? CStr() : shortText);
}

// What a plug-in's parameter says of itself; other parameters have it from their parent.
void ReadOwnDescription(CParameter& parameter, const CInifile& ini, const CStr& prefix)
{
    const int dimension = ini.ReadInt(prefix + u"P_Dimension", static_cast<int>(parameter.GetDimension()));
    if (dimension >= 0 && dimension <= static_cast<int>(EDimension::Percent))
        parameter.SetDimension(static_cast<EDimension>(dimension));
    else
        Warn(CStr::Format(u"%sP_Dimension: there is no dimension %d", prefix, dimension));
    parameter.SetIniName(ini.ReadText(prefix + u"IniName", parameter.GetIniName()));
    parameter.SetFriendlyString(ini.ReadText(prefix + u"FriendlyName", parameter.GetFriendlyString()));
    if (ini.HasKey(prefix + u"ShortFriendlyName"))
        parameter.SetShortFriendlyString(ini.ReadText(prefix + u"ShortFriendlyName"));
}

// The static parameter that a dynamic entry is an instance of, or null.
const CParameter* FindParent(std::span<const CParameter> parameters, const CInifile& ini, const CStr& prefix,
                             EAnalysis analysis)
{
    const CStr key = ini.ReadText(prefix + u"ParentParam");
    const std::optional<int> value = CatalogueValue(analysis, key);
    const auto parent = value ? std::find(parameters.begin(), parameters.end(), *value) : parameters.end();
    if (parent == parameters.end()) {
        Warn(CStr::Format(u"%sParentParam: there is no parameter \"%s\"", prefix, key));
        return nullptr;
    }
    const int count = ini.ReadInt(prefix + u"NumVariables", 0);
    if (count < 0 || static_cast<std::size_t>(count) != parent->GetVariableCount()) {
        Warn(CStr::Format(u"%sNumVariables: \"%s\" has %d variables, not %d", prefix, key,
                          parent->GetVariableCount(), count));
        return nullptr;
    }
    return &*parent;
}

CParameter LoadDynamic(int value, const CParameter& parent, CInifile& ini, const CStr& prefix)
{
    CParameter parameter(value, parent);
    const std::vector<double> values = ini.ReadDoubles(prefix + u"VariableValues");
    const auto isFinite = [](double number) { return std::isfinite(number); };
    if (values.size() != parameter.GetVariableCount() || !std::ranges::all_of(values, isFinite))
        Warn(CStr::Format(u"%sVariableValues: these are not %d finite numbers", prefix,
                          parameter.GetVariableCount()));
    for (std::size_t i = 0; i < std::min(values.size(), parameter.GetVariableCount()); ++i) {
        if (isFinite(values[i]))
            parameter.GetVariable(i).SetVariableValue(values[i]);
    }
    parameter.SetOn(ini.ReadBool(prefix + c_on, parameter.IsOn()));
    parameter.SetUnitFactor(ReadFactor(ini, prefix + c_factor, EUnitFactor::Undefined));
    ReadFormat(parameter, ini, prefix);
    ReadOwnDescription(parameter, ini, prefix);
    return parameter;
}

// The numbers of the entries that the current section really has: the stored count may say anything.
std::set<int> EntryNumbers(const CInifile& ini)
{
    constexpr std::string_view c_start = "Dyn";
    std::set<int> numbers;
    for (const CStr& key : ini.GetKeys()) {
        const std::string text = key.ToUtf8();
        int number = 0;
        if (!text.starts_with(c_start))
            continue;
        const auto read = std::from_chars(text.data() + c_start.size(), text.data() + text.size(), number);
        if (read.ec == std::errc() && key.StartsWith(DynamicPrefix(number)))
            numbers.insert(number);
    }
    return numbers;
}

constexpr int c_allEntries = -1;

// How many entries are to be read; a count that cannot be read does not lose what is there.
int ReadCount(const CInifile& ini)
{
    if (!ini.HasKey(c_countKey))
        return 0;
    const int count = ini.ReadInt(c_countKey, -1);
    if (count >= 0)
        return count;
    Warn(CStr::Format(u"%s: \"%s\" is no count; all entries are read", CStr(c_countKey),
                      ini.ReadText(c_countKey)));
    return c_allEntries;
}

void SaveAllDynamic(const std::vector<CParameter>& parameters, CInifile& ini, EAnalysis analysis)
{
    const CSectionScope scope(ini, DynamicSection(ini));
    ini.ClearSection();
    const auto count = std::ranges::count_if(parameters, &CParameter::HasParent);
    if (count == 0)
        return;
    ini.WriteInt(c_countKey, static_cast<int>(count));
    int number = 0;
    for (const CParameter& parameter : parameters) {
        if (parameter.HasParent())
            SaveDynamic(parameter, ini, DynamicPrefix(++number), analysis);
    }
}

} // namespace

void SaveParameterList(std::vector<CParameter>& parameters, CInifile& ini, EAnalysis analysis)
{
    CRollback rollback(ini);
    for (const CParameter& parameter : parameters) {
        if (!parameter.HasParent())
            SaveStatic(parameter, ini);
    }
    SaveAllDynamic(parameters, ini, analysis);
    for (CParameter& parameter : parameters) {
        if (parameter.IsTemplate())
            parameter.SetOn(false);
    }
    rollback.Commit();
}

void LoadParameterList(std::vector<CParameter>& parameters, CInifile& ini, EAnalysis analysis)
{
    std::erase_if(parameters, [](const CParameter& parameter) { return parameter.HasParent(); });
    for (CParameter& parameter : parameters)
        LoadStatic(parameter, ini);

    const CStr section = DynamicSection(ini);
    if (!ini.HasSection(section))
        return;
    CFreeNumbers values(parameters, LargestCatalogueValue(analysis));
    const CSectionScope scope(ini, section);
    const std::set<int> numbers = EntryNumbers(ini);
    const int count = ReadCount(ini);
    if (count != c_allEntries &&
        (std::cmp_not_equal(numbers.size(), count) || (count > 0 && *numbers.rbegin() != count)))
        Warn(CStr::Format(u"%s: there are %d entries, not those from 1 to %d", CStr(c_countKey),
                          numbers.size(), count));
    const std::size_t staticCount = parameters.size();
    for (const int number : numbers) {
        if (number < 1 || (number > count && count != c_allEntries))
            continue;
        const CStr prefix = DynamicPrefix(number);
        const std::span<const CParameter> statics(parameters.data(), staticCount);
        if (const CParameter* parent = FindParent(statics, ini, prefix, analysis))
            parameters.push_back(LoadDynamic(values.Take(), *parent, ini, prefix));
    }
}

bool IsDynamicParametersSection(std::u16string_view section)
{
    return section.ends_with(c_dynamicEnd);
}

} // namespace CommonUI

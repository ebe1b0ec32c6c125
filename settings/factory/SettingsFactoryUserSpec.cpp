#include "common/NumberText.h"
#include "common/StringTable.h"
#include "settings/factory/detail/SetPath.h"
#include "settings/factory/SettingsFactory.h"

#include <limits>

namespace CommonUI
{

namespace
{

constexpr std::u16string_view c_scheme = u"settings";
constexpr int c_syntaxError = 10055;
constexpr int c_neitherIdNorFile = 10056;
constexpr int c_noFileName = 10057;

bool Fail(int textId, const CStr& spec, CSettingsFactory::SParseInfo& info)
{
    info.error = CStr::Format(GetString(textId), spec);
    return false;
}

ESettingType FindType(std::u16string_view text)
{
    constexpr std::u16string_view c_marker = u"://";
    if (const std::size_t at = text.find(c_marker); at != text.npos) {
        if (text.substr(0, at) != c_scheme)
            return ESettingType::Unknown;
        text.remove_prefix(at + c_marker.size());
    }
    return GetSettingTypeEnum().GetValue(text);
}

// Takes what begins a selector off, with the bracket that ends it.
bool TakeSelector(std::u16string_view& text, std::u16string_view beginning)
{
    if (!text.starts_with(beginning))
        return false;
    text.remove_prefix(beginning.size());
    text = text.substr(0, text.empty() ? 0 : text.size() - 1);
    return true;
}

// The number of a text of digits alone, or -1.
int ReadIdentifier(std::u16string_view text)
{
    long long number = 0;
    if (text.find_first_not_of(u"0123456789") != text.npos || !ParseInteger(text, number) ||
        number > std::numeric_limits<int>::max())
        return SSettingsEntry::s_InvalidID;
    return static_cast<int>(number);
}

} // namespace

bool CSettingsFactory::ParseUserSpec(const CStr& spec, SParseInfo& info) const
{
    info = {};
    const std::size_t open = spec.Find(u'[');
    const std::size_t close = spec.Find(u']');
    if (open == CStr::npos || close == CStr::npos || close < open)
        return Fail(c_syntaxError, spec, info);
    info.typeText = spec.Left(open);
    std::u16string_view name = spec.View().substr(open + 1, close - open - 1);
    if (TakeSelector(name, u"File("))
        info.kind = SParseInfo::c_file;
    else if (TakeSelector(name, u"Id("))
        info.kind = SParseInfo::c_identifier;
    else
        return Fail(c_neitherIdNorFile, spec, info);
    info.type = FindType(info.typeText);
    if (info.type == ESettingType::Unknown)
        return Fail(c_syntaxError, spec, info);
    const CStr path = WithoutLastBackslash(name);
    if (info.kind == SParseInfo::c_file ? path.IsEmpty() : name.empty())
        return Fail(info.kind == SParseInfo::c_file ? c_noFileName : c_syntaxError, spec, info);
    if (info.kind == SParseInfo::c_file)
        info.entries.emplace_back(path, info.type);
    else
        info.entries = FindByIdentifier(info.type, name);
    return true;
}

// The set of a type that has a number, in this run or in the catalogue, or a key of the catalogue.
std::vector<SSettingsEntry> CSettingsFactory::FindByIdentifier(ESettingType type,
                                                               std::u16string_view identifier) const
{
    const int id = ReadIdentifier(identifier);
    if (const SSettingsEntry* const item = FindDynamicItem(id); item && item->m_Type == type)
        return {*item};
    const auto setting = GetBuiltInSettingEnum().GetValue(identifier, EBuiltInSetting{id});
    // Unknown, which is no type of a user specification, for a number that the catalogue does not have.
    if (GetSettingType(setting) == type)
        return {SSettingsEntry(setting, type)};
    return {};
}

} // namespace CommonUI

#include "common/ini/detail/IniDamage.h"

#include "common/ini/detail/IniDocument.h"
#include "common/ini/detail/IniEncoding.h"
#include "common/ini/detail/IniLine.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace CommonUI
{

namespace
{

constexpr std::string_view c_lineEnds = "\r\n";

bool HasLineEnd(std::string_view text)
{
    return text.empty() || c_lineEnds.find(text.back()) != c_lineEnds.npos;
}

std::string_view LastLineOf(std::string_view text)
{
    const std::size_t end = text.find_last_of(c_lineEnds);
    return end == text.npos ? text : text.substr(end + 1);
}

// The number of the last line that has anything in it.
int CountLines(std::string_view text)
{
    int lines = 0;
    CLineEnds ends(text);
    for (std::size_t begin = 0; begin < text.size(); ++lines)
        begin = ends.Next(begin).next;
    return lines;
}

struct SName {
    CStr section;
    CStr key;
};

std::vector<SName> ListNames(CIniDocument& document)
{
    std::vector<SName> names;
    for (const CStr& section : document.GetSections()) {
        for (const CStr& key : document.GetKeys(document.GetSection(section)))
            names.push_back({section, key});
    }
    return names;
}

// Whether the last line, which has no line end, is a key with a part of its earlier value.
bool HasPartOfValue(const std::string& bytes, const std::string& earlier)
{
    CIniDocument file(bytes);
    CIniDocument before(earlier);
    const std::vector<SName> names = ListNames(file);
    if (names.empty() || ParseIniLine(LastLineOf(DecodeIni(bytes).text)).kind != EIniLine::Key)
        return false;
    const auto& [section, key] = names.back();
    const auto value = file.GetValue(file.GetSection(section), key);
    const auto whole = before.GetValue(before.GetSection(section), key);
    return value && whole && value != whole && whole->starts_with(*value);
}

// Whether the end of the earlier version is gone, and nothing in front of it. Where the last line is whole,
// only if the version, with which stores end, went with something else, or from behind something new: who
// takes a section out by hand, or puts an old file back, shall not be told that it is damaged.
bool LacksEnd(const std::string& bytes, const std::string& earlier, bool isInLine)
{
    CIniDocument file(bytes);
    CIniDocument before(earlier);
    const auto isGone = [&](const SName& name) {
        return !file.GetValue(file.GetSection(name.section), name.key);
    };
    const std::vector<SName> names = ListNames(before);
    const auto isThere = std::find_if_not(names.rbegin(), names.rend(), isGone);
    const auto gone = std::span(names).last(static_cast<std::size_t>(isThere - names.rbegin()));
    if (gone.empty() || isThere == names.rend() || std::any_of(isThere, names.rend(), isGone))
        return false;
    const bool hasVersion = std::ranges::any_of(
        gone, [](const SName& name) { return name.section == c_versionSection && name.key == c_versionKey; });
    const auto isNew = [&](const SName& name) {
        return !before.GetValue(before.GetSection(name.section), name.key);
    };
    return isInLine || (hasVersion && (gone.size() > 1 || std::ranges::any_of(ListNames(file), isNew)));
}

} // namespace

std::optional<SIniDamage> FindIniDamage(const std::string& bytes)
{
    if (!IsIniText(bytes))
        return SIniDamage{EIniDamage::NoText};
    const SIniContent content = DecodeIni(bytes);
    if (content.encoding == EIniEncoding::Western && !content.mark.empty())
        return SIniDamage{EIniDamage::WrongEncoding};
    if (content.text.find('\0') != content.text.npos)
        return SIniDamage{EIniDamage::NoText};
    const bool isCut =
        !content.tail.empty() ||
        (!HasLineEnd(content.text) && ParseIniLine(LastLineOf(content.text)).kind == EIniLine::Malformed);
    if (isCut)
        return SIniDamage{EIniDamage::CutOff, CountLines(content.text)};
    return std::nullopt;
}

std::optional<SIniDamage> FindIniDamage(const std::string& bytes, const std::string& earlier)
{
    if (const auto damage = FindIniDamage(bytes); damage || bytes == earlier)
        return damage;
    const std::string text = DecodeIni(bytes).text;
    const bool isInLine = !HasLineEnd(text) && HasLineEnd(DecodeIni(earlier).text);
    const bool isPart =
        earlier.starts_with(bytes) && earlier.find_first_not_of(c_lineEnds, bytes.size()) != earlier.npos;
    if ((isPart && (isInLine || text.empty())) || LacksEnd(bytes, earlier, isInLine) ||
        (isInLine && HasPartOfValue(bytes, earlier)))
        return SIniDamage{EIniDamage::CutOff, CountLines(text)};
    return std::nullopt;
}

} // namespace CommonUI

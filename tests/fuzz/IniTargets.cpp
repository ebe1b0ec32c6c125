#include "common/ini/Inifile.h"
#include "tests/fuzz/FuzzBytes.h"
#include "tests/fuzz/FuzzFile.h"
#include "tests/fuzz/Targets.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>

using namespace CommonUI;
using Fuzz::IniOf;

namespace
{

using CValues = std::map<std::pair<CStr, CStr>, CStr>; // by section and key

CValues ValuesOf(CInifile ini)
{
    CValues values;
    for (const CStr& section : ini.GetSections()) {
        ini.SelectSection(section);
        for (const CStr& key : ini.GetKeys())
            values[{section, key}] = ini.ReadText(key, u"(missing)");
    }
    return values;
}

// Makes a document that has the values `from` one that has the values `to`.
void Change(CInifile& ini, const CValues& from, const CValues& to)
{
    for (const auto& [place, value] : from) {
        ini.SelectSection(place.first);
        if (!to.contains(place))
            ini.RemoveKey(place.second);
    }
    for (const auto& [place, value] : to) {
        ini.SelectSection(place.first);
        ini.WriteText(place.second, value);
    }
}

std::optional<CStr> Find(const CValues& values, const CValues::key_type& place)
{
    const auto found = values.find(place);
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

// What a merge has to come to, value by value.
CValues Merged(const CValues& base, const CValues& ours, const CValues& theirs)
{
    CValues merged = theirs;
    for (const CValues* const values : {&base, &ours})
        for (const auto& [place, value] : *values) {
            const std::optional<CStr> mine = Find(ours, place);
            if (mine == Find(base, place))
                continue;
            merged.erase(place);
            if (mine)
                merged[place] = *mine;
        }
    return merged;
}

} // namespace

// What is loaded is saved byte for byte, and what stands in it can be written again without a change.
void Fuzz::RunInifile(std::string_view bytes)
{
    CInifile ini = IniOf(bytes);
    Expect(ini.GetBytes() == bytes, "an untouched file is saved byte for byte");
    const CValues values = ValuesOf(ini);
    for (const auto& [place, value] : values) {
        ini.SelectSection(place.first);
        ini.WriteText(place.second, value);
    }
    Expect(ini.GetBytes() == bytes, "writing the values that are there changes nothing");

    CInifile copy;
    copy.Merge(ini);
    Expect(ValuesOf(copy) == values, "a document made of all values has these values");
    Expect(ValuesOf(IniOf(copy.GetBytes())) == values, "they are the same when it is loaded again");

    for (const auto& [place, value] : values) {
        ini.SelectSection(place.first);
        ini.WriteText(place.second, value + u"\u00B5x");
        Expect(ini.ReadText(place.second) == value + u"\u00B5x", "a value reads back as it was written");
        ini.RemoveKey(place.second);
        Expect(std::ranges::count(ini.GetKeys(), place.second) == 0, "a key that was removed is gone");
    }
    Expect(ValuesOf(IniOf(ini.GetBytes())).empty(), "a document of which all keys were removed has none");
}

// Three versions of a file become one, of which each value is known.
void Fuzz::RunIniMerge(std::string_view bytes)
{
    CFuzzBytes input(bytes);
    const std::string_view base = input.Piece();
    const CValues ours = ValuesOf(IniOf(input.Piece()));
    const std::string_view theirs = input.Rest();
    const CFuzzFile file("merged.ini");

    file.Write(base);
    CInifile ini;
    if (!ini.Load(file.GetName()))
        return;
    const CValues before = ValuesOf(ini);
    Change(ini, before, ours);
    Expect(ValuesOf(ini) == ours, "a document takes any values");
    file.Write(theirs);
    CInifile there;
    const bool isText = there.Load(file.GetName());
    Expect(ini.SaveMerged() == isText, "a merge is refused where the file is no text, and only there");
    if (!isText) {
        Expect(file.Read() == theirs, "a file that is refused stays as it is");
        return;
    }

    CInifile saved;
    Expect(saved.Load(file.GetName()), "what was saved can be loaded");
    const CValues expected = Merged(before, ours, ValuesOf(there));
    Expect(ValuesOf(saved) == expected, "ours counts where we changed it, theirs elsewhere");
    Expect(ValuesOf(ini) == expected, "the document has what was saved");
}

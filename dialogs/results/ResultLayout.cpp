#include "dialogs/results/ResultLayout.h"

#include "common/Diagnostics.h"
#include "common/ini/SectionScope.h"
#include "common/NumberText.h"

#include <map>
#include <vector>

namespace CommonUI
{

namespace
{

using EUnitFactor = CUnit::EUnitFactor;
using SFormat = CParameter::SFormatSpecifier;
using CWords = std::vector<CStr>;

constexpr int c_mostWidth = 100'000;

struct SSign {
    const char16_t* word;
    char16_t sign;
};
constexpr SSign c_separators[] = {{u"Tab", u'\t'}, {u"Comma", u','}, {u"Semicolon", u';'}};
constexpr SSign c_decimals[] = {{u"DecimalPoint", u'.'}, {u"DecimalComma", u','}};

CStr WordOf(const auto& signs, char16_t sign)
{
    for (const SSign& known : signs)
        if (known.sign == sign)
            return known.word;
    return signs[0].word;
}

bool TakeSign(const auto& signs, const CStr& word, char16_t& sign)
{
    for (const SSign& known : signs)
        if (word == known.word) {
            sign = known.sign;
            return true;
        }
    return false;
}

std::optional<int> ParseNumber(const CStr& text, int least, int most)
{
    long long number = 0;
    if (!ParseInteger(text, number) || number < least || number > most)
        return {};
    return static_cast<int>(number);
}

std::optional<EUnitFactor> ParseUnit(const CStr& text)
{
    const auto number = ParseNumber(text, 0, static_cast<int>(EUnitFactor::Undefined));
    return number ? std::optional(static_cast<EUnitFactor>(*number)) : std::nullopt;
}

std::optional<SFormat> ParseFormat(const CStr& kind, const CStr& count)
{
    const auto& kinds = GetFormatSpecifierEnum();
    const auto found = kinds.FindIniName(kind);
    const auto number = ParseNumber(count, 0, 99);
    if (found == kinds.end() || !number)
        return {};
    return SFormat{static_cast<CParameter::EFormatSpecifier>(found->GetValue()), *number};
}

template<class TValue>
bool Take(std::optional<SReplacedChoice<TValue>>& choice, const std::optional<TValue>& chosen,
          const std::optional<TValue>& replaced)
{
    if (chosen && replaced)
        choice = {*chosen, *replaced};
    return chosen && replaced;
}

bool TakeColumnWord(const CStr& text, SColumnLayout& column)
{
    const CWords words = text.Split(u" ");
    const std::size_t count = words.size();
    if (words[0] == u"Hidden" && count == 1)
        return column.isHidden = true;
    if (words[0] == u"Width" && count == 2) {
        const auto width = ParseNumber(words[1], 1, c_mostWidth);
        column.width = width.value_or(0);
        return width.has_value();
    }
    if (words[0] == u"Unit" && count == 4)
        return Take(column.unit, ParseUnit(words[1]), ParseUnit(words[3]));
    return words[0] == u"Format" && count == 6 &&
           Take(column.format, ParseFormat(words[1], words[2]), ParseFormat(words[4], words[5]));
}

bool TakeHeights(const CWords& words, SResultLayout& layout)
{
    if (words[0] != u"Heights" || words.size() != layout.heights.size() + 1)
        return false;
    for (std::size_t i = 0; i < layout.heights.size(); ++i)
        layout.heights[i] = ParseNumber(words[i + 1], 0, c_mostWidth).value_or(0);
    return true;
}

bool TakeTableWord(const CStr& word, SResultLayout& layout)
{
    if (word == u"Transposed" || word == u"NotTransposed")
        layout.isTransposed = word == u"Transposed";
    else if (word == u"NoNotes")
        layout.showsNotes = false;
    else
        return TakeSign(c_separators, word, layout.separator) || TakeSign(c_decimals, word, layout.decimal) ||
               TakeHeights(word.Split(u" "), layout);
    return true;
}

CWords ToWords(const SResultLayout& layout)
{
    CWords words;
    if (layout.isTransposed)
        words.emplace_back(*layout.isTransposed ? u"Transposed" : u"NotTransposed");
    if (!layout.showsNotes)
        words.emplace_back(u"NoNotes");
    words.push_back(WordOf(c_separators, layout.separator));
    words.push_back(WordOf(c_decimals, layout.decimal));
    const auto& [summary, results, statistics] = layout.heights;
    if (summary + results + statistics > 0)
        words.push_back(CStr::Format(u"Heights %d %d %d", summary, results, statistics));
    return words;
}

CStr ToText(const SFormat& format)
{
    return CStr::Format(u"%s %d", GetFormatSpecifierEnum().GetIniName(static_cast<int>(format.type)),
                        format.count);
}

CWords ToWords(const SColumnLayout& column)
{
    CWords words;
    if (column.unit)
        words.push_back(CStr::Format(u"Unit %d over %d", static_cast<int>(column.unit->chosen),
                                     static_cast<int>(column.unit->replaced)));
    if (column.format)
        words.push_back(u"Format " + ToText(column.format->chosen) + u" over " +
                        ToText(column.format->replaced));
    if (column.isHidden)
        words.emplace_back(u"Hidden");
    if (column.width > 0)
        words.push_back(CStr::Format(u"Width %d", column.width));
    return words;
}

// The name of the results that a key is of.
CStr NameOf(const CStr& key)
{
    return key.Left(key.Find(u' '));
}

bool TakeWord(const CStr& key, const CStr& word, SResultLayout& layout)
{
    const std::size_t blank = key.Find(u' ');
    if (blank >= key.GetLength())
        return TakeTableWord(word, layout);
    return TakeColumnWord(word, layout.columns[key.Mid(blank + 1, key.GetLength())]);
}

// Removes all layouts from the section. Returns the words that are none, as those of a later version, by
// their keys.
std::map<CStr, CWords> RemoveLayouts(CInifile& ini)
{
    std::map<CStr, CWords> unknown;
    for (const CStr& key : ini.GetKeys()) {
        CWords words = ini.ReadTexts(key);
        SResultLayout ignored;
        const std::size_t removed =
            std::erase_if(words, [&](const CStr& word) { return TakeWord(key, word, ignored); });
        if (removed > 0)
            ini.RemoveKey(key);
        if (!words.empty())
            unknown[key] = std::move(words);
    }
    return unknown;
}

// Behind what is unknown: of two words for the same thing the last counts.
void AddWords(std::map<CStr, CWords>& all, const CStr& key, const CWords& words)
{
    all[key].insert(all[key].end(), words.begin(), words.end());
}

} // namespace

SNumberProfile SResultLayout::GetProfile(ENumberProfile kind) const
{
    if (kind == ENumberProfile::Spreadsheet)
        return {kind, separator, decimal};
    return {.kind = kind};
}

void CResultLayoutManager::Clear()
{
    for (auto& [name, layout] : m_layouts)
        layout = {};
    AnnounceAll();
}

// Who hears of it may ask for layouts that are not there yet, which makes them.
void CResultLayoutManager::AnnounceAll()
{
    for (const auto& [name, layout] : m_layouts)
        m_changes.Invoke({.name = name});
}

bool CResultLayoutManager::Load(CInifile& ini)
{
    for (auto& [name, layout] : m_layouts)
        layout = {};
    const CSectionScope scope(ini, c_section);
    for (const CStr& key : ini.GetKeys()) {
        SResultLayout& layout = m_layouts[NameOf(key)];
        for (const CStr& word : ini.ReadTexts(key)) {
            if (TakeWord(key, word, layout))
                continue;
            GetDiagnostics().Write(u"ResultDialog", EDiagnosticLevel::Warning,
                                   CStr::Format(u"\"%s\" of \"%s\" is no layout.", word, key));
        }
    }
    AnnounceAll();
    return true;
}

bool CResultLayoutManager::Save(CInifile& ini)
{
    const CSectionScope scope(ini, c_section);
    std::map<CStr, CWords> words = RemoveLayouts(ini);
    for (const auto& [name, layout] : m_layouts) {
        if (name.IsEmpty())
            continue; // of a panel that has no results yet
        AddWords(words, name, ToWords(layout));
        for (const auto& [key, column] : layout.columns)
            if (column != SColumnLayout())
                AddWords(words, name + u" " + key, ToWords(column));
    }
    for (const auto& [key, all] : words)
        ini.WriteTexts(key, all);
    return true;
}

CResultLayoutManager& GetResultLayoutManager()
{
    // Never destroyed, as windows may still keep their layouts when static objects go.
    static auto& manager = *new CResultLayoutManager;
    return manager;
}

} // namespace CommonUI

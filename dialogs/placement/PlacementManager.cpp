#include "dialogs/placement/PlacementManager.h"

#include "common/Diagnostics.h"
#include "common/ini/SectionScope.h"
#include "common/NumberText.h"

#include <algorithm>
#include <limits>
#include <map>
#include <ranges>

namespace CommonUI
{

namespace
{

constexpr std::u16string_view c_setUpsKey = u"SetUps";
constexpr std::u16string_view c_maximized = u"Maximized";
constexpr std::u16string_view c_hidden = u"Hidden";
constexpr std::size_t c_numberCount = 6;

CStr GetKey(const CStr& window, const CStr& setUp)
{
    return window + u" on " + setUp;
}

std::optional<int> ParseNumber(const CStr& text)
{
    using CLimits = std::numeric_limits<int>;
    long long number = 0;
    if (!ParseInteger(text, number) || number < CLimits::min() || number > CLimits::max())
        return {};
    return static_cast<int>(number);
}

std::optional<SWindowPlacement> ParsePlacement(const std::vector<CStr>& texts)
{
    if (texts.size() < c_numberCount)
        return {};
    int numbers[c_numberCount];
    for (std::size_t i = 0; i < c_numberCount; ++i) {
        const std::optional<int> number = ParseNumber(texts[i]);
        if (!number)
            return {};
        numbers[i] = *number;
    }
    const auto has = [&](std::u16string_view word) {
        return std::find(texts.begin() + c_numberCount, texts.end(), word) != texts.end();
    };
    const bool isEdge = numbers[4] >= 0 && numbers[4] <= static_cast<int>(EDock::Bottom);
    return SWindowPlacement{{numbers[0], numbers[1]},
                            {numbers[2], numbers[3]},
                            has(c_maximized),
                            has(c_hidden),
                            isEdge ? static_cast<EDock>(numbers[4]) : EDock::None,
                            numbers[5]};
}

std::vector<CStr> ToTexts(const SWindowPlacement& placement)
{
    std::vector<CStr> texts;
    for (const int number : {placement.position.x, placement.position.y, placement.size.cx, placement.size.cy,
                             static_cast<int>(placement.dock), placement.dockedExtent})
        texts.push_back(CStr::Format(u"%d", number));
    if (placement.isMaximized)
        texts.emplace_back(c_maximized);
    if (placement.isHidden)
        texts.emplace_back(c_hidden);
    return texts;
}

// The words behind a placement that mean nothing here, as those of a later version.
std::vector<CStr> UnknownWordsOf(std::vector<CStr> texts)
{
    texts.erase(texts.begin(), texts.begin() + c_numberCount);
    std::erase_if(texts, [](const CStr& text) { return text == c_maximized || text == c_hidden; });
    return texts;
}

// Removes all placements from the section, not what is none. Returns what is to stay of each, by its key.
std::map<CStr, std::vector<CStr>> RemovePlacements(CInifile& ini)
{
    std::map<CStr, std::vector<CStr>> unknown;
    for (const CStr& key : ini.GetKeys()) {
        std::vector<CStr> texts = ini.ReadTexts(key);
        if (key == c_setUpsKey || !ParsePlacement(texts))
            continue;
        unknown[key] = UnknownWordsOf(std::move(texts));
        ini.RemoveKey(key);
    }
    return unknown;
}

} // namespace

std::optional<SWindowPlacement> CPlacementManager::Find(const CStr& window, const CStr& setUp) const
{
    std::optional<SWindowPlacement> placement;
    for (const SSetUp& known : m_setUps) {
        const auto found = known.windows.find(window);
        if (found == known.windows.end())
            continue;
        if (known.name == setUp)
            return found->second;
        if (!placement)
            placement = found->second;
    }
    return placement;
}

void CPlacementManager::Remember(const CStr& window, const CStr& setUp, const SWindowPlacement& placement)
{
    if (!window.IsEmpty())
        Use(setUp).windows[window] = placement;
}

CPlacementManager::SSetUp& CPlacementManager::Use(const CStr& setUp)
{
    const auto isNamed = [&](const SSetUp& known) { return known.name == setUp; };
    auto found = std::find_if(m_setUps.begin(), m_setUps.end(), isNamed);
    if (found == m_setUps.end()) {
        if (m_setUps.size() == c_greatestSetUpCount)
            m_setUps.pop_back();
        found = m_setUps.insert(m_setUps.end(), SSetUp{setUp, {}});
    }
    std::rotate(m_setUps.begin(), found, found + 1);
    return m_setUps.front();
}

bool CPlacementManager::Load(CInifile& ini)
{
    Clear();
    const CSectionScope scope(ini, c_section);
    std::vector<CStr> names = ini.ReadTexts(c_setUpsKey);
    names.resize(std::min(names.size(), c_greatestSetUpCount));
    for (const CStr& name : std::ranges::reverse_view(names)) {
        const CStr suffix = GetKey({}, name);
        for (const CStr& key : ini.GetKeys()) {
            if (!key.EndsWith(suffix) || key == suffix)
                continue;
            if (const auto placement = ParsePlacement(ini.ReadTexts(key)))
                Remember(key.Left(key.GetLength() - suffix.GetLength()), name, *placement);
            else
                GetDiagnostics().Write(u"WindowPlacement", EDiagnosticLevel::Warning,
                                       CStr::Format(u"\"%s\" has no placement of a window.", key));
        }
    }
    return true;
}

bool CPlacementManager::Save(CInifile& ini)
{
    const CSectionScope scope(ini, c_section);
    std::map<CStr, std::vector<CStr>> unknown = RemovePlacements(ini);
    std::vector<CStr> names;
    names.reserve(m_setUps.size());
    for (const SSetUp& setUp : m_setUps)
        names.push_back(setUp.name);
    ini.WriteTexts(c_setUpsKey, names);
    for (const SSetUp& setUp : m_setUps)
        for (const auto& [window, placement] : setUp.windows) {
            const CStr key = GetKey(window, setUp.name);
            std::vector<CStr> texts = ToTexts(placement);
            texts.insert(texts.end(), unknown[key].begin(), unknown[key].end());
            ini.WriteTexts(key, texts);
        }
    return true;
}

CPlacementManager& GetPlacementManager()
{
    // Never destroyed, so that windows may still be remembered when static objects go.
    static auto& manager = *new CPlacementManager;
    return manager;
}

} // namespace CommonUI

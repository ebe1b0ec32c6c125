#include "common/ini/detail/IniMerge.h"

#include <algorithm>
#include <set>

namespace CommonUI
{

namespace
{

bool HasSameKeys(CIniDocument& a, CIniDocument& b, const CStr& section)
{
    const std::uint32_t inA = a.GetSection(section);
    const std::uint32_t inB = b.GetSection(section);
    const std::vector<CStr> keys = a.GetKeys(inA);
    return keys == b.GetKeys(inB) && std::ranges::all_of(keys, [&](const CStr& key) {
               return a.GetValue(inA, key) == b.GetValue(inB, key);
           });
}

} // namespace

CIniMerge::CIniMerge(std::string base, const CIniDocument& ours, std::string theirs)
    : m_base(std::move(base))
    , m_ours(ours)
    , m_theirs(std::move(theirs))
    , m_merged(m_theirs)
{
}

void CIniMerge::Run(const std::function<bool(std::u16string_view)>& isOneValue)
{
    for (const CStr& section : ListSections()) {
        if (isOneValue && isOneValue(section))
            MergeWhole(section);
        else
            MergeKeys(section);
    }
}

// Those of this program in their order, then those that it has removed.
std::vector<CStr> CIniMerge::ListSections() const
{
    std::vector<CStr> names;
    std::set<CStr> known;
    for (const CIniDocument* document : {&m_ours, &m_base}) {
        for (std::uint32_t i = 0; i < document->CountSections(); ++i) {
            if (const CStr name = document->GetSectionName(i); known.insert(name).second)
                names.push_back(name);
        }
    }
    return names;
}

// By their names only: one that is read as another's, too, for its blanks is a key of its own.
void CIniMerge::MergeKeys(const CStr& section)
{
    const std::uint32_t inOurs = m_ours.GetSection(section);
    const std::uint32_t inBase = m_base.GetSection(section);
    for (const CStr& key : m_ours.GetKeys(inOurs)) {
        if (const CValue ours = m_ours.GetValueToChange(inOurs, key);
            ours != m_base.GetValueToChange(inBase, key))
            Take(section, key, ours);
    }
    for (const CStr& key : m_base.GetKeys(inBase)) {
        if (!m_ours.GetValueToChange(inOurs, key))
            Take(section, key, {});
    }
}

void CIniMerge::Take(const CStr& section, const CStr& key, CValue ours)
{
    const CValue theirs = m_theirs.GetValueToChange(m_theirs.GetSection(section), key);
    if (theirs == ours)
        return;
    if (theirs != m_base.GetValueToChange(m_base.GetSection(section), key))
        AddConflict(section, u", key \"" + key + u"\"");
    const std::uint32_t to = m_merged.GetSection(section);
    if (ours) {
        m_merged.MakeRoomFor(*ours);
        m_merged.SetValue(to, key, *ours);
    } else {
        m_merged.RemoveKey(to, key);
    }
}

void CIniMerge::MergeWhole(const CStr& section)
{
    if (HasSameKeys(m_ours, m_base, section) || HasSameKeys(m_ours, m_theirs, section))
        return;
    if (!HasSameKeys(m_theirs, m_base, section))
        AddConflict(section, {});
    const std::uint32_t from = m_ours.GetSection(section);
    const std::uint32_t to = m_merged.GetSection(section);
    m_merged.ClearSection(to);
    for (const CStr& key : m_ours.GetKeys(from)) {
        const std::string_view value = *m_ours.GetValue(from, key);
        m_merged.MakeRoomFor(value);
        m_merged.SetValue(to, key, value);
    }
}

void CIniMerge::AddConflict(const CStr& section, const CStr& what)
{
    m_conflicts.push_back(u"section \"" + section + u"\"" + what +
                          u": another program has changed it, too; its change is overwritten");
}

} // namespace CommonUI

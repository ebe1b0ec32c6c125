#include "controls/sections/Sections.h"

#include <utility>
#include <vector>

namespace CommonUI
{

CSections::CSections() = default;

CSections::~CSections() = default;

void CSections::Add(const CStr& name, bool expanded)
{
    m_sections.try_emplace(name, SState{expanded}).first->second.added = true;
}

bool CSections::IsExpanded(const CStr& name) const
{
    const auto found = m_sections.find(name);
    return found != m_sections.end() && found->second.expanded;
}

void CSections::SetExpanded(const CStr& name, bool expanded)
{
    const auto found = m_sections.find(name);
    if (found != m_sections.end() && std::exchange(found->second.expanded, expanded) != expanded)
        m_changed.Invoke(CStr(name));
}

void CSections::SetAllExpanded(bool expanded)
{
    std::vector<CStr> names; // a subscriber may add sections
    for (const auto& [name, state] : m_sections)
        if (state.added)
            names.push_back(name);
    for (const CStr& name : names)
        SetExpanded(name, expanded);
}

void CSections::Load(const CInifile& file)
{
    for (const CStr& name : file.GetKeys()) {
        const bool expanded = file.ReadBool(name, IsExpanded(name));
        m_sections.try_emplace(name, SState{expanded});
        SetExpanded(name, expanded);
    }
}

void CSections::Save(CInifile& file) const
{
    for (const auto& [name, state] : m_sections)
        file.WriteBool(name, state.expanded);
}

} // namespace CommonUI

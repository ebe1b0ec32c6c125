#pragma once

#include "common/ini/detail/IniIndex.h"

#include <cstdint>
#include <vector>

namespace CommonUI
{

/// Groups of numbers under hashes, of which only the first number is found: however many are in a group, each
/// step takes the same time. What a number stands for, and so what belongs together, is the caller's.
class CIniGroups
{
public:
    static constexpr std::uint32_t c_none = CIniIndex::c_none;

    /// The first number of the group for whose first number `matches` returns true, or c_none.
    template<class FMatches>
    std::uint32_t Find(std::uint32_t hash, FMatches&& matches) const
    {
        const std::uint32_t group = FindGroup(hash, matches);
        return group == c_none ? c_none : m_members[group].number;
    }

    /// Adds a number at the end of its group.
    template<class FMatches>
    void Add(std::uint32_t hash, std::uint32_t number, FMatches&& matches)
    {
        const std::uint32_t group = FindGroup(hash, matches);
        const auto added = static_cast<std::uint32_t>(m_members.size());
        m_members.push_back({number, c_none, added});
        if (group == c_none) {
            m_groups.Insert(hash, added);
        } else {
            m_members[m_members[group].last].next = added;
            m_members[group].last = added;
        }
    }

    /// Takes numbers out of the front of a group as long as `isGone` returns true for them.
    template<class FMatches, class FIsGone>
    void DropFront(std::uint32_t hash, FMatches&& matches, FIsGone&& isGone)
    {
        const std::uint32_t group = FindGroup(hash, matches);
        std::uint32_t first = group;
        while (first != c_none && isGone(m_members[first].number))
            first = m_members[first].next;
        if (first == group)
            return;
        m_groups.Erase(hash, group);
        if (first != c_none) {
            m_members[first].last = m_members[group].last;
            m_groups.Insert(hash, first);
        }
    }

    void Clear()
    {
        m_groups.Clear();
        m_members.clear();
    }

private:
    struct SMember {
        std::uint32_t number;
        std::uint32_t next; // the member after it, or c_none
        std::uint32_t last; // of a first member, the last one
    };

    template<class FMatches>
    std::uint32_t FindGroup(std::uint32_t hash, FMatches&& matches) const
    {
        return m_groups.Find(hash, [&](std::uint32_t group) { return matches(m_members[group].number); });
    }

    CIniIndex m_groups; // the first members
    std::vector<SMember> m_members;
};

} // namespace CommonUI

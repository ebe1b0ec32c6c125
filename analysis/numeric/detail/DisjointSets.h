#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <vector>

namespace CommonUI::Analysis
{

/// Sets of numbers that merge. The lowest number of a set represents it.
class CDisjointSets
{
public:
    /// @param count of sets, each of one number
    explicit CDisjointSets(std::size_t count = 0)
        : m_parents(count)
    {
        std::iota(m_parents.begin(), m_parents.end(), std::uint32_t{0});
    }

    std::uint32_t Add()
    {
        m_parents.push_back(static_cast<std::uint32_t>(m_parents.size()));
        return m_parents.back();
    }

    std::uint32_t Find(std::uint32_t i)
    {
        while (m_parents[i] != i)
            i = m_parents[i] = m_parents[m_parents[i]]; // halves the path for the next time
        return i;
    }

    /// @return what represents both from now on
    std::uint32_t Merge(std::uint32_t i, std::uint32_t j)
    {
        i = Find(i);
        j = Find(j);
        return m_parents[std::max(i, j)] = std::min(i, j);
    }

    std::size_t GetSize() const { return m_parents.size(); }

private:
    std::vector<std::uint32_t> m_parents;
};

} // namespace CommonUI::Analysis

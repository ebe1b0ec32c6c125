#pragma once

#include "model/Parameter.h"

#include <algorithm>
#include <limits>
#include <set>
#include <vector>

namespace CommonUI
{

/// Numbers for new parameters of a list: upward from the largest in use and, when there is none left above
/// it, the least ones that are free.
class CFreeNumbers
{
public:
    /// @param behind below all numbers that are given
    CFreeNumbers(const std::vector<CParameter>& list, int behind)
        : m_largest(behind)
        , m_least(behind)
    {
        for (const CParameter& parameter : list)
            m_largest = std::max(m_largest, parameter.GetValue());
        // Far from the largest number it does not matter what else is in use.
        if (m_largest > std::numeric_limits<int>::max() - c_reserve) {
            for (const CParameter& parameter : list)
                m_used.insert(parameter.GetValue());
        }
    }

    int Take()
    {
        if (m_largest != std::numeric_limits<int>::max())
            return ++m_largest;
        do
            ++m_least;
        while (m_used.contains(m_least));
        return m_least;
    }

private:
    static constexpr int c_reserve = 1 << 30; // more than a list can ever be given

    int m_largest;
    int m_least;
    std::set<int> m_used;
};

} // namespace CommonUI

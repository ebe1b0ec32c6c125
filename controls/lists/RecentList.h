#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace CommonUI
{

/// What was used last, the latest first, each once and no more than a limit.
template<class T>
class CRecentList
{
public:
    /// @param limit how many values are kept
    explicit CRecentList(std::size_t limit) noexcept
        : m_limit(limit)
    {
    }

    /// Brings a value to the front; the oldest goes when there are too many.
    void Add(const T& value)
    {
        T copy(value); // it may be one of the list
        std::erase(m_values, copy);
        m_values.insert(m_values.begin(), std::move(copy));
        m_values.resize(std::min(m_values.size(), m_limit));
    }
    /// Takes a value out of the list, if it is there.
    void Remove(const T& value) { std::erase(m_values, T(value)); }
    /// Replaces the values by others, which stand in their order, the latest first.
    void Set(std::vector<T> values)
    {
        m_values.clear();
        for (auto value = values.rbegin(); value != values.rend(); ++value)
            Add(*value);
    }
    /// The latest first.
    const std::vector<T>& GetAll() const noexcept { return m_values; }

private:
    std::size_t m_limit;
    std::vector<T> m_values;
};

} // namespace CommonUI

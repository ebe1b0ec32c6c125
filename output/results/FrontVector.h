#pragma once

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace CommonUI::Detail
{

/// A vector to which elements are added at both ends at the same cost. Those that were added in front are put
/// in place when the vector is asked for, with one move of every element.
template<class T>
class CFrontVector
{
public:
    void PushBack(T element) { m_elements.push_back(std::move(element)); }
    void PushFront(T element) { m_front.push_back(std::move(element)); }

    std::vector<T>& Get()
    {
        Join();
        return m_elements;
    }
    const std::vector<T>& Get() const
    {
        Join();
        return m_elements;
    }

private:
    void Join() const
    {
        if (m_front.empty())
            return;
        std::vector<T> all;
        all.reserve(m_front.size() + m_elements.size());
        std::move(m_front.rbegin(), m_front.rend(), std::back_inserter(all));
        std::ranges::move(m_elements, std::back_inserter(all));
        m_elements = std::move(all);
        m_front.clear();
    }

    mutable std::vector<T> m_front; // the last one comes first
    mutable std::vector<T> m_elements;
};

} // namespace CommonUI::Detail

#pragma once

#include <utility>
#include <vector>

namespace CommonUI
{

/// A value with trees of the same kind below it, in an order that means something.
template<class T>
class CSimpleTree
{
public:
    explicit CSimpleTree(T value = {})
        : m_value(std::move(value))
    {
    }

    const T& GetValue() const noexcept { return m_value; }
    const std::vector<CSimpleTree>& GetChildren() const noexcept { return m_children; }
    std::vector<CSimpleTree>& GetChildren() noexcept { return m_children; }
    bool IsLeaf() const noexcept { return m_children.empty(); }

private:
    T m_value;
    std::vector<CSimpleTree> m_children;
};

} // namespace CommonUI

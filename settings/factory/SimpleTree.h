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
    /// A tree without children.
    explicit CSimpleTree(T value = {})
        : m_value(std::move(value))
    {
    }

    /// What stands at this place of the tree.
    const T& GetValue() const noexcept { return m_value; }
    /// The trees right below, in their order.
    const std::vector<CSimpleTree>& GetChildren() const noexcept { return m_children; }
    /// The trees right below, to be added to and changed.
    std::vector<CSimpleTree>& GetChildren() noexcept { return m_children; }
    /// Whether nothing is below.
    bool IsLeaf() const noexcept { return m_children.empty(); }

private:
    T m_value;
    std::vector<CSimpleTree> m_children;
};

} // namespace CommonUI

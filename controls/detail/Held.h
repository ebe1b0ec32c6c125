#pragma once

#include "controls/Window.h"

#include <utility>

namespace CommonUI
{

/// Gives a member of a control another value until the end of a block, which may destroy the control.
template<class T>
class CHeld
{
public:
    CHeld(const CWnd& control, T& member, T value)
        : m_watch(control)
        , m_member(member)
        , m_before(std::exchange(member, value))
    {
    }
    ~CHeld()
    {
        if (!m_watch.IsGone())
            m_member = m_before;
    }
    CHeld(const CHeld&) = delete;
    CHeld& operator=(const CHeld&) = delete;

private:
    CWnd::CWatch m_watch;
    T& m_member;
    T m_before;
};

} // namespace CommonUI

#pragma once

#include "../export/Export.h"

/// @file
/// What the logic of every control has in common. A control decides; a view beside it, lent by the
/// application's toolkit, shows and forwards events. Controls and views live on the user-interface thread.

// GCC 12 does not see that a watch takes its address out of the control again when it ends.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdangling-pointer"
#endif

namespace CommonUI
{

/// A control: something the pointer enters and leaves, and which a callback may destroy while the control is
/// calling it.
class COMMONUI_API CWnd
{
public:
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    /// Tells a function of the control whether a callback has destroyed the control. It lives on the stack of
    /// that function.
    class COMMONUI_API CWatch
    {
    public:
        /// @param window the control of which it tells
        explicit CWatch(const CWnd& window) noexcept
            : m_window(&window)
            , m_outer(window.m_watches)
        {
            window.m_watches = this;
        }
        ~CWatch()
        {
            if (m_window)
                m_window->m_watches = m_outer;
        }
        CWatch(const CWatch&) = delete;
        CWatch& operator=(const CWatch&) = delete;

        /// Whether the control is no more; nothing of it may be touched then.
        bool IsGone() const noexcept { return m_window == nullptr; }

    private:
        friend class CWnd;

        const CWnd* m_window;
        CWatch* m_outer; // that of the function from which this one was called
    };

protected:
    CWnd() = default;
    ~CWnd();

private:
    mutable CWatch* m_watches = nullptr; // the innermost
};

} // namespace CommonUI

#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

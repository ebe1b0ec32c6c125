#pragma once

namespace CommonUI
{

template<class TView>
class CViewedControl;

/// What a toolkit derives its view of a TControl from: knows its control as long as both live.
template<class TControl>
class CControlView
{
public:
    CControlView() = default;
    virtual ~CControlView()
    {
        if (m_control)
            m_control->SetView(nullptr);
    }
    CControlView(const CControlView&) = delete;
    CControlView& operator=(const CControlView&) = delete;

    /// The control that has this view; null when there is none, or no more. Events are forwarded to it.
    TControl* GetControl() const noexcept { return m_control; }

private:
    template<class>
    friend class CViewedControl;

    TControl* m_control = nullptr;
};

/// What a control that is shown by a TView derives from. View and control may go in either order.
template<class TView>
class CViewedControl
{
public:
    CViewedControl(const CViewedControl&) = delete;
    CViewedControl& operator=(const CViewedControl&) = delete;

    /// The window of the control; null while it has none.
    TView* GetView() const noexcept { return m_view; }

protected:
    CViewedControl() = default;
    ~CViewedControl() { Unlink(); }
    /// Gives the control its view in place of the one before, which is then without a control, as is the
    /// control that had the view. The view is not owned.
    template<class TControl>
    void Link(TControl& control, TView* view)
    {
        if (view && view->m_control && view->m_control != &control)
            view->m_control->SetView(nullptr);
        Unlink();
        m_view = view;
        if (view)
            view->m_control = &control;
    }

private:
    void Unlink() noexcept
    {
        if (m_view)
            m_view->m_control = nullptr;
        m_view = nullptr;
    }

    TView* m_view = nullptr;
};

} // namespace CommonUI

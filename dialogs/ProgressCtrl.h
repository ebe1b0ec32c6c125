#pragma once

#include "../controls/Window.h"

namespace CommonUI
{

/// The bar on the screen, or what stands for it.
class COMMONUI_API CProgressBarView
{
public:
    CProgressBarView() = default;
    virtual ~CProgressBarView();
    CProgressBarView(const CProgressBarView&) = delete;
    CProgressBarView& operator=(const CProgressBarView&) = delete;

    /// Sets what the ends of the bar stand for. @param maximum at least the minimum
    virtual void SetBarRange(int minimum, int maximum) = 0;
    /// @param position within the range
    virtual void SetBarPosition(int position) = 0;
};

/// A progress bar: a position in a range, from 0 to 100 at first, and the step by which it goes on.
class COMMONUI_API CProgressCtrl : public CWnd
{
public:
    CProgressCtrl() = default;
    ~CProgressCtrl() = default;

    /// Gives the bar its window and shows it there; null takes it away. The view is not owned.
    void SetView(CProgressBarView* view);
    /// Sets the range; a position beyond it moves to its bound. A maximum below the minimum counts as the
    /// minimum.
    void SetRange(int minimum, int maximum);
    /// The lower end of the range, at which a bar that starts again stands.
    int GetMinimum() const noexcept { return m_minimum; }
    /// The upper end of the range; never below the minimum.
    int GetMaximum() const noexcept { return m_maximum; }
    /// A position beyond the range becomes its bound.
    void SetPos(int position);
    /// Where the bar stands; always within the range.
    int GetPos() const noexcept { return m_position; }
    /// Sets what StepIt adds, at first 10. A step below 0 goes back, but not below the minimum.
    void SetStep(int step) noexcept { m_step = step; }
    /// Goes on by the step. Past the maximum the bar starts again from its minimum.
    void StepIt();

private:
    CProgressBarView* m_view = nullptr;
    int m_minimum = 0;
    int m_maximum = 100;
    int m_position = 0;
    int m_step = 10;
};

} // namespace CommonUI

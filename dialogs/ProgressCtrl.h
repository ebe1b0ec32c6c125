#pragma once

#include "../platform/Export.h"

namespace CommonUI
{

/// A progress bar: a position in a range, which steps of any size add up to.
class COMMONUI_API CProgressCtrl
{
public:
    /// A maximum below the minimum counts as the minimum. The position stays, or goes to the nearer bound.
    void SetRange(int minimum, int maximum) noexcept;
    int GetMinimum() const noexcept { return m_minimum; }
    int GetMaximum() const noexcept { return m_maximum; }
    int GetPosition() const noexcept { return m_position; }
    /// Whether a step beyond the maximum goes on from the minimum; otherwise it leaves the position as it is.
    void SetWrap(bool wrap) noexcept { m_wrap = wrap; }

    /// Adds to the progress, of which the bar shows the whole part. Progress that is negative leaves the bar
    /// where it is until it is made up for; infinity and not-a-number are ignored.
    void Step(double increment) noexcept;

private:
    int m_minimum = 0;
    int m_maximum = 100;
    int m_position = 0;
    bool m_wrap = false;
    double m_progress = 0; ///< all steps together
};

} // namespace CommonUI

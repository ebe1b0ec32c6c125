#pragma once

#include "output/grid/GridPane.h"
#include "windows/detail/Api.h"

#include <memory>

namespace CommonUI
{

/// What screen readers know of a grid in a window, by the system's UI Automation: a table with its cells,
/// their texts and headers, and which of them has the keyboard. They may keep what they have been given when
/// the window is gone, and get nothing from it then. Without UI Automation nothing happens.
class CGridAutomation
{
public:
    /// @param view that of the grid, which owns the object
    CGridAutomation(HWND window, const CGridView& view)
        : m_source(std::make_shared<SSource>(SSource{window, &view}))
    {
    }
    ~CGridAutomation() { End(); }
    CGridAutomation(const CGridAutomation&) = delete;
    CGridAutomation& operator=(const CGridAutomation&) = delete;

    /// The window goes.
    void End();
    /// Answers WM_GETOBJECT. @return 0 where something else was asked for
    LRESULT Answer(WPARAM wide, LPARAM longer);
    /// The user has selected something else.
    void TellFocus() const;

    /// What providers keep.
    struct SSource {
        HWND window;
        const CGridView* view; // null when it is gone

        CGridPane* GetGrid() const { return view ? view->GetControl() : nullptr; }
    };

private:
    std::shared_ptr<SSource> m_source;
    bool m_isAsked = false; // by somebody, and the system keeps what was given
};

} // namespace CommonUI

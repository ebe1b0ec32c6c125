#pragma once

#include "../../common/Str.h"
#include "../../controls/View.h"
#include "../../export/Export.h"

#include <chrono>

namespace CommonUI
{

class CStartPane;

/// The window of the start pane: a page, a line about its state, and a button that refreshes or stops. It
/// tells its pane of the button and of links that the user follows. Used on the user-interface thread.
class COMMONUI_API CStartPaneView : public CControlView<CStartPane>
{
public:
    ~CStartPaneView() override;

    /// Shows another page, of which the user sees the same place as before if it is there.
    /// @param html what stands in a body: nothing in it loads anything. Classes of elements are "state" for
    ///     what the pane says about a feed, "fault" where that is a fault, "date", "entry" and "summary"
    virtual void ShowPage(const CStr& html) = 0;
    /// Shows another line about the state. @param text empty while there are no feeds
    virtual void ShowStatus(const CStr& text) = 0;
    /// @param canRefresh whether there is anything to fetch
    /// @param isLoading whether the button stops; otherwise it refreshes
    virtual void ShowButton(bool canRefresh, bool isLoading) = 0;
    /// A day, as the user writes it.
    virtual CStr FormatDay(std::chrono::sys_seconds time) const = 0;
    /// A day and a time of day, as the user writes them.
    virtual CStr FormatTime(std::chrono::sys_seconds time) const = 0;
    /// Opens an address of the web in whatever the user reads such with.
    /// @return false if there is nothing for that
    virtual bool OpenAddress(const CStr& address) = 0;
};

} // namespace CommonUI

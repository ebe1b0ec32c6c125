#pragma once

#include "StartPane.h"

#include <vector>

namespace CommonUI
{

/// The window of the start pane without a display: keeps what it would show. Times are UTC.
class COMMONUI_API CMemoryStartPaneView : public CStartPaneView
{
public:
    ~CMemoryStartPaneView() override;

    void ShowPage(const CStr& html) override { m_page = html; }
    void ShowStatus(const CStr& text) override { m_status = text; }
    void ShowButton(bool canRefresh, bool isLoading) override;
    CStr FormatDay(std::chrono::sys_seconds time) const override;
    CStr FormatTime(std::chrono::sys_seconds time) const override;
    bool OpenAddress(const CStr& address) override;

    /// What the page shows, as HTML; empty before the pane has the view.
    const CStr& GetPage() const noexcept { return m_page; }
    /// The line about the state; empty while there are no feeds.
    const CStr& GetStatus() const noexcept { return m_status; }
    /// Whether there is anything to fetch.
    bool CanRefresh() const noexcept { return m_canRefresh; }
    /// Whether the button stops what is loading; otherwise it refreshes.
    bool IsLoading() const noexcept { return m_isLoading; }
    /// The addresses that were opened, the oldest first.
    const std::vector<CStr>& GetOpened() const noexcept { return m_opened; }

private:
    CStr m_page;
    CStr m_status;
    bool m_canRefresh = false;
    bool m_isLoading = false;
    std::vector<CStr> m_opened;
};

} // namespace CommonUI

#include "dialogs/start_pane/MemoryStartPaneView.h"

namespace CommonUI
{

using namespace std::chrono;

CMemoryStartPaneView::~CMemoryStartPaneView() = default;

void CMemoryStartPaneView::ShowButton(bool canRefresh, bool isLoading)
{
    m_canRefresh = canRefresh;
    m_isLoading = isLoading;
}

CStr CMemoryStartPaneView::FormatDay(sys_seconds time) const
{
    const year_month_day date(floor<days>(time));
    return CStr::Format(u"%04d-%02d-%02d", static_cast<int>(date.year()),
                        static_cast<unsigned int>(date.month()), static_cast<unsigned int>(date.day()));
}

CStr CMemoryStartPaneView::FormatTime(sys_seconds time) const
{
    const hh_mm_ss clock(time - floor<days>(time));
    return FormatDay(time) + CStr::Format(u" %02d:%02d", clock.hours().count(), clock.minutes().count());
}

bool CMemoryStartPaneView::OpenAddress(const CStr& address)
{
    m_opened.push_back(address);
    return true;
}

} // namespace CommonUI

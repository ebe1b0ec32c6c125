#include "dialogs/lists/MemorySelectionListView.h"

namespace CommonUI
{

CMemorySelectionListView::~CMemorySelectionListView() = default;

void CMemorySelectionListView::Type(const CStr& filter)
{
    m_filter = filter;
    if (GetControl())
        GetControl()->OnFilterChanged(filter);
}

void CMemorySelectionListView::Choose(std::optional<std::size_t> row)
{
    m_row = row;
    if (GetControl())
        GetControl()->OnRowSelected(row);
}

bool CMemorySelectionListView::Press(int button)
{
    return PressOkOrCancel(button);
}

} // namespace CommonUI

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
    if (!CanPress(button) || (button != CBaseDialog::c_ok && button != CBaseDialog::c_cancel))
        return false;
    if (button == CBaseDialog::c_ok)
        GetControl()->OnOK();
    else
        GetControl()->OnCancel();
    return true;
}

} // namespace CommonUI

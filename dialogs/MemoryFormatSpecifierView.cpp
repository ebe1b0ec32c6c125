#include "dialogs/MemoryFormatSpecifierView.h"

namespace CommonUI
{

CMemoryFormatSpecifierView::~CMemoryFormatSpecifierView() = default;

void CMemoryFormatSpecifierView::SetItems(const std::vector<SFormatItem>& items)
{
    m_items = items;
    m_selected.reset();
}

bool CMemoryFormatSpecifierView::Choose(std::size_t index)
{
    if (index >= m_items.size())
        return false;
    m_selected = index;
    if (GetControl())
        GetControl()->OnCbnSelchangeFormatCombo();
    return true;
}

bool CMemoryFormatSpecifierView::Press(int button)
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

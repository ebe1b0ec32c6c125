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
    return PressOkOrCancel(button);
}

} // namespace CommonUI

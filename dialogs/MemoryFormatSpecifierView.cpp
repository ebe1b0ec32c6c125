#include "dialogs/MemoryFormatSpecifierView.h"

#include "controls/MemoryEditView.h"

namespace CommonUI
{

CMemoryFormatSpecifierView::~CMemoryFormatSpecifierView() = default;

int CMemoryFormatSpecifierView::Run(CFormatSpecifierDlg& dialog, const FUse& use)
{
    CMemoryFormatSpecifierView window;
    CMemoryEditView count;
    dialog.SetView(&window);
    dialog.GetCountEdit().SetView(&count);
    dialog.Create();
    if (use)
        use(dialog, window);
    const int result = dialog.IsOpen() ? CBaseDialog::c_cancel : CBaseDialog::c_ok;
    dialog.EndDialog(CBaseDialog::c_cancel);
    return result;
}

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

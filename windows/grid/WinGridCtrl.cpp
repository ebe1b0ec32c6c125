#include "windows/grid/WinGridCtrl.h"

#include "windows/grid/detail/WinGridView.h"

namespace CommonUI
{

CWinGridCtrl::CWinGridCtrl(HWND__* dialog, int identifier)
    : m_view(CWinGridView::Replace(dialog, identifier))
{
    Show();
}

CWinGridCtrl::CWinGridCtrl(HWND__* parent, int identifier, const SRect& place)
    : m_view(std::make_unique<CWinGridView>(parent, identifier, place))
{
    Show();
}

CWinGridCtrl::~CWinGridCtrl()
{
    m_grid.SetView(nullptr);
}

void CWinGridCtrl::Show()
{
    m_view->TakeEnter();
    m_view->Attach(m_grid);
}

HWND__* CWinGridCtrl::GetWindow() const noexcept
{
    return m_view->GetHandle();
}

} // namespace CommonUI

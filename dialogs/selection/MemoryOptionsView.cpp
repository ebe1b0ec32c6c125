#include "dialogs/selection/MemoryOptionsView.h"

#include <algorithm>

namespace CommonUI
{

CMemoryOptionsView::~CMemoryOptionsView() = default;

bool CMemoryOptionsView::CanUse(int id) const
{
    const auto found = std::ranges::find(m_options, id, &SDialogOption::id);
    return IsVisible() && GetControl() && found != m_options.end() && found->enabled;
}

bool CMemoryOptionsView::Choose(int id, int value)
{
    const bool can = CanUse(id);
    if (can)
        GetControl()->OnChoice(id, value);
    return can;
}

bool CMemoryOptionsView::Type(int id, const CStr& text)
{
    const bool can = CanUse(id);
    if (can)
        GetControl()->OnText(id, text);
    return can;
}

bool CMemoryOptionsView::Press(int button)
{
    return PressOkOrCancel(button);
}

} // namespace CommonUI

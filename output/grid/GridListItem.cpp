#include "output/grid/GridListItem.h"

#include <algorithm>

namespace CommonUI
{

CGridListItem::CGridListItem()
{
    SetFlag(HasOptions);
}

CGridListItem::~CGridListItem() = default;

bool CGridListItem::CreateInPlaceEdit(SGridEdit& edit) const
{
    return CGridItem::CreateInPlaceEdit(edit) && !edit.options.empty();
}

bool CGridListItem::OnEndEdit(const CStr& text)
{
    if (std::ranges::find(GetOptions(), text) == GetOptions().end())
        return false;
    SetValue(text);
    return true;
}

} // namespace CommonUI

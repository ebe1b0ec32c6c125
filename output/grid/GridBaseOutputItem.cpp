#include "output/grid/GridBaseOutputItem.h"

namespace CommonUI
{

CGridBaseOutputItem::CGridBaseOutputItem()
{
    SetFlag(ReadOnly);
}

CGridBaseOutputItem::~CGridBaseOutputItem() = default;

void CGridBaseOutputItem::SetFormatString(int type, const CStr& format)
{
    m_formats.Set(type, format);
    Redraw();
}

CStr CGridBaseOutputItem::FormatItem() const
{
    return m_formats.Apply(GetValue(), CGridItem::FormatItem());
}

} // namespace CommonUI

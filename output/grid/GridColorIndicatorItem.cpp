#include "output/grid/GridColorIndicatorItem.h"

#include "output/grid/GridPane.h"

namespace CommonUI
{

namespace
{

CStr TextOf(const char16_t* text)
{
    return text ? CStr(text) : CStr();
}

} // namespace

CGridColorIndicatorItem::CGridColorIndicatorItem(const CGridValue& value, unsigned long data,
                                                 const char16_t* mask, const char16_t* initialText,
                                                 const char16_t* validCharacters)
    : CGridItem(value, data, {TextOf(mask), TextOf(initialText), TextOf(validCharacters)})
{
    SetFlag(ReadOnly);
}

CGridColorIndicatorItem::~CGridColorIndicatorItem() = default;

void CGridColorIndicatorItem::SetOutlineColor(SColor color)
{
    m_outline = color;
    Redraw();
}

void CGridColorIndicatorItem::SetFillColor(SColor color)
{
    m_fill = color;
    Redraw();
}

SRect CGridColorIndicatorItem::GetColorRect(const SRect& rect)
{
    SRect square = rect.Shrunk(CGridPane::c_margin, CGridPane::c_margin);
    square.right = square.left + square.GetHeight();
    return square;
}

SRect CGridColorIndicatorItem::GetTextRect(const SRect& rect) const
{
    SRect text = CGridItem::GetTextRect(rect);
    text.left = GetColorRect(rect).right + 2 * CGridPane::c_margin;
    return text;
}

void CGridColorIndicatorItem::OnDrawValue(CGridPainter& painter, const SRect& rect) const
{
    DrawBackground(painter, rect);
    painter.DrawBox(GetColorRect(rect), m_outline, m_fill);
    DrawContents(painter, rect);
}

} // namespace CommonUI

#pragma once

#include "../../export/Export.h"
#include "GridItem.h"

namespace CommonUI
{

/// A cell that shows a colour and a value beside it. The user cannot change it.
class COMMONUI_API CGridColorIndicatorItem : public CGridItem
{
public:
    /// @param value shown beside the colour
    /// @param data whatever the application keeps with the item
    /// @param mask, initialText, validCharacters the rules of an editor, for derived items that have one;
    ///     null for none
    explicit CGridColorIndicatorItem(const CGridValue& value, unsigned long data = 0,
                                     const char16_t* mask = nullptr, const char16_t* initialText = nullptr,
                                     const char16_t* validCharacters = nullptr);
    ~CGridColorIndicatorItem() override;

    /// Both are black from the start.
    SColor GetOutlineColor() const noexcept { return m_outline; }
    /// The inside of the square.
    SColor GetFillColor() const noexcept { return m_fill; }
    /// The line around the square, one pixel wide. Draws the item anew.
    void SetOutlineColor(SColor color);
    /// The inside of the square. Draws the item anew.
    void SetFillColor(SColor color);

    /// The colour in a cell: a square at the left, as high as the cell without its margins.
    static SRect GetColorRect(const SRect& rect);
    void OnDrawValue(CGridPainter& painter, const SRect& rect) const override;
    SRect GetTextRect(const SRect& rect) const override;

private:
    SColor m_outline{};
    SColor m_fill{};
};

} // namespace CommonUI

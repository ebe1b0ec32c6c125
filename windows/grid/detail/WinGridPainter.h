#pragma once

#include "output/grid/GridPainter.h"
#include "windows/detail/Api.h"

namespace CommonUI
{

/// Draws a grid in the colours of the system.
class CWinGridPainter final : public CGridPainter
{
public:
    /// Lives as long as one drawing; the context, which has the font of the cells, is not owned.
    explicit CWinGridPainter(HDC context);
    ~CWinGridPainter() override;

    void FillBackground(const SRect& rect, EGridBackground background) override;
    void WriteText(const SRect& rect, std::u16string_view text, EGridAlign align) override;
    void DrawCheckBox(const SRect& rect, EGridCheck state, bool enabled) override;
    void DrawButton(const SRect& rect, const SGridButton& button) override;
    void DrawBox(const SRect& rect, SColor outline, SColor fill) override;
    void DrawExpander(const SRect& rect, bool expanded) override;
    void DrawFocus(const SRect& rect) override;

    SColor GetTextColor() const override { return m_textColor; }
    void SetTextColor(SColor color) override { m_textColor = color; }
    SColor GetStyleColor(EGridColor color) const override;

    /// The room where there are no cells; `header` for that of the headers.
    void FillRest(const SRect& rect, bool header);

private:
    void Fill(const SRect& rect, SColor color);
    void DrawLines(const SRect& rect);
    void DrawArrow(const SRect& rect, UINT arrow, bool enabled);

    HDC m_context;
    SColor m_textColor;
};

} // namespace CommonUI

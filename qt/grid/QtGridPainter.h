#pragma once

#include "../../export/Export.h"
#include "../../output/grid/GridPainter.h"

#include <QIcon>
#include <QStyleOption>

#include <functional>

class QPainter;
class QWidget;

namespace CommonUI
{

/// Draws a grid in the style, the palette and the font of a widget.
class COMMONUIQT_API CQtGridPainter : public CGridPainter
{
public:
    /// Gives the picture of a number; a null icon where there is none.
    using FImages = std::function<QIcon(unsigned int)>;

    /// Lives as long as one drawing; painter, widget and images are not owned.
    CQtGridPainter(QPainter& painter, const QWidget& widget, const FImages& images);
    ~CQtGridPainter() override;

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

    /// The room of the headers where there is no column.
    void FillHeaderRest(const SRect& rect);

private:
    template<class TOption>
    TOption MakeOption(const SRect& rect) const;
    void DrawHeader(const SRect& rect, bool marked);
    void DrawPush(const SRect& rect, const SGridButton& button);
    void DrawArrows(const SRect& rect, const SGridButton& button);
    QColor Blend(double part) const;

    QPainter& m_painter;
    const QWidget& m_widget;
    const FImages& m_images;
    QStyleOption m_option; // what all parts have in common
    QColor m_line;
    SColor m_textColor;
};

} // namespace CommonUI

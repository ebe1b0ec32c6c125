#pragma once

#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace CommonUI
{

/// A style whose fields, buttons and frames have an edge in the colour of outlines. Styles derive edges from
/// the ground, and black has no darker shade: in high contrast nothing would be seen of them.
class CEdgeStyle final : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        switch (element) {
        case PE_Frame:
        case PE_FrameGroupBox:
        case PE_FrameLineEdit:
        case PE_FrameMenu:
        case PE_FrameTabWidget:
        case PE_IndicatorItemViewItemCheck:
        case PE_PanelButtonCommand:
        case PE_PanelButtonTool:
            DrawEdge(*painter, option->rect, *option);
            break;
        default:
            break;
        }
    }
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override
    {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        if (control == CC_ComboBox || control == CC_SpinBox)
            DrawEdge(*painter, option->rect, *option);
        if (control == CC_Slider)
            DrawEdge(*painter, subControlRect(control, option, SC_SliderHandle, widget), *option);
        if (control == CC_ScrollBar)
            DrawEdge(*painter, subControlRect(control, option, SC_ScrollBarSlider, widget), *option);
    }

private:
    static void DrawEdge(QPainter& painter, const QRect& place, const QStyleOption& option)
    {
        const bool hasFocus = option.state & State_HasFocus;
        painter.save();
        painter.setBrush(Qt::NoBrush);
        painter.setPen(option.palette.color(hasFocus ? QPalette::Highlight : QPalette::Mid));
        painter.drawRect(place.adjusted(0, 0, -1, -1));
        painter.restore();
    }
};

} // namespace CommonUI

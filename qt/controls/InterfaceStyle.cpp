#include "qt/controls/InterfaceStyle.h"

#include "qt/controls/BoxDelegate.h"
#include "qt/controls/detail/EdgeStyle.h"

#include <QApplication>
#include <QPointer>
#include <QStyleFactory>
#include <QToolTip>
#include <QWidget>

#include <utility>

namespace CommonUI
{

namespace
{

using enum EInterfaceColor;

constexpr struct {
    QPalette::ColorRole role;
    EInterfaceColor color;
} c_roles[] = {
    {QPalette::Window, Window},
    {QPalette::WindowText, WindowText},
    {QPalette::Base, Field},
    {QPalette::AlternateBase, AlternateField},
    {QPalette::Text, Text},
    {QPalette::PlaceholderText, DimText},
    {QPalette::Button, Button},
    {QPalette::ButtonText, ButtonText},
    {QPalette::BrightText, Error},
    {QPalette::Highlight, Selection},
    {QPalette::HighlightedText, SelectedText},
    {QPalette::Link, Link},
    {QPalette::LinkVisited, Link},
    {QPalette::ToolTipBase, ToolTip},
    {QPalette::ToolTipText, ToolTipText},
    {QPalette::Mid, Outline},
};

constexpr QPalette::ColorRole c_texts[] = {QPalette::WindowText, QPalette::Text, QPalette::ButtonText};

// See CBoxDelegate.
void ColorBoxes(const CInterfaceColors& colors)
{
    QPalette boxes = QApplication::palette();
    boxes.setColor(QPalette::Window, CBoxDelegate::MakeGroundOfEdge(ToQColor(colors.Get(Outline))));
    for (const char* const name : {"QCheckBox", "QRadioButton"})
        QApplication::setPalette(boxes, name);
}

} // namespace

QColor ToQColor(const SColor& color)
{
    return {color.red, color.green, color.blue};
}

QPalette MakePalette(const CInterfaceColors& colors)
{
    // Qt computes the shades of edges from these two.
    QPalette palette(ToQColor(colors.Get(Button)), ToQColor(colors.Get(Window)));
    for (const auto& [role, color] : c_roles)
        palette.setColor(role, ToQColor(colors.Get(color)));
    for (const QPalette::ColorRole role : c_texts)
        palette.setColor(QPalette::Disabled, role, ToQColor(colors.Get(Disabled)));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, ToQColor(colors.Get(Disabled)));
    return palette;
}

CInterfaceStyle::CInterfaceStyle(CInterfaceColors& colors)
    : m_colors(colors)
{
    m_colors.GetChanged().Subscribe(*this, &CInterfaceStyle::Apply, m_connection);
    Apply();
}

CInterfaceStyle::~CInterfaceStyle()
{
    ShowEdges(false);
    for (const char* const name : {"QCheckBox", "QRadioButton"})
        QApplication::setPalette(QPalette(), name);
    QApplication::setPalette(QPalette());
    QToolTip::setPalette(QApplication::palette());
}

// Takes or leaves the style with edges, on that of the application.
void CInterfaceStyle::ShowEdges(bool show)
{
    if (show == !m_style.isEmpty())
        return;
    // Boxes of buttons make theirs anew for another style, and drop the focus.
    const QPointer<QWidget> focus = QApplication::focusWidget();
    if (show) {
        m_style = QApplication::style()->name();
        QApplication::setStyle(new CEdgeStyle(m_style));
    } else {
        QApplication::setStyle(QStyleFactory::create(std::exchange(m_style, {})));
    }
    if (focus)
        focus->setFocus(Qt::OtherFocusReason);
}

void CInterfaceStyle::Apply()
{
    ShowEdges(m_colors.GetScheme() == EColorScheme::HighContrast);
    const QPalette palette = MakePalette(m_colors);
    QApplication::setPalette(palette);
    // Tooltips keep a palette of their own.
    QToolTip::setPalette(palette);
    ColorBoxes(m_colors);
}

} // namespace CommonUI

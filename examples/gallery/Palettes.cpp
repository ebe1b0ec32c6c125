#include "examples/gallery/Palettes.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QToolTip>

namespace Gallery
{

namespace
{

QPalette MakeDarkPalette()
{
    const QColor window(0x2b, 0x2d, 0x30);
    const QColor text(0xe4, 0xe6, 0xe8);
    const QColor dim(0x84, 0x88, 0x8c);
    QPalette palette(QColor(0x3c, 0x3f, 0x43), window);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, dim);
    }
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, QColor(0x3c, 0x3f, 0x43));
    palette.setColor(QPalette::PlaceholderText, dim);
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb5));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x5c, 0x60, 0x64));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6c, 0xb0, 0xf5));
    return palette;
}

} // namespace

void SetDark(bool dark)
{
    const QPalette palette = dark ? MakeDarkPalette() : QApplication::style()->standardPalette();
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    // The style draws the outline of a box a shade darker than the window, where it is not seen.
    QPalette boxes = palette;
    if (dark)
        boxes.setColor(QPalette::Window, palette.color(QPalette::PlaceholderText));
    QApplication::setPalette(boxes, "QCheckBox");
}

} // namespace Gallery

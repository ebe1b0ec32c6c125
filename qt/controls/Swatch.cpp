#include "qt/controls/detail/Swatch.h"

#include "qt/controls/InterfaceStyle.h"

#include <QPainter>
#include <QPixmap>
#include <QWidget>

namespace CommonUI
{

namespace
{

void DrawChequers(QPainter& painter, const QSize& size)
{
    constexpr int c_edge = 4;
    for (int y = 0; y < size.height(); y += c_edge)
        for (int x = 0; x < size.width(); x += c_edge)
            painter.fillRect(x, y, c_edge, c_edge, (x + y) / c_edge % 2 == 0 ? Qt::white : Qt::lightGray);
}

} // namespace

QIcon MakeSwatch(const SPaint& paint, const QSize& size, const QWidget& widget)
{
    QPixmap picture(size * widget.devicePixelRatioF());
    picture.setDevicePixelRatio(widget.devicePixelRatioF());
    QPainter painter(&picture);
    DrawChequers(painter, size);
    QColor color = ToQColor(paint.color);
    color.setAlpha(paint.opacity);
    painter.fillRect(QRect({}, size), color);
    painter.setPen(widget.palette().color(QPalette::Text));
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    painter.end();
    QIcon icon(picture);
    icon.addPixmap(picture, QIcon::Selected); // Qt would tint it
    return icon;
}

} // namespace CommonUI

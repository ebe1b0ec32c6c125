#include "qt/settings/detail/ColorScaleIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

namespace CommonUI
{

namespace
{

QImage MakeStrip(const std::vector<SColor>& colors)
{
    QImage strip(static_cast<int>(colors.size()), 1, QImage::Format_RGB32);
    int x = 0;
    for (const SColor& color : colors)
        strip.setPixelColor(x++, 0, QColor(color.red, color.green, color.blue));
    return strip;
}

// Drawn anew each time, so that it is sharp at any size and follows the palette.
class CColorScaleIconEngine final : public QIconEngine
{
public:
    explicit CColorScaleIconEngine(QImage strip)
        : m_strip(std::move(strip))
    {
    }

    QIconEngine* clone() const override { return new CColorScaleIconEngine(m_strip); }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        // No higher than wide scales look like scales.
        const int height = std::min(rect.height(), rect.width() * 3 / 4);
        const QRect place(rect.left(), rect.center().y() - (height - 1) / 2, rect.width(), height);
        painter->drawImage(place, m_strip);
        QColor frame = QGuiApplication::palette().color(QPalette::WindowText);
        frame.setAlpha(160);
        painter->setPen(QPen(frame, 1));
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(place.adjusted(0, 0, -1, -1));
    }

private:
    QImage m_strip; // a pixel for each colour
};

} // namespace

QIcon MakeColorScaleIcon(const std::vector<SColor>& colors)
{
    return QIcon(new CColorScaleIconEngine(MakeStrip(colors)));
}

} // namespace CommonUI

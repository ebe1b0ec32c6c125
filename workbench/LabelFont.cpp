#include "workbench/LabelFont.h"

#include "qt/QtText.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>

namespace Workbench
{

using CommonUI::SColor;
using CommonUI::SSize;
using SurfaceView::SPixels;

namespace
{

constexpr qsizetype c_mostPictures = 500;

} // namespace

void CLabelFont::SetFont(const QFont& font)
{
    m_font = font;
    m_pictures.clear();
}

QFont CLabelFont::OfHeight(int height) const
{
    QFont font(m_font);
    font.setPixelSize(height);
    return font;
}

SSize CLabelFont::Measure(std::u16string_view text, int height) const
{
    const QFontMetrics metrics(OfHeight(height));
    return {.cx = metrics.horizontalAdvance(CommonUI::ToQString(text)), .cy = metrics.height()};
}

SPixels CLabelFont::Draw(std::u16string_view text, int height, SColor color) const
{
    const QString shown = CommonUI::ToQString(text);
    const QString key = QStringLiteral("%1 %2 %3 %4 %5")
                            .arg(height)
                            .arg(color.red)
                            .arg(color.green)
                            .arg(color.blue)
                            .arg(shown);
    if (const auto found = m_pictures.constFind(key); found != m_pictures.constEnd())
        return *found;
    SPixels pixels{.size = Measure(text, height)};
    QImage image(pixels.size.cx, pixels.size.cy, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(OfHeight(height));
    painter.setPen(Qt::white);
    painter.drawText(0, QFontMetrics(painter.font()).ascent(), shown);
    painter.end();
    for (int y = pixels.size.cy; y-- > 0;) {
        for (int x = 0; x < pixels.size.cx; ++x) {
            const int alpha = qAlpha(image.pixel(x, y));
            pixels.bytes.insert(pixels.bytes.end(),
                                {color.red, color.green, color.blue, static_cast<std::uint8_t>(alpha)});
        }
    }
    if (m_pictures.size() >= c_mostPictures)
        m_pictures.clear();
    m_pictures.insert(key, pixels);
    return pixels;
}

} // namespace Workbench

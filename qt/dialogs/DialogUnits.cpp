#include "qt/dialogs/detail/DialogUnits.h"

#include <QFontMetricsF>
#include <QWidget>

#include <cmath>

namespace CommonUI
{

namespace
{

// Up to the next integer, but for what rounding has added.
int RoundUp(double value)
{
    return static_cast<int>(std::ceil(value - 1e-6));
}

} // namespace

CDialogUnits::CDialogUnits(const QWidget& widget)
{
    widget.ensurePolished();
    const QFontMetricsF metrics(widget.font());
    const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    m_width = metrics.horizontalAdvance(letters) / static_cast<double>(letters.size()) / 4;
    // Lines begin at whole pixels.
    m_height = widget.fontMetrics().height() / 8.0;
}

QSize CDialogUnits::ToPixels(const SSize& size) const
{
    return {RoundUp(size.cx * m_width), RoundUp(size.cy * m_height)};
}

QRect CDialogUnits::ToPixels(const SRect& rect) const
{
    return {QPoint(qRound(rect.left * m_width), qRound(rect.top * m_height)),
            ToPixels(SSize{rect.GetWidth(), rect.GetHeight()})};
}

SSize CDialogUnits::ToUnits(const QSizeF& size) const
{
    return {RoundUp(size.width() / m_width), RoundUp(size.height() / m_height)};
}

} // namespace CommonUI

#include "qt/dialogs/detail/WrappedLabel.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace CommonUI
{

namespace
{

// @param pitch from one line to the next
QSizeF LayOut(QTextLayout& layout, const QString& text, double width, double pitch)
{
    layout.setText(QString(text).replace(QLatin1Char('\n'), QChar(QChar::LineSeparator)));
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.setCacheEnabled(true);
    layout.beginLayout();
    QSizeF size(0, 0);
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, size.height()));
        size = {std::max(size.width(), line.naturalTextWidth()), size.height() + pitch};
    }
    layout.endLayout();
    return size;
}

// Styles make a disabled text so pale that it is hard to read. This one is still to be read: it says what a
// dialog that was cancelled waits for.
QColor GetTextColor(const QWidget& label)
{
    const QPalette& palette = label.palette();
    const QColor text = palette.color(QPalette::Active, label.foregroundRole());
    if (label.isEnabled())
        return text;
    const QColor ground = palette.color(QPalette::Active, label.backgroundRole());
    const auto mix = [](int from, int to) { return (from * 3 + to * 7) / 10; };
    return {mix(ground.red(), text.red()), mix(ground.green(), text.green()),
            mix(ground.blue(), text.blue())};
}

} // namespace

CWrappedLabel::CWrappedLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

QSizeF CWrappedLabel::Measure(const QString& text, double width) const
{
    ensurePolished();
    QTextLayout layout(QString(), font());
    return LayOut(layout, text, width, fontMetrics().height());
}

void CWrappedLabel::paintEvent(QPaintEvent*)
{
    QTextLayout layout(QString(), font(), this);
    LayOut(layout, text(), width(), fontMetrics().height());
    QPainter painter(this);
    painter.setPen(GetTextColor(*this));
    layout.draw(&painter, QPointF(0, 0));
}

} // namespace CommonUI

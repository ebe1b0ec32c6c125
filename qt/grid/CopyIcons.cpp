#include "qt/grid/detail/CopyIcons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

namespace CommonUI
{

namespace
{

// A table: where its headers are, and whether it is a part, on top of the whole.
struct SGlyph {
    bool part;
    bool headersAbove;
    bool headersBeside;
};

// Drawn anew each time, so that it follows the palette.
class CCopyIconEngine final : public QIconEngine
{
public:
    explicit CCopyIconEngine(const SGlyph& glyph)
        : m_glyph(glyph)
    {
    }

    QIconEngine* clone() const override { return new CCopyIconEngine(m_glyph); }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor color = QGuiApplication::palette().color(group, QPalette::ButtonText);
        painter->save();
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 16.0, rect.height() / 16.0);
        painter->setPen(color);
        if (m_glyph.part)
            painter->drawPolyline(
                QPolygonF({{2.5, 11.5}, {1.5, 11.5}, {1.5, 1.5}, {11.5, 1.5}, {11.5, 2.5}}));
        DrawTable(*painter, color);
        painter->restore();
    }

private:
    void DrawTable(QPainter& painter, const QColor& color) const
    {
        const qreal begin = m_glyph.part ? 4.5 : 1.5;
        constexpr qreal c_end = 14.5;
        const QRectF frame(QPointF(begin, begin), QPointF(c_end, c_end));
        painter.drawRect(frame);
        QRectF cells = frame;
        if (m_glyph.headersAbove)
            cells.setTop(begin + 3);
        if (m_glyph.headersBeside)
            cells.setLeft(begin + 3);
        painter.fillRect(QRectF(frame.topLeft(), QPointF(c_end, cells.top())), color);
        painter.fillRect(QRectF(frame.topLeft(), QPointF(cells.left(), c_end)), color);
        // Turned, what was a line of cells is a column.
        const QPointF middle(qRound(cells.center().x()) - 0.5, qRound(cells.center().y()) - 0.5);
        painter.drawLine(QPointF(middle.x(), cells.top()), QPointF(middle.x(), c_end));
        painter.drawLine(QPointF(cells.left(), middle.y()), QPointF(c_end, middle.y()));
    }

    SGlyph m_glyph;
};

} // namespace

QIcon MakeCopyIcon(CResultGridWidget::ECommand command)
{
    using enum CResultGridWidget::ECommand;
    switch (command) {
    case Copy:
        return QIcon(new CCopyIconEngine({.part = true, .headersAbove = true, .headersBeside = false}));
    case CopyWithoutHeaders:
        return QIcon(new CCopyIconEngine({.part = true, .headersAbove = false, .headersBeside = false}));
    case CopyTransposed:
        return QIcon(new CCopyIconEngine({.part = true, .headersAbove = false, .headersBeside = true}));
    case CopyWhole:
        return QIcon(new CCopyIconEngine({.part = false, .headersAbove = true, .headersBeside = false}));
    case CopyWholeTransposed:
        return QIcon(new CCopyIconEngine({.part = false, .headersAbove = false, .headersBeside = true}));
    default:
        return {};
    }
}

} // namespace CommonUI

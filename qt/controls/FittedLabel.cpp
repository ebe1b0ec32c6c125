#include "qt/controls/FittedLabel.h"

#include "qt/controls/detail/Isolate.h"
#include "qt/QtText.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace CommonUI
{

namespace
{

void DrawText(QLabel& label, const QFont& font, const QString& text)
{
    QPainter painter(&label);
    painter.setFont(font);
    const auto alignment = QStyle::visualAlignment(label.layoutDirection(), label.alignment());
    const int flags = static_cast<int>(alignment.toInt()) | Qt::TextSingleLine;
    label.style()->drawItemText(&painter, label.contentsRect(), flags, label.palette(), label.isEnabled(),
                                text, label.foregroundRole());
}

} // namespace

CFittedLabel::CFittedLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

CFittedLabel::~CFittedLabel() = default;

double CFittedLabel::Measure(std::u16string_view text) const
{
    return fontMetrics().horizontalAdvance(ToQString(text));
}

QSize CFittedLabel::sizeHint() const
{
    ensurePolished();
    const QMargins margins = contentsMargins();
    return QSize(fontMetrics().horizontalAdvance(text()) + 1, fontMetrics().height()).grownBy(margins);
}

QSize CFittedLabel::minimumSizeHint() const
{
    ensurePolished();
    const int width = std::min(sizeHint().width(), 6 * fontMetrics().averageCharWidth());
    return {width, sizeHint().height()};
}

void CFittedLabel::paintEvent(QPaintEvent* event)
{
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): that of QLabel would draw its own text
    QFrame::paintEvent(event);
    DrawText(*this, font(), GetShownText());
}

bool CFittedLabel::event(QEvent* event)
{
    const bool isPlain = event->type() == QEvent::ToolTip && toolTip().isEmpty();
    if (isPlain && contentsRect().width() < fontMetrics().horizontalAdvance(text())) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text().toHtmlEscaped(), this);
        return true;
    }
    return QLabel::event(event);
}

CElidedLabel::CElidedLabel(EElision elision, QWidget* parent)
    : CFittedLabel(parent)
    , m_elision(elision)
{
}

CElidedLabel::~CElidedLabel() = default;

QString CElidedLabel::Fit(int room) const
{
    const auto measure = [this](std::u16string_view part) { return Measure(part); };
    const QString shown = ToQString(ElideText(FromQString(text()), room, m_elision, measure));
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    return m_elision == EElision::Path && isMirrored ? IsolateLeftToRight(shown) : IsolateIn(*this, shown);
}

CValueLabel::CValueLabel(QWidget* parent)
    : CFittedLabel(parent)
{
}

CValueLabel::~CValueLabel() = default;

void CValueLabel::SetValue(const SValueText& value)
{
    m_value = value;
    setText(ToQString(value.GetText()));
}

QString CValueLabel::Fit(int room) const
{
    const auto measure = [this](std::u16string_view part) { return Measure(part); };
    const QString number = ToQString(m_value.GetValueText());
    return ToQString(ElideValue(m_value, room, measure)).replace(number, IsolateLeftToRight(number));
}

CScalingLabel::CScalingLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

CScalingLabel::~CScalingLabel() = default;

void CScalingLabel::SetFontRange(const SFontRange& range)
{
    m_range = range;
    updateGeometry();
    update();
}

QFont CScalingLabel::MakeFont(double points) const
{
    QFont scaled = font();
    scaled.setPointSizeF(points);
    return scaled;
}

QSize CScalingLabel::Measure(double points) const
{
    const QFontMetricsF metrics(MakeFont(points));
    return {static_cast<int>(std::ceil(metrics.horizontalAdvance(text()))),
            static_cast<int>(std::ceil(metrics.height()))};
}

QFont CScalingLabel::GetShownFont() const
{
    const QSize room = contentsRect().size();
    return MakeFont(FitFont({room.width(), room.height()}, m_range, [this](double points) {
        const QSize size = Measure(points);
        return SSize{size.width(), size.height()};
    }));
}

QSize CScalingLabel::minimumSizeHint() const
{
    return Measure(m_range.least).grownBy(contentsMargins());
}

void CScalingLabel::paintEvent(QPaintEvent* event)
{
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): that of QLabel would draw its own text
    QFrame::paintEvent(event);
    DrawText(*this, GetShownFont(), IsolateIn(*this, text()));
}

} // namespace CommonUI

#include "qt/controls/SectionWidget.h"

#include "qt/controls/detail/SectionHeadAccessible.h"
#include "qt/detail/EventGuard.h"

#include <QKeyEvent>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QVBoxLayout>

namespace CommonUI
{

CSectionHead::CSectionHead(QWidget* parent)
    : QPushButton(parent)
{
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(&CSectionHeadAccessible::Make);
        return true;
    }();
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
    connect(this, &QPushButton::clicked, this, [this] { Q_EMIT ExpandWanted(!m_expanded); });
}

CSectionHead::~CSectionHead() = default;

void CSectionHead::SetExpanded(bool expanded)
{
    if (m_expanded == expanded)
        return;
    m_expanded = expanded;
    QAccessible::State changed;
    changed.expanded = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
    update();
}

int CSectionHead::GetArrowWidth() const
{
    return fontMetrics().height();
}

QSize CSectionHead::sizeHint() const
{
    const int margin = fontMetrics().height() / 4;
    const int width = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    return {GetArrowWidth() + width + 3 * margin, fontMetrics().height() + 2 * margin};
}

void CSectionHead::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const bool isLeft = option.direction == Qt::RightToLeft;
    const int margin = fontMetrics().height() / 4;
    const QRect inner = rect().adjusted(margin, 0, -margin, 0);
    if (option.state & QStyle::State_MouseOver)
        painter.fillRect(rect(), palette().color(QPalette::Button));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(rect().bottomLeft(), rect().bottomRight());

    QStyleOption arrow;
    arrow.initFrom(this);
    arrow.rect = QStyle::visualRect(option.direction, inner,
                                    QRect(inner.left(), inner.top(), GetArrowWidth(), inner.height()));
    const auto closed = isLeft ? QStyle::PE_IndicatorArrowLeft : QStyle::PE_IndicatorArrowRight;
    painter.drawPrimitive(m_expanded ? QStyle::PE_IndicatorArrowDown : closed, arrow);
    const QRect place =
        QStyle::visualRect(option.direction, inner, inner.adjusted(GetArrowWidth() + margin, 0, 0, 0));
    const auto alignment = QStyle::visualAlignment(option.direction, Qt::AlignLeft | Qt::AlignVCenter);
    painter.drawItemText(place, static_cast<int>(alignment.toInt()) | Qt::TextShowMnemonic, palette(),
                         isEnabled(), text(), QPalette::WindowText);
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.state |= QStyle::State_KeyboardFocusChange;
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

void CSectionHead::keyPressEvent(QKeyEvent* event)
{
    const bool leftward = layoutDirection() == Qt::RightToLeft;
    const int open = leftward ? Qt::Key_Left : Qt::Key_Right;
    const int close = leftward ? Qt::Key_Right : Qt::Key_Left;
    if (event->key() == open || event->key() == close)
        Q_EMIT ExpandWanted(event->key() == open);
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Q_EMIT ExpandWanted(!m_expanded);
    else
        QPushButton::keyPressEvent(event);
}

CSectionWidget::CSectionWidget(CSections& sections, const CStr& name, const QString& title, QWidget* parent)
    : QWidget(parent)
    , m_sections(sections)
    , m_name(name)
    , m_head(new CSectionHead)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_head);
    m_head->setText(title);
    m_sections.Add(name, true);
    m_sections.GetChanged().Subscribe(*this, &CSectionWidget::OnChanged, m_connection);
    connect(m_head, &CSectionHead::ExpandWanted, this,
            [this](bool expanded) { Guarded([&] { m_sections.SetExpanded(m_name, expanded); }); });
    Show();
}

CSectionWidget::~CSectionWidget() = default;

void CSectionWidget::SetContent(QWidget& content)
{
    m_content = &content;
    layout()->addWidget(&content);
    Show();
}

void CSectionWidget::OnChanged(const CStr& name)
{
    if (name == m_name)
        Show();
}

void CSectionWidget::Show()
{
    const bool expanded = m_sections.IsExpanded(m_name);
    m_head->SetExpanded(expanded);
    if (!m_content)
        return;
    // The keyboard stays where people see it.
    if (!expanded && m_content->isAncestorOf(window()->focusWidget()))
        m_head->setFocus();
    m_content->setVisible(expanded);
}

} // namespace CommonUI

#include "qt/QtStepSizePopup.h"

#include "qt/detail/StepSizeHalf.h"
#include "qt/QtText.h"

#include <QEvent>
#include <QPainter>

namespace CommonUI
{

namespace
{

QRect ToQRect(const SRect& rect)
{
    return {QPoint(rect.left, rect.top), QPoint(rect.right - 1, rect.bottom - 1)};
}

} // namespace

CQtStepSizePopup::CQtStepSizePopup(QWidget* parent)
    : QWidget(parent,
              Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus)
    , m_buttons{new CStepSizeHalf(*this, *this, CStepSizeBtn::EType::Larger),
                new CStepSizeHalf(*this, *this, CStepSizeBtn::EType::Smaller)}
{
    setAttribute(Qt::WA_ShowWithoutActivating);
}

CQtStepSizePopup::~CQtStepSizePopup() = default;

void CQtStepSizePopup::Place(const SRect& screen, const SRect& upper, const SRect& lower)
{
    setGeometry(ToQRect(screen));
    m_buttons[0]->setGeometry(ToQRect(upper));
    m_buttons[1]->setGeometry(ToQRect(lower));
    if (isVisible())
        return;
    if (parentWidget())
        parentWidget()->window()->installEventFilter(this);
    show();
    raise();
}

void CQtStepSizePopup::Hide()
{
    if (parentWidget())
        parentWidget()->window()->removeEventFilter(this);
    hide();
}

void CQtStepSizePopup::SetToolTip(const CStr& text)
{
    for (QAbstractButton* const button : m_buttons)
        button->setToolTip(text.IsEmpty() ? button->accessibleName() : ToQString(text));
}

bool CQtStepSizePopup::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Hide:
    case QEvent::WindowDeactivate:
        if (GetControl())
            GetControl()->Close();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void CQtStepSizePopup::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor ground = CStepSizeHalf::GetGround(palette());
    painter.fillRect(rect(), ground);
    QColor line = palette().color(QPalette::WindowText);
    line.setAlpha(96);
    painter.setPen(line);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.drawLine(0, height() / 2, width(), height() / 2);
}

} // namespace CommonUI

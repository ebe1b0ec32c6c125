#include "qt/edits/QtStepSizePopup.h"

#include "qt/edits/detail/StepSizeHalf.h"
#include "qt/QtText.h"

#include <QEvent>
#include <QPainter>
#include <QScreen>

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

// Whether the pop-up, which is as wide as high when it is fully out, ends on the screen.
bool CQtStepSizePopup::HasRoom(const SRect& screen) const
{
    const QScreen* const display = parentWidget() ? parentWidget()->screen() : nullptr;
    return !display || screen.left + (screen.bottom - screen.top) <= display->geometry().right() + 1;
}

void CQtStepSizePopup::Place(const SRect& screen, const SRect& upper, const SRect& lower)
{
    QRect place = ToQRect(screen);
    const bool toTheLeft = !HasRoom(screen);
    if (toTheLeft)
        place.moveRight(screen.left - parentWidget()->width() - 1);
    setGeometry(place);
    // The halves are as wide as the pop-up will be. What slides out of the left edge shows their right ends.
    const int left = toTheLeft ? place.width() - place.height() : 0;
    m_buttons[0]->setGeometry(left, upper.top, place.height(), upper.bottom - upper.top);
    m_buttons[1]->setGeometry(left, lower.top, place.height(), lower.bottom - lower.top);
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
    QPainter(this).fillRect(rect(), CStepSizeHalf::GetGround(palette()));
}

} // namespace CommonUI

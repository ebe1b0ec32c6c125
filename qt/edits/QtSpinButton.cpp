#include "qt/edits/QtSpinButton.h"

#include "common/StringTable.h"
#include "qt/detail/EventGuard.h"
#include "qt/detail/StepTexts.h"
#include "qt/QtText.h"

#include <QEvent>
#include <QToolButton>
#include <QToolTip>

namespace CommonUI
{

namespace
{

// A tool button that a slot may delete. Qt's own needs itself once more after it was released, for a menu
// that it has not got here.
class CArrowButton final : public QToolButton
{
public:
    using QToolButton::QToolButton;

protected:
    bool event(QEvent* event) override
    {
        // A callback has opened a dialog, which gets the release: the arrow would go on stepping behind it.
        if (event->type() == QEvent::WindowBlocked)
            setDown(false);
        return QToolButton::event(event);
    }
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): that of QToolButton is what must not run
    void mouseReleaseEvent(QMouseEvent* event) override { QAbstractButton::mouseReleaseEvent(event); }
};

} // namespace

CQtSpinButton::CQtSpinButton(QWidget* parent)
    : QWidget(parent)
    , m_buttons{MakeButton(Qt::UpArrow, c_increase, 1), MakeButton(Qt::DownArrow, c_decrease, -1)}
{
    // As high as the field beside it.
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
}

CQtSpinButton::~CQtSpinButton() = default;

QToolButton* CQtSpinButton::MakeButton(Qt::ArrowType arrow, int nameId, int delta)
{
    auto* const button = new CArrowButton(this);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAccessibleName(ToQString(GetString(nameId)));
    connect(button, &QToolButton::pressed, this, [this] {
        if (focusProxy())
            focusProxy()->setFocus(Qt::MouseFocusReason);
    });
    connect(button, &QToolButton::clicked, this, [this, delta] {
        if (CUpDown* const control = GetControl())
            Guarded([control, delta] { control->OnDeltaPos(delta); });
    });
    return button;
}

SRect CQtSpinButton::GetScreenRect() const
{
    const QPoint corner = mapToGlobal(QPoint(0, 0));
    return {corner.x(), corner.y(), corner.x() + width(), corner.y() + height()};
}

void CQtSpinButton::ShowHint(const CStr& text)
{
    QToolTip::showText(mapToGlobal(rect().topRight()), ToQString(text), this);
}

QSize CQtSpinButton::sizeHint() const
{
    const int line = fontMetrics().height();
    return {line + line / 4, line};
}

void CQtSpinButton::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const int half = height() / 2;
    m_buttons[0]->setGeometry(0, 0, width(), half);
    m_buttons[1]->setGeometry(0, height() - half, width(), half);
}

void CQtSpinButton::enterEvent(QEnterEvent* event)
{
    QWidget::enterEvent(event);
    if (GetControl() && isEnabled())
        GetControl()->OnPointerEntered();
}

void CQtSpinButton::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    if (GetControl())
        GetControl()->OnPointerLeft();
}

} // namespace CommonUI

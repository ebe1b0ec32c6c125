#include "qt/edits/detail/StepSizeHalf.h"

#include "common/StringTable.h"
#include "qt/detail/EventGuard.h"
#include "qt/detail/StepTexts.h"
#include "qt/QtText.h"

#include <QPainter>

namespace CommonUI
{

namespace
{

bool IsDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < 128;
}

} // namespace

CStepSizeHalf::CStepSizeHalf(CStepSizeView& popup, QWidget& parent, CStepSizeBtn::EType type)
    : QAbstractButton(&parent)
    , m_popup(popup)
    , m_type(type)
{
    const bool larger = type == CStepSizeBtn::EType::Larger;
    setText(larger ? QStringLiteral("\u00D710") : QStringLiteral("\u00F710"));
    setAccessibleName(ToQString(GetString(larger ? c_largerSteps : c_smallerSteps)));
    setToolTip(accessibleName());
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (CStepSizeBtn* const control = GetControl())
            Guarded([control] { control->OnClicked(); });
    });
}

QColor CStepSizeHalf::GetGround(const QPalette& palette)
{
    return IsDark(palette)
               ? palette.color(QPalette::Window).lighter(150)
               : QColor(c_StepSizeBackground.red, c_StepSizeBackground.green, c_StepSizeBackground.blue);
}

CStepSizeBtn* CStepSizeHalf::GetControl() const
{
    return m_popup.GetControl() ? &m_popup.GetControl()->GetButton(m_type) : nullptr;
}

void CStepSizeHalf::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor text = IsDark(palette()) ? palette().color(QPalette::WindowText) : QColor(Qt::black);
    if (isDown())
        painter.fillRect(rect(), palette().highlight());
    else if (underMouse())
        painter.fillRect(rect(), GetGround(palette()).lighter(IsDark(palette()) ? 130 : 110));
    QFont small = font();
    small.setPixelSize(std::max(1, height() * 5 / 6));
    painter.setFont(small);
    painter.setPen(isDown() ? palette().color(QPalette::HighlightedText) : text);
    painter.drawText(rect(), Qt::AlignCenter, this->text());
}

void CStepSizeHalf::enterEvent(QEnterEvent*)
{
    update();
    if (CStepSizeBtn* const control = GetControl())
        control->OnPointerEntered();
}

void CStepSizeHalf::leaveEvent(QEvent*)
{
    update();
    if (CStepSizeBtn* const control = GetControl())
        control->OnPointerLeft();
}

} // namespace CommonUI

#include "qt/edits/detail/StepSizeHalf.h"

#include "common/StringTable.h"
#include "qt/detail/EventGuard.h"
#include "qt/detail/StepTexts.h"
#include "qt/QtText.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

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

// A button that stands out from the ground of the pop-up.
void CStepSizeHalf::DrawButton(QPainter& painter) const
{
    const QColor ground = GetGround(palette());
    const QRectF face = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QLinearGradient shade(face.topLeft(), face.bottomLeft());
    const int lift = underMouse() ? 20 : 0;
    shade.setColorAt(0, ground.lighter(115 + lift));
    shade.setColorAt(1, ground.lighter(100 + lift));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(ground.darker(IsDark(palette()) ? 160 : 140));
    painter.setBrush(isDown() ? palette().brush(QPalette::Highlight) : QBrush(shade));
    painter.drawRoundedRect(face, 1.5, 1.5);
}

// The text as large as there is room for, counted from its digits: above and below there is nothing.
void CStepSizeHalf::DrawText(QPainter& painter) const
{
    QFont large = font();
    large.setBold(true);
    large.setPixelSize(std::max(1, height()));
    const QRectF box = QFontMetricsF(large).tightBoundingRect(text());
    const QRectF room = QRectF(rect()).adjusted(2, 2, -2, -2);
    QPainterPath path;
    path.addText(0, 0, large, text());
    painter.translate(room.center());
    painter.scale(room.width() / box.width(), room.height() / box.height());
    painter.translate(-box.center());
    const QColor plain = IsDark(palette()) ? palette().color(QPalette::WindowText) : QColor(Qt::black);
    painter.fillPath(path, isDown() ? palette().color(QPalette::HighlightedText) : plain);
}

void CStepSizeHalf::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    DrawButton(painter);
    DrawText(painter);
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

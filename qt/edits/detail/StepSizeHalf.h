#pragma once

#include "controls/StepSizeCtrl.h"

#include <QAbstractButton>

namespace CommonUI
{

/// One of the two buttons of the pop-up, which shows the part of it that has slid out.
class CStepSizeHalf final : public QAbstractButton
{
public:
    CStepSizeHalf(CStepSizeView& popup, QWidget& parent, CStepSizeBtn::EType type);

    /// The colour behind the buttons.
    static QColor GetGround(const QPalette& palette);

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    CStepSizeBtn* GetControl() const;
    void DrawButton(QPainter& painter) const;
    void DrawText(QPainter& painter) const;

    CStepSizeView& m_popup;
    CStepSizeBtn::EType m_type;
};

} // namespace CommonUI

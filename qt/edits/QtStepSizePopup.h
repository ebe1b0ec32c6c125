#pragma once

#include "../../controls/StepSizeCtrl.h"
#include "../../export/Export.h"

#include <QWidget>

#include <array>

class QAbstractButton;

namespace CommonUI
{

/// The pop-up that shows a CStepSizeCtrl. It never takes the focus, and closes when the window of its parent
/// moves, hides or is left. Where the screen ends beside the spin button, it slides out of the left edge. In
/// a light palette its ground is c_StepSizeBackground.
class COMMONUIQT_API CQtStepSizePopup : public QWidget, public CStepSizeView
{
    Q_OBJECT

public:
    /// @param parent owns the widget
    explicit CQtStepSizePopup(QWidget* parent);
    ~CQtStepSizePopup() override;

    void Place(const SRect& screen, const SRect& upper, const SRect& lower) override;
    void Hide() override;
    void SetToolTip(const CStr& text) override;

    /// One of its buttons; lives as long as the widget.
    QAbstractButton& GetButton(CStepSizeBtn::EType type) noexcept
    {
        return *m_buttons[static_cast<std::size_t>(type)];
    }
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool HasRoom(const SRect& screen) const;

    std::array<QAbstractButton*, 2> m_buttons;
};

} // namespace CommonUI

#pragma once

#include "../../controls/UpDown.h"
#include "../../export/Export.h"

#include <QWidget>

#include <array>

class QToolButton;

namespace CommonUI
{

/// The two arrows that show a CUpDown. Pressing one gives the focus to the focus proxy of the widget, if it
/// has one. A callback of the control may destroy the control and the widget.
class COMMONUIQT_API CQtSpinButton : public QWidget, public CSpinView
{
    Q_OBJECT

public:
    /// @param parent owns the widget
    explicit CQtSpinButton(QWidget* parent = nullptr);
    ~CQtSpinButton() override;

    SRect GetScreenRect() const override;
    void SetVisible(bool visible) override { setVisible(visible); }
    void SetEnabled(bool enabled) override { setEnabled(enabled); }
    void ShowHint(const CStr& text) override;

    /// The upper one of its buttons; lives as long as the widget.
    QToolButton& GetUpButton() noexcept { return *m_buttons[0]; }
    /// The lower one; lives as long as the widget.
    QToolButton& GetDownButton() noexcept { return *m_buttons[1]; }
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    QToolButton* MakeButton(Qt::ArrowType arrow, int nameId, int delta);

    std::array<QToolButton*, 2> m_buttons;
};

} // namespace CommonUI

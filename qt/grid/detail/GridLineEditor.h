#pragma once

#include "controls/WheelSteps.h"
#include "qt/grid/detail/GridEditor.h"

#include <QLineEdit>

#include <array>

class QToolButton;

namespace CommonUI
{

/// A text to type, with two arrows where they are asked for.
class CGridLineEditor final : public CGridEditor
{
public:
    CGridLineEditor(const SGridEdit& edit, QWidget& parent, FDone done);

    QWidget& GetWidget() const override { return *m_line; }
    CStr GetText() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    bool OnKey(const QKeyEvent& event) override;

private:
    void SetRules();
    void AddArrows();
    void PlaceArrows();
    void Step(int steps);
    bool OnWheel(QEvent& event);

    SGridEdit m_edit;
    QLineEdit* m_line;
    std::array<QToolButton*, 2> m_arrows{};
    CWheelSteps m_wheel;
};

} // namespace CommonUI

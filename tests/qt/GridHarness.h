#pragma once

#include "qt/grid/GridWidget.h"
#include "tests/qt/WidgetTesting.h"

#include <memory>
#include <utility>

namespace CommonUI
{

/// A window with a grid widget, which has the keyboard's focus.
template<class TWidget>
struct SShownGrid {
    template<class... TArgs>
    explicit SShownGrid(TArgs&&... arguments)
        : grid(new TWidget(std::forward<TArgs>(arguments)..., &window))
    {
        grid->resize(400, 240);
        window.resize(420, 260);
        Activate(window);
        grid->setFocus();
    }

    QWidget& View() { return *grid->viewport(); }
    void Click(QPoint point, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(&View(), button, {}, point);
    }
    void Press(QPoint point) { QTest::mousePress(&View(), Qt::LeftButton, {}, point); }
    void Drag(QPoint from, QPoint to)
    {
        Press(from);
        Move(to);
        QTest::mouseRelease(&View(), Qt::LeftButton, {}, to);
    }
    void Move(QPoint to, Qt::MouseButton held = Qt::LeftButton)
    {
        Send(View(), QMouseEvent(QEvent::MouseMove, QPointF(to), View().mapToGlobal(QPointF(to)),
                                 Qt::NoButton, held, Qt::NoModifier));
    }

    QWidget window;
    QPointer<TWidget> grid;
};

} // namespace CommonUI

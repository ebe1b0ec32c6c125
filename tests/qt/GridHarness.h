#pragma once

#include "qt/grid/GridWidget.h"

#include <gtest/gtest.h>
#include <QTest>
#include <QtWidgets>

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
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        grid->setFocus();
    }

    QWidget& View() { return *grid->viewport(); }
    void Click(QPoint point, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(&View(), button, {}, point);
    }
    void Press(QPoint point) { QTest::mousePress(&View(), Qt::LeftButton, {}, point); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(grid, key, modifiers); }
    void Drag(QPoint from, QPoint to)
    {
        Press(from);
        Move(to);
        QTest::mouseRelease(&View(), Qt::LeftButton, {}, to);
    }
    void Move(QPoint to, Qt::MouseButton held = Qt::LeftButton)
    {
        QMouseEvent move(QEvent::MouseMove, QPointF(to), View().mapToGlobal(QPointF(to)), Qt::NoButton, held,
                         Qt::NoModifier);
        QApplication::sendEvent(&View(), &move);
    }

    QWidget window;
    QPointer<TWidget> grid;
};

} // namespace CommonUI

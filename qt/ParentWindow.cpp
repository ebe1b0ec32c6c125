#include "qt/detail/ParentWindow.h"

#include <QApplication>
#include <QWidget>

namespace CommonUI
{

QWidget* GetParentWindow()
{
    if (QWidget* const modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget* const active = QApplication::activeWindow())
        return active;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        const Qt::WindowType type = window->windowType();
        if (window->isVisible() && (type == Qt::Window || type == Qt::Dialog))
            return window;
    }
    return nullptr;
}

} // namespace CommonUI

#pragma once

#include <QtWidgets>

#include <functional>

namespace CommonUI
{

/// Does something with the dialog that a call is about to show, as soon as it is there.
template<class TDialog>
void WhenShown(const std::function<void(TDialog&)>& act)
{
    QTimer::singleShot(0, qApp, [act] {
        auto* const dialog = qobject_cast<TDialog*>(QApplication::activeModalWidget());
        if (dialog && dialog->isVisible())
            act(*dialog);
        else
            WhenShown<TDialog>(act);
    });
}

} // namespace CommonUI

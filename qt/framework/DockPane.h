#pragma once

#include "../../dialogs/placement/WindowPlacement.h"
#include "../../export/Export.h"

#include <QDockWidget>

class QMainWindow;

namespace CommonUI
{

/// A pane at an edge of the main window, or floating over it, that remembers which of both, where, how large,
/// and whether the user has closed it. A floating pane comes back where its user can reach it.
class COMMONUIQT_API CDockPane : public QDockWidget
{
    Q_OBJECT

public:
    /// @param name tells the pane from all other windows of the application; never translated
    /// @param title is shown, and names the pane in the menu of the main window
    CDockPane(CStr name, const CStr& title);
    ~CDockPane() override;

    /// Gives the pane to a main window, which owns it, at the place that is remembered.
    /// @param byDefault the edge that holds a pane that is not known yet
    void AddTo(QMainWindow& window, Qt::DockWidgetArea byDefault);
    /// Keeps where the pane is; called when the main window closes.
    void Remember() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Restore(QMainWindow& window, const SWindowPlacement& placement);
    SWindowPlacement GetPlacement() const;

    CStr m_name;
    Qt::DockWidgetArea m_area = Qt::NoDockWidgetArea; // also while the pane floats
    SWindowPlacement m_floating{};                    // where it last floated
};

} // namespace CommonUI

#pragma once

#include "../../dialogs/placement/WindowPlacement.h"
#include "../../export/Export.h"

#include <QObject>

class QWidget;

namespace CommonUI
{

/// Remembers where a window stands whenever it is closed, and puts it there, or where its user can reach it,
/// before it is shown again. A window that is not known yet opens where it would without this. When a
/// monitor goes, the window is brought onto another one.
///
/// It knows the monitors by GetScreenService() and keeps placements in GetPlacementManager(), which the
/// application loads and saves.
class COMMONUIQT_API CWindowPlacer : public QObject
{
    Q_OBJECT

public:
    /// @param window a window of its own, such as a dialog; it owns the placer
    /// @param name tells the window from all others of the application; never translated
    CWindowPlacer(QWidget& window, CStr name);
    ~CWindowPlacer() override;

    /// Puts the window where it was. @return false if it is not known
    bool Restore();
    /// Keeps where the window is; called whenever it is hidden.
    void Remember() const;
    /// Brings a window that is shown to where its user can reach it.
    void BringIntoView();

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Where a window is, without its dock.
    static SWindowPlacement GetPlacement(const QWidget& window);
    /// Puts a window there, or where its user can reach it, no smaller than it can be.
    static void Place(QWidget& window, const SWindowPlacement& placement);

private:
    QWidget& m_window;
    CStr m_name;
};

} // namespace CommonUI

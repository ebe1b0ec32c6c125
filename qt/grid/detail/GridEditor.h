#pragma once

#include "output/grid/GridView.h"
#include "qt/detail/WindowWatch.h"

#include <QObject>

#include <functional>

class QKeyEvent;

namespace CommonUI
{

/// An editor over a cell: watches the widget in which the user types or chooses. It is a child of the widget.
class CGridEditor : public QObject
{
public:
    using FDone = std::function<void(EGridEditEnd)>;

    /// Makes the editor that is asked for, hidden. It goes with its widget, which the parent owns.
    static CGridEditor* Make(const SGridEdit& edit, QWidget& parent, FDone done);
    ~CGridEditor() override;

    virtual QWidget& GetWidget() const = 0;
    virtual CStr GetText() const = 0;
    /// Opens a list, when the mouse that opened the editor has been released.
    virtual void DropDown() {}
    void Show(const SRect& rect) const;
    void Place(const SRect& rect) const;
    /// Says no more that it is done.
    void Disarm() { m_done = nullptr; }
    /// Hides the widget, which goes as soon as Qt is done with its events.
    void Close();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    explicit CGridEditor(FDone done);
    /// Has the widget watched, to be called when it is made.
    void Watch();
    /// @return whether the key has been used
    virtual bool OnKey(const QKeyEvent& event);
    void Finish(EGridEditEnd end);

private:
    bool OnFocus(const QEvent& event);

    FDone m_done;
    CWindowWatch m_window;
};

} // namespace CommonUI

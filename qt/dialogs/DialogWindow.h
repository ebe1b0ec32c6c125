#pragma once

#include "../../dialogs/BaseDialog.h"
#include "../../export/Export.h"

#include <QDialog>
#include <QPointer>

#include <map>

namespace CommonUI
{

/// What the windows of all dialogs of the library do: they show, hide and name things for their dialog, and
/// tell it of OK, Cancel, Escape, closing, and help by F1 or the title bar. A window derives from
/// CDialogViewWindow.
///
/// The window lies over its parent widget, which owns it as usual in Qt; without a parent it lies over the
/// window that the user works in when it is opened, and belongs to nobody. Where a modal window is open, it
/// lies over that.
class COMMONUIQT_API CDialogWindow : public QDialog
{
    Q_OBJECT

public:
    ~CDialogWindow() override;

    /// Whether the window is shown. A modal dialog that is hidden counts as visible for Qt, which keeps input
    /// from the other windows that way.
    bool IsOnScreen() const;
    /// Has the window open where and as large as it was when it was last closed, in this run or an earlier
    /// one (CPlacementManager).
    /// @param name tells the window from all others of the application; never translated
    void RememberPlacement(const CStr& name);
    void accept() override;
    void reject() override;

protected:
    /// @param parent the widget that the window lies over, and that owns it; null for none
    explicit CDialogWindow(QWidget* parent);

    /// The dialog that the window shows; null if there is none.
    virtual CBaseDialog* GetDialog() const = 0;
    /// Names a control of the window. The window owns it.
    /// @param label what shows the text of the control, if it is not the control
    void AddControl(int number, QWidget& control, QWidget* label = nullptr);
    /// The window below; null if there is none.
    QWidget* GetWindowBelow() const noexcept { return m_below; }

    /// What CDialogView::Show does.
    void ShowWindow(bool visible);
    /// What CDialogView::SetModal does.
    void SetWindowModal(bool modal);
    /// What CDialogView::SetBusy does.
    void SetWindowBusy(bool busy);
    /// What CDialogView::SetCaption does.
    void SetWindowCaption(const CStr& caption);
    /// What CDialogView::SetText does, with the mnemonic of the text where Qt wants it.
    void SetControlText(int control, const CStr& text);
    /// What CDialogView::Enable does.
    void EnableControl(int control, bool enable);

    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct SControl {
        QWidget* control = nullptr;
        QWidget* label = nullptr;
        QChar mnemonic{};
    };

    void LieOver(QWidget* below);
    void ShowPointer();
    QString AddMnemonic(SControl& control, const QString& text) const;

    QPointer<QWidget> m_below;
    std::map<int, SControl> m_controls;
    bool m_busy = false;
    bool m_blocked = false; // another window has come up over this one
    bool m_pointerShown = false;
};

/// The window of a dialog that a TView shows, a CDialogView with a control.
template<class TView>
class CDialogViewWindow : public CDialogWindow, public TView
{
public:
    void Show(bool visible) override { ShowWindow(visible); }
    void SetModal(bool modal) override { SetWindowModal(modal); }
    void SetBusy(bool busy) override { SetWindowBusy(busy); }
    void SetCaption(const CStr& caption) override { SetWindowCaption(caption); }
    void SetText(int control, const CStr& text) override { SetControlText(control, text); }
    void Enable(int control, bool enable) override { EnableControl(control, enable); }

protected:
    /// @param parent see CDialogWindow
    using CDialogWindow::CDialogWindow;
    CBaseDialog* GetDialog() const override { return this->GetControl(); }
};

} // namespace CommonUI

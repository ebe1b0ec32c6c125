#include "qt/dialogs/DialogWindow.h"

#include "qt/detail/EventGuard.h"
#include "qt/detail/ParentWindow.h"
#include "qt/detail/WindowHelp.h"
#include "qt/framework/WindowPlacer.h"
#include "qt/QtText.h"

#include <QApplication>
#include <QLabel>
#include <QShowEvent>
#include <QWindow>

#include <utility>

namespace CommonUI
{

CDialogWindow::CDialogWindow(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint)
{
    // Closing a dialog is no reason to end the program.
    setAttribute(Qt::WA_QuitOnClose, false);
    AddHelp(*this, [this] {
        if (const CBaseDialog* const dialog = GetDialog())
            dialog->OnHelpInfo();
    });
}

CDialogWindow::~CDialogWindow()
{
    SetWindowBusy(false);
}

bool CDialogWindow::IsOnScreen() const
{
    return isVisible() && !testAttribute(Qt::WA_DontShowOnScreen);
}

void CDialogWindow::RememberPlacement(const CStr& name)
{
    new CWindowPlacer(*this, name);
}

void CDialogWindow::accept()
{
    if (CBaseDialog* const dialog = GetDialog())
        Guarded([dialog] { dialog->OnOK(); });
    else
        QDialog::accept();
}

void CDialogWindow::reject()
{
    if (CBaseDialog* const dialog = GetDialog())
        Guarded([dialog] { dialog->OnCancel(); });
    else
        QDialog::reject();
}

bool CDialogWindow::event(QEvent* event)
{
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked) {
        m_blocked = event->type() == QEvent::WindowBlocked;
        ShowPointer();
    }
    return QDialog::event(event);
}

void CDialogWindow::showEvent(QShowEvent* event)
{
    if (event->spontaneous() || testAttribute(Qt::WA_Moved))
        return;
    adjustPosition(m_below);
    // The user has not chosen the place.
    setAttribute(Qt::WA_Moved, false);
}

void CDialogWindow::LieOver(QWidget* below)
{
    // Made small and made larger at once, the system may answer with the small size last.
    if (!internalWinId() && !testAttribute(Qt::WA_Resized)) {
        adjustSize();
        setAttribute(Qt::WA_Resized, false); // nobody has chosen the size
    }
    create(); // winId would make system windows of all that stands beside the dialog in its parent, too
    QWindow* const window = below ? below->windowHandle() : nullptr;
    // A message box may have come up over the dialog while that was hidden.
    const bool isAbove = window && windowHandle()->isAncestorOf(window, QWindow::IncludeTransients);
    if (below == this || isAbove)
        return;
    m_below = below;
    windowHandle()->setTransientParent(window);
}

void CDialogWindow::ShowWindow(bool visible)
{
    // Shown to Qt alone, a hidden dialog is modal without a window on the screen.
    const bool unseen = !visible && isModal();
    if (IsOnScreen() == visible && isVisible() == (visible || unseen))
        return;
    hide();
    if (visible || unseen) {
        // A modal dialog would keep input from a window that does not lie over it.
        const bool overParent = parentWidget() && !QApplication::activeModalWidget();
        LieOver(overParent ? parentWidget()->window() : GetParentWindow());
    }
    setAttribute(Qt::WA_DontShowOnScreen, unseen);
    setVisible(visible || unseen);
}

void CDialogWindow::SetWindowModal(bool modal)
{
    hide();
    setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
    ShowWindow(false);
}

void CDialogWindow::SetWindowBusy(bool busy)
{
    m_busy = busy;
    ShowPointer();
}

// The pointer is that of all windows: what has come up over the dialog can be used and gets its own.
void CDialogWindow::ShowPointer()
{
    const bool shown = m_busy && !m_blocked;
    if (std::exchange(m_pointerShown, shown) == shown)
        return;
    if (shown)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void CDialogWindow::SetWindowCaption(const CStr& caption)
{
    setWindowTitle(ToQString(caption));
}

void CDialogWindow::AddControl(int number, QWidget& control, QWidget* label)
{
    m_controls[number] = {&control, label ? label : &control, {}};
}

void CDialogWindow::SetControlText(int control, const CStr& text)
{
    const auto found = m_controls.find(control);
    if (found == m_controls.end())
        return;
    SControl& entry = found->second;
    const QString shown = ToQString(text);
    const bool isLabel = entry.label != entry.control;
    entry.label->setProperty("text", isLabel ? AddMnemonic(entry, shown) : shown);
}

QString CDialogWindow::AddMnemonic(SControl& control, const QString& text) const
{
    control.mnemonic = {};
    QString marked = text;
    for (qsizetype i = 0; i < text.size() && control.mnemonic.isNull(); ++i) {
        const QChar letter = text[i].toLower();
        bool isFree = letter.isLetterOrNumber() && !text.contains(QLatin1Char('&'));
        for (const auto& [number, other] : m_controls)
            isFree = isFree && other.mnemonic != letter;
        if (isFree) {
            control.mnemonic = letter;
            marked.insert(i, QLatin1Char('&'));
        }
    }
    return marked;
}

void CDialogWindow::EnableControl(int control, bool enable)
{
    const auto found = m_controls.find(control);
    if (found == m_controls.end())
        return;
    QWidget& widget = *found->second.control;
    widget.setEnabled(enable);
    if (enable && !focusWidget() && widget.focusPolicy() != Qt::NoFocus)
        widget.setFocus();
}

} // namespace CommonUI

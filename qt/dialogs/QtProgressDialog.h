#pragma once

#include "../../dialogs/ProgressDialog.h"
#include "../../dialogs/ProgressThreadDialog.h"
#include "ProgressWindow.h"

#include <QIcon>

namespace CommonUI
{

/// A progress dialog with its window.
/// @tparam TDialog CProgressThreadDialog or CProgressDialog
template<class TDialog>
class CQtProgress : public TDialog
{
public:
    /// @param parent the dialog lies over the window of this widget, or over the one that the user works in
    ///     when it is null
    /// @param caption, text see CProgressDialogBase
    CQtProgress(QWidget* parent, const CStr& caption, const CStr& text)
        : TDialog(nullptr, caption, text)
        , m_window(new CProgressWindow(parent))
    {
        this->SetView(m_window);
    }
    ~CQtProgress() override
    {
        this->EndDialog(TDialog::c_cancel);
        delete m_window;
    }

    /// The large icon of the window, for the next opening.
    void SetIcon(const QIcon& icon)
    {
        m_icon = icon;
        TDialog::SetIcon(&m_icon);
    }
    /// Null once the parent has been destroyed, with which the window goes.
    CProgressWindow* GetWindow() const { return m_window; }

private:
    QPointer<CProgressWindow> m_window;
    QIcon m_icon;
};

/// Shows the progress of work on a thread of its own.
using CQtProgressThreadDialog = CQtProgress<CProgressThreadDialog>;
/// Shows the progress of work on the user-interface thread.
using CQtProgressDialog = CQtProgress<CProgressDialog>;

} // namespace CommonUI

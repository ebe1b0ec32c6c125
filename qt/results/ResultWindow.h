#pragma once

#include "../../dialogs/results/ResultDialog.h"
#include "../../export/Export.h"
#include "../dialogs/DialogWindow.h"

#include <QPointer>

namespace CommonUI
{

class CResultPanelWidget;

/// The window of a result dialog. CQtResultDialog has one of its own. If the window goes first, the dialog is
/// closed.
class COMMONUIQT_API CResultWindow : public CDialogViewWindow<CResultDialogView>
{
    Q_OBJECT

public:
    /// @param parent see CDialogWindow
    explicit CResultWindow(QWidget* parent = nullptr);
    ~CResultWindow() override;

    /// Shows a dialog, which is not open, with its panel. It is not owned; either may go first.
    void Attach(CResultDialog& dialog);
    /// What shows the results; lives as long as the window.
    CResultPanelWidget& GetPanelWidget() noexcept { return *m_panel; }

    QSize sizeHint() const override;

private:
    CResultPanelWidget* m_panel;
};

/// The result dialog with its window.
class COMMONUIQT_API CQtResultDialog : public CResultDialog
{
public:
    /// @param parent the dialog lies over the window of this widget, or over the one that the user works in
    ///     when it is null
    /// @param layouts must outlive the dialog
    explicit CQtResultDialog(QWidget* parent = nullptr,
                             CResultLayoutManager& layouts = GetResultLayoutManager());
    ~CQtResultDialog() override;

    /// Null once the parent has been destroyed, with which the window goes.
    CResultWindow* GetWindow() const { return m_window; }

private:
    QPointer<CResultWindow> m_window;
};

} // namespace CommonUI

#pragma once

#include "../../controls/View.h"
#include "../BaseDialog.h"
#include "../DialogView.h"
#include "ResultPanel.h"

#include <memory>

namespace CommonUI
{

class CResultDialog;

/// The window of a result dialog: a panel, which shows the dialog's one, and buttons to close and for help.
class COMMONUI_API CResultDialogView : public CDialogView, public CControlView<CResultDialog>
{
public:
    ~CResultDialogView() override;
};

/// A window of results of its own, which stays open beside others while the user works: Create opens it. The
/// panel alone serves as a pane of another window.
class COMMONUI_API CResultDialog : public CBaseDialog, public CViewedControl<CResultDialogView>
{
public:
    COMMONUI_CONSTANT unsigned int c_identifier = 11601; ///< the number of the dialog and of its help topic

    /// @param layouts must outlive the dialog
    explicit CResultDialog(CResultLayoutManager& layouts = GetResultLayoutManager());
    ~CResultDialog() override;

    /// Gives the dialog its window before it is opened; null takes it away. The view is not owned.
    void SetView(CResultDialogView* view);
    /// Shows results in place of those before, also while the dialog is open.
    void SetResults(std::shared_ptr<const SResultSet> results);
    /// The panel in the dialog, which belongs to it and serves without a window, too.
    CResultPanel& GetPanel() noexcept { return m_panel; }

protected:
    bool OnInitDialog() override;
    CDialogView* GetDialogView() const override { return GetView(); }

private:
    void ShowCaption();

    CResultPanel m_panel;
};

} // namespace CommonUI

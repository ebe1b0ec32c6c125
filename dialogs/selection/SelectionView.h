#pragma once

#include "../../controls/View.h"
#include "../DialogView.h"
#include "../FormatSpecifierDlg.h"
#include "OptionsDlg.h"

#include <cstddef>

namespace CommonUI
{

class CSelectionDlg;

/// The window of a selection dialog: a page for each tab, with a search field and a tree of rows where the
/// tab has columns, and a form where it has options; buttons for the commands, two lines of text, OK, Cancel
/// and help. It asks its dialog for what it shows, and tells it what the user does.
class COMMONUI_API CSelectionView : public CDialogView, public CControlView<CSelectionDlg>
{
public:
    ~CSelectionView() override;

    /// The dialog has got its tabs: the window makes their pages and shows the first.
    virtual void MakeTabs() = 0;
    /// Rows of a tab have come or gone, or are shown or hidden by the search.
    virtual void ResetRows(std::size_t tab) = 0;
    /// What rows of a tab say has changed.
    virtual void UpdateRows(std::size_t tab) = 0;
    /// What options of a tab say has changed.
    virtual void UpdateOptions(std::size_t tab) = 0;
    /// Shows a tab, and leads the user to a row of it, which is shown.
    virtual void GoToRow(std::size_t tab, int row) = 0;
    /// Shows a tab, and leads the user to an option of it.
    virtual void GoToOption(std::size_t tab, int option) = 0;

    /// Runs a dialog over the window. @return what its DoModal returns
    virtual int Run(CFormatSpecifierDlg& dialog) = 0;
    /// Runs a dialog of options over the window. @return what its DoModal returns
    virtual int Run(COptionsDlg& dialog) = 0;
};

} // namespace CommonUI

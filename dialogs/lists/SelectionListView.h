#pragma once

#include "../../controls/View.h"
#include "../DialogView.h"

#include <cstddef>
#include <optional>

namespace CommonUI
{

class CSelectionListDlg;

/// The window of a dialog with a list to choose from: a field for the filter, the list, a line of text, OK,
/// Cancel, and where several entries can be chosen, a box to check in each row and buttons for all and none.
/// It asks its dialog what the rows show, and tells it what the user does.
class COMMONUI_API CSelectionListView : public CDialogView, public CControlView<CSelectionListDlg>
{
public:
    ~CSelectionListView() override;

    /// Other rows are shown: those of CSelectionListDlg::GetRows.
    virtual void UpdateRows() = 0;
    /// Other entries are chosen: checks are to be shown anew.
    virtual void UpdateChoice() = 0;
    /// Makes a row the current one and brings it into view; empty leaves none.
    virtual void SelectRow(std::optional<std::size_t> row) = 0;
    /// Replaces what the field for the filter holds; the dialog empties it when it opens.
    virtual void SetFilterText(const CStr& text) = 0;
};

} // namespace CommonUI

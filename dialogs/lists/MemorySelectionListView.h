#pragma once

#include "../MemoryDialogView.h"
#include "SelectionListDlg.h"

namespace CommonUI
{

/// The window of a dialog with a list, without a display.
class COMMONUI_API CMemorySelectionListView : public CMemoryDialogView<CSelectionListView>
{
public:
    ~CMemorySelectionListView() override;

    void UpdateRows() override {}
    void UpdateChoice() override {}
    void SelectRow(std::optional<std::size_t> row) override { m_row = row; }
    void SetFilterText(const CStr& text) override { m_filter = text; }

    /// The current row.
    std::optional<std::size_t> GetRow() const noexcept { return m_row; }
    /// What the field for the filter holds.
    const CStr& GetFilterText() const noexcept { return m_filter; }
    /// Types a text into the field for the filter, in place of what is there.
    void Type(const CStr& filter);
    /// Makes a row the current one as the user does.
    void Choose(std::optional<std::size_t> row);
    /// Presses OK or Cancel. @return false, and nothing happens, if that cannot be pressed
    bool Press(int button);

private:
    std::optional<std::size_t> m_row;
    CStr m_filter;
};

} // namespace CommonUI

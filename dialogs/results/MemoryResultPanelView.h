#pragma once

#include "../MemoryDialogView.h"
#include "../MemoryFormatSpecifierView.h"
#include "ResultDialog.h"

#include <functional>
#include <string>

namespace CommonUI
{

/// What shows a result panel, without a display.
class COMMONUI_API CMemoryResultPanelView : public CResultPanelView
{
public:
    ~CMemoryResultPanelView() override;

    void UpdateTables() override { ++m_tableUpdates; }
    void UpdateState() override { ++m_stateUpdates; }
    void UpdateSizes() override { ++m_sizeUpdates; }
    int Run(CFormatSpecifierDlg& dialog) override;
    /// Keeps the text of what is printed.
    void Print() override;
    /// A document whose text is that of what is printed.
    std::string MakePdf(const SResultPages& pages) override;

    /// What the user does with the format dialog, which is cancelled when that returns and has left it open.
    CMemoryFormatSpecifierView::FUse onFormat{};
    /// What the user does in front of the choice of a printer; false cancels it. Without it a printer is
    /// chosen.
    std::function<bool()> onPrint{};

    /// What the panel shows: the cells of the tables with bars between them, a line for each row, and the
    /// notes.
    CStr Draw() const;
    /// What was printed last, as Draw writes it; empty before.
    const CStr& GetPrinted() const noexcept { return m_printed; }
    /// How often all of the tables had to be shown anew.
    int GetTableUpdateCount() const noexcept { return m_tableUpdates; }
    /// How often what is around the tables had to be shown anew: notes and commands.
    int GetStateUpdateCount() const noexcept { return m_stateUpdates; }
    /// How often widths and heights had to be taken over from another panel.
    int GetSizeUpdateCount() const noexcept { return m_sizeUpdates; }

private:
    static CStr Draw(const SResultPages& pages);

    CStr m_printed;
    int m_tableUpdates = 0;
    int m_stateUpdates = 0;
    int m_sizeUpdates = 0;
};

/// The window of a result dialog, without a display.
class COMMONUI_API CMemoryResultDialogView : public CMemoryDialogView<CResultDialogView>
{
public:
    ~CMemoryResultDialogView() override;

    /// Closes the dialog as its button does.
    bool Press(int button) { return PressOkOrCancel(button); }
};

} // namespace CommonUI

#pragma once

#include "../../controls/View.h"
#include "../FormatSpecifierDlg.h"
#include "ResultPages.h"

#include <string>

namespace CommonUI
{

class CResultPanel;

/// What shows the tables of a result panel: one below the other, with the notes below them, and commands to
/// copy, save, print and arrange them. It asks its panel for what it shows, and tells it what the user does.
class COMMONUI_API CResultPanelView : public CControlView<CResultPanel>
{
public:
    ~CResultPanelView() override;

    /// The tables have other rows, columns or texts.
    virtual void UpdateTables() = 0;
    /// The notes, or what commands there are and how they stand, have changed.
    virtual void UpdateState() = 0;
    /// The layout has other widths or heights.
    virtual void UpdateSizes() = 0;
    /// Runs a dialog over the window. @return what its DoModal returns
    virtual int Run(CFormatSpecifierDlg& dialog) = 0;
    /// Has the user choose a printer, and then prints the pages that the panel has. Nothing happens when the
    /// user cancels.
    virtual void Print() = 0;
    /// The pages as a file of the Portable Document Format; empty where that cannot be made.
    virtual std::string MakePdf(const SResultPages& pages) = 0;
};

} // namespace CommonUI

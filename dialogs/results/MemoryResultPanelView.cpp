#include "dialogs/results/MemoryResultPanelView.h"

namespace CommonUI
{

namespace
{

void DrawTable(const CGridBaseOutputCtrl& table, CStr& text)
{
    CGridBaseOutputCtrl::CCells cells;
    table.GetGridHeaders(cells, table.GetType());
    table.GetGridCells(cells, table.GetType());
    if (table.GetRows().empty())
        return;
    for (const auto& row : cells) {
        CStr line;
        for (const auto& cell : row)
            line += (&cell == &row.front() ? CStr() : CStr(u"|")) + cell.text.Replace(u"\r\n", u" ");
        text += line + u"\n";
    }
}

} // namespace

CMemoryResultPanelView::~CMemoryResultPanelView() = default;
CMemoryResultDialogView::~CMemoryResultDialogView() = default;

int CMemoryResultPanelView::Run(CFormatSpecifierDlg& dialog)
{
    return CMemoryFormatSpecifierView::Run(dialog, onFormat);
}

void CMemoryResultPanelView::Print()
{
    const bool isChosen = !onPrint || onPrint();
    if (isChosen && GetControl())
        m_printed = Draw(GetControl()->GetPages());
}

std::string CMemoryResultPanelView::MakePdf(const SResultPages& pages)
{
    return "%PDF-\n" + Draw(pages).ToUtf8();
}

CStr CMemoryResultPanelView::Draw() const
{
    return GetControl() ? Draw(GetControl()->GetPages()) : CStr();
}

CStr CMemoryResultPanelView::Draw(const SResultPages& pages)
{
    CStr text;
    for (const CGridBaseOutputCtrl* const table : {pages.summary, pages.results, pages.statistics})
        DrawTable(*table, text);
    for (const CStr& note : pages.notes)
        text += note + u"\n";
    return text;
}

} // namespace CommonUI

#include "common/TextBuilder.h"
#include "output/detail/ResultPieces.h"
#include "output/GridBaseOutputCtrl.h"

#include <optional>
#include <string_view>

namespace CommonUI
{

namespace
{

using CRow = CGridBaseOutputCtrl::CRow;
using CCells = CGridBaseOutputCtrl::CCells;
using SCellInfo = CGridBaseOutputCtrl::SCellInfo;

constexpr std::u16string_view c_style = u"<style>\n"
                                        u"th {\n"
                                        u"font-weight:normal;\n"
                                        u"text-align:center;\n"
                                        u"padding:2px 5px;\n"
                                        u"background-color:#EAEAEA;\n"
                                        u"border-right:1px #C0C0C0 solid;\n"
                                        u"}\n"
                                        u"th.merged {\n"
                                        u"font-weight:bold;\n"
                                        u"}\n"
                                        u"th.mergedlast {\n"
                                        u"font-weight:bold;\n"
                                        u"border-right: 0px #C0C0C0 none;\n"
                                        u"}\n"
                                        u"th.last {\n"
                                        u"border-right: 0px #C0C0C0 none;\n"
                                        u"}\n"
                                        u"td {\n"
                                        u"padding:2px 5px;\n"
                                        u"text-align:right;\n"
                                        u"}\n"
                                        u"td.first {\n"
                                        u"border-right:1px #C0C0C0 solid;\n"
                                        u"text-align:left;\n"
                                        u"}\n"
                                        u"td.lastrow {\n"
                                        u"border-bottom:1px #C0C0C0 solid;\n"
                                        u"}\n"
                                        u"td.separatorbottom {\n"
                                        u"border-bottom:1px #C0C0C0 double;\n"
                                        u"}\n"
                                        u"td.subHeader {\n"
                                        u"font-weight:bold;\n"
                                        u"}\n"
                                        u"td.subHeaderSep {\n"
                                        u"border-top:1px #C0C0C0 solid;\n"
                                        u"font-weight:bold;\n"
                                        u"}\n"
                                        u"table {\n"
                                        u"border-collapse:collapse;\n"
                                        u"font-size:1em;\n"
                                        u"font-weight:inherit;\n"
                                        u"font-style:inherit;\n"
                                        u"font-variant:inherit;\n"
                                        u"}\n"
                                        u"</style>\n";

bool StartsWith(const CRow& row, SCellInfo::EFlag flag)
{
    return !row.empty() && row.front().Has(flag);
}

/// How a table divides into header rows and body rows.
struct SSections {
    std::size_t headerRows = 0;
    std::optional<std::size_t>
        lastSubHeader; ///< the last row of the block of sub-headers below the header rows

    explicit SSections(const CCells& cells)
    {
        while (headerRows < cells.size() && StartsWith(cells[headerRows], SCellInfo::ColumnHeader))
            ++headerRows;
        for (std::size_t row = headerRows; row < cells.size() && StartsWith(cells[row], SCellInfo::SubHeader);
             ++row)
            lastSubHeader = row;
    }
};

std::u16string_view HeaderClass(const SCellInfo& cell, bool last)
{
    if (cell.Has(SCellInfo::MergedHeader))
        return last ? u"class=\"mergedlast\"" : u"class=\"merged\"";
    return last ? u"class=\"last\"" : u"";
}

std::u16string_view BodyClass(const SCellInfo& cell, std::size_t row, std::size_t rowCount,
                              const SSections& sections)
{
    if (row + 1 == rowCount)
        return u"class=\"lastrow\"";
    if (row == sections.lastSubHeader)
        return u"class=\"separatorbottom\"";
    if (cell.columnSpan > 1)
        return row <= sections.headerRows ? u"class=\"subHeader\"" : u"class=\"subHeaderSep\"";
    return {};
}

std::u16string_view HeaderStyle(const SCellInfo& cell)
{
    return cell.Has(SCellInfo::RowHeader) ? u"style=\"text-align:left;\"" : u"style=\"text-align:center;\"";
}

std::u16string_view BodyStyle(const SCellInfo& cell)
{
    if (cell.columnSpan > 1)
        return u"style=\"text-align:center;\"";
    return cell.Has(SCellInfo::RowHeader) ? u"style=\"text-align:left;\"" : u"style=\"text-align:right;\"";
}

void AppendSpan(CTextBuilder& html, std::int32_t span)
{
    if (span >= 0 && span <= 9)
        html += static_cast<char16_t>(u'0' + span);
    else
        html += CStr::Format(u"%d", span);
}

/// An element "TH" or "TD" with its attributes and content.
void AppendCell(CTextBuilder& html, std::u16string_view element, const SCellInfo& cell,
                std::u16string_view style, std::u16string_view cssClass)
{
    html += u"<";
    html += element;
    html += u" ROWSPAN=";
    AppendSpan(html, cell.rowSpan);
    html += u" COLSPAN=";
    AppendSpan(html, cell.columnSpan);
    html += u" ";
    html += style;
    html += u" ";
    html += cssClass;
    html += u">";
    bool first = true;
    Detail::ForEachPiece(cell.text, [&](std::u16string_view piece) {
        html += first ? u"<nobr>" : u"<br><nobr>";
        html += piece;
        html += u"</nobr>";
        first = false;
    });
    html += u"</";
    html += element;
    html += u">\n";
}

void AppendRow(CTextBuilder& html, const CCells& cells, std::size_t index, const SSections& sections)
{
    const CRow& row = cells[index];
    html += u"<TR>";
    for (const SCellInfo& cell : row) {
        if (cell.Has(SCellInfo::ColumnHeader))
            AppendCell(html, u"TH", cell, HeaderStyle(cell), HeaderClass(cell, &cell == &row.back()));
        else
            AppendCell(html, u"TD", cell, BodyStyle(cell), BodyClass(cell, index, cells.size(), sections));
    }
    html += u"</TR>\n";
}

/// The alignment of a selected cell. The misspelt value is what other programs have always been given: it
/// leaves the cell at the reader's default alignment.
std::u16string_view SelectionStyle(bool header, bool rowName)
{
    if (header)
        return u"text-align:center;";
    return rowName ? u"text-align:left;" : u"text-align:rigth;";
}

CStr SelectionHtml(const CCells& cells)
{
    const bool hasHeader = StartsWith(cells.front(), SCellInfo::ColumnHeader);
    const bool hasNames = StartsWith(cells.back(), SCellInfo::RowHeader);
    CTextBuilder html;
    html += Detail::c_metaLine;
    html += c_style;
    html += u"<table>";
    for (const CRow& row : cells) {
        html += u"<tr>";
        for (const SCellInfo& cell : row) {
            html += u"<td style=\"";
            html += SelectionStyle(hasHeader && &row == &cells.front(), hasNames && &cell == &row.front());
            html += u"\">";
            html += cell.text;
            html += u"</td>\n";
        }
        html += u"</tr>";
    }
    html += u"</table>";
    return html.Take();
}

CStr SelectionText(const CCells& cells)
{
    CTextBuilder text;
    for (const CRow& row : cells) {
        if (&row != &cells.front())
            text += u'\n';
        for (const SCellInfo& cell : row) {
            if (&cell != &row.front())
                text += u'\t';
            text += cell.text;
        }
    }
    return text.Take();
}

} // namespace

CStr CGridBaseOutputCtrl::GenerateHTMLTableStyle()
{
    return c_style;
}

CStr CGridBaseOutputCtrl::GenerateSummaryHTMLTable(const CCells& cells)
{
    if (cells.empty())
        return {};
    CTextBuilder html;
    html += u"<table>\n";
    for (const CRow& row : cells) {
        html += u"<tr>\n";
        for (std::size_t i = 0; i < row.size(); ++i) {
            const CStr text = i + 2 == row.size() ? row[i].text + u":&nbsp;" : row[i].text;
            html += CStr::Format(u"<td style=\"text-align:left;padding-left:%dpx;\">%s</td>\n",
                                 std::int64_t{row[i].indent} * 20, text);
        }
        html += u"</tr>\n";
    }
    html += u"</table>\n";
    return html.Take();
}

CStr CGridBaseOutputCtrl::GenerateResultsHTMLTable(const CCells& cells, bool omitColumnGroup, bool fullWidth)
{
    if (cells.empty())
        return {};
    const SSections sections(cells);
    CTextBuilder html;
    html += fullWidth ? u"<table style=\"width:100%;\">\n" : u"<table>\n";
    // The element of the column has never had its closing bracket; readers of the format rely on the exact
    // text.
    if (!omitColumnGroup)
        html += u"<colgroup><col class=\"first\"</colgroup>";
    html += u"<THEAD>\n";
    for (std::size_t row = 0; row < cells.size(); ++row) {
        if (row == sections.headerRows)
            html += u"</THEAD>\n<TBODY>\n";
        AppendRow(html, cells, row, sections);
    }
    html += u"</TBODY>\n</table>";
    return html.Take();
}

CStr CGridBaseOutputCtrl::GenerateHTMLTables(const CGridBaseOutputCtrl* summary,
                                             const CGridBaseOutputCtrl* results,
                                             const CGridBaseOutputCtrl* statistics, bool transpose,
                                             bool omitColumnGroup)
{
    const Detail::SReportCells cells(summary, results, statistics, transpose);
    if (cells.HasNone())
        return {};
    CStr html(Detail::c_metaLine);
    html += c_style;
    html += GenerateSummaryHTMLTable(cells.summary);
    if (cells.HasBoth())
        html += u"<br>\n";
    return std::move(html += GenerateResultsHTMLTable(cells.results, omitColumnGroup));
}

CGridBaseOutputCtrl::SCopiedTexts CGridBaseOutputCtrl::CopySelectionAsHTML(bool transpose, bool headers) const
{
    CCells cells;
    GetSelectedCells(cells, headers);
    if (transpose)
        TransposeCells(cells);
    if (cells.empty())
        return {};
    return {SelectionHtml(cells), SelectionText(cells)};
}

} // namespace CommonUI

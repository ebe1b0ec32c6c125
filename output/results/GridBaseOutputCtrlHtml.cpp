#include "common/TextBuilder.h"
#include "output/results/detail/ResultPieces.h"
#include "output/results/GridBaseOutputCtrl.h"
#include "output/results/ProfileText.h"
#include "output/results/ResultsHtml.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

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

// How a table divides into header rows and body rows.
struct SSections {
    std::size_t headerRows = 0;
    // The last row of the block of sub-headers below the header rows.
    std::optional<std::size_t> lastSubHeader;

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

// Everything that the opening tag of a cell depends on.
struct STag {
    std::u16string_view element; // "TH" or "TD"
    std::u16string_view style;
    std::u16string_view cssClass;
    std::int32_t rowSpan;
    std::int32_t columnSpan;

    // The texts are literals, so that comparing where they stand is enough.
    bool operator==(const STag& other) const
    {
        return style.data() == other.style.data() && cssClass.data() == other.cssClass.data() &&
               element.data() == other.element.data() && rowSpan == other.rowSpan &&
               columnSpan == other.columnSpan;
    }

    CStr GetOpening() const
    {
        return CStr::Format(u"<%s ROWSPAN=%d COLSPAN=%d %s %s>", element, rowSpan, columnSpan, style,
                            cssClass);
    }
};

// Writes rows of a table. Neighbouring cells mostly have the same tag, so that its text is kept.
class CRowWriter
{
public:
    CRowWriter(std::size_t rowCount, const SSections& sections)
        : m_rowCount(rowCount)
        , m_sections(sections)
    {
    }

    // @param index of the row in the whole table
    void Append(CTextBuilder& html, const CRow& row, std::size_t index)
    {
        if (index == m_sections.headerRows)
            html += u"</THEAD>\n<TBODY>\n";
        html += u"<TR>";
        for (const SCellInfo& cell : row)
            AppendCell(html, cell, TagOf(cell, &cell == &row.back(), index));
        html += u"</TR>\n";
    }

private:
    STag TagOf(const SCellInfo& cell, bool last, std::size_t row) const
    {
        if (cell.Has(SCellInfo::ColumnHeader))
            return {u"TH", HeaderStyle(cell), HeaderClass(cell, last), cell.rowSpan, cell.columnSpan};
        return {u"TD", BodyStyle(cell), BodyClass(cell, row, m_rowCount, m_sections), cell.rowSpan,
                cell.columnSpan};
    }

    void AppendCell(CTextBuilder& html, const SCellInfo& cell, const STag& tag)
    {
        if (!(tag == m_tag)) {
            m_tag = tag;
            m_opening = tag.GetOpening() + u"<nobr>";
            m_closing = u"</nobr></" + CStr(tag.element) + u">\n";
        }
        html += m_opening;
        bool first = true;
        ForEachPiece(cell.text, [&](std::u16string_view piece) {
            if (!first)
                html += u"</nobr><br><nobr>";
            html += piece;
            first = false;
        });
        html += m_closing;
    }

    std::size_t m_rowCount;
    SSections m_sections;
    STag m_tag{};
    CStr m_opening{};
    CStr m_closing{};
};

void AppendStart(CTextBuilder& html, bool omitColumnGroup, bool fullWidth)
{
    if (fullWidth)
        html += u"<table style=\"width:100%;\">\n";
    else
        html += u"<table>\n";
    // The element of the column has never had its closing bracket; readers of the format rely on the exact
    // text.
    if (!omitColumnGroup)
        html += u"<colgroup><col class=\"first\"</colgroup>";
    html += u"<THEAD>\n";
}

constexpr std::u16string_view c_end = u"</TBODY>\n</table>";

// The alignment of a selected cell. The misspelt value is what other programs have always been given: it
// leaves the cell at the reader's default alignment.
std::u16string_view SelectionStyle(bool header, bool rowName)
{
    if (header)
        return u"text-align:center;";
    return rowName ? u"text-align:left;" : u"text-align:rigth;";
}

// @param hasHeader whether the first row is that of the headers
// @param hasNames whether the first column is that of the row names
CStr SelectionHtml(const CCells& cells, bool hasHeader, bool hasNames)
{
    CTextBuilder html;
    html += c_metaLine;
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

// Appends the table of a summary, or nothing when there are no cells.
void AppendSummary(CTextBuilder& html, const CCells& cells)
{
    if (cells.empty())
        return;
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
}

// Appends the table of results, or nothing when there are no cells.
void AppendResults(CTextBuilder& html, const CCells& cells, bool omitColumnGroup, bool fullWidth)
{
    if (cells.empty())
        return;
    AppendStart(html, omitColumnGroup, fullWidth);
    CRowWriter writer(cells.size(), SSections(cells));
    CRowRoom room(html, cells.size());
    for (std::size_t row = 0; row < cells.size(); ++row) {
        writer.Append(html, cells[row], row);
        room.RowDone();
    }
    html += c_end;
}

} // namespace

struct CResultsHtml::SState {
    std::size_t rowCount;
    std::size_t done = 0;
    std::optional<CRowWriter> writer{};
};

CResultsHtml::CResultsHtml(std::size_t rowCount)
    : m_state(std::make_unique<SState>(rowCount))
{
}

CResultsHtml::~CResultsHtml() = default;

CStr CResultsHtml::MakePart(const CCells& rows)
{
    CTextBuilder html;
    if (!m_state->writer) {
        AppendStart(html, false, false);
        m_state->writer.emplace(m_state->rowCount, SSections(rows));
    }
    for (const CRow& row : rows)
        m_state->writer->Append(html, row, m_state->done++);
    if (m_state->done == m_state->rowCount)
        html += c_end;
    return html.Take();
}

CStr CGridBaseOutputCtrl::GenerateHTMLTableStyle()
{
    return c_style;
}

CStr CGridBaseOutputCtrl::GenerateSummaryHTMLTable(const CCells& cells)
{
    CTextBuilder html;
    AppendSummary(html, cells);
    return html.Take();
}

CStr CGridBaseOutputCtrl::GenerateResultsHTMLTable(const CCells& cells, bool omitColumnGroup, bool fullWidth)
{
    CTextBuilder html;
    AppendResults(html, cells, omitColumnGroup, fullWidth);
    return html.Take();
}

CStr SReportCells::MakeHtml(bool omitColumnGroup) const
{
    if (HasNone())
        return {};
    CTextBuilder html;
    html += c_metaLine;
    html += c_style;
    AppendSummary(html, summary);
    if (HasBoth())
        html += u"<br>\n";
    AppendResults(html, results, omitColumnGroup, false);
    return html.Take();
}

CStr CGridBaseOutputCtrl::GenerateHTMLTables(const CGridBaseOutputCtrl* summary,
                                             const CGridBaseOutputCtrl* results,
                                             const CGridBaseOutputCtrl* statistics, bool transpose,
                                             bool omitColumnGroup)
{
    return SReportCells(summary, results, statistics, transpose).MakeHtml(omitColumnGroup);
}

CGridBaseOutputCtrl::SCopiedTexts
CGridBaseOutputCtrl::CopySelectionAsHTML(bool transpose, bool headers, const SNumberProfile& profile) const
{
    CCells cells;
    GetSelectedCells(cells, headers, profile.kind == ENumberProfile::Machine);
    ConvertCells(cells, profile);
    bool hasHeader = headers && !m_columns.empty();
    bool hasNames = m_selection.firstColumn == 0;
    if (transpose) {
        // All rows of a selection are equally long, or a short one on top would pass for a row of groups.
        std::size_t width = 0;
        for (const CRow& row : cells)
            width = std::max(width, row.size());
        for (CRow& row : cells)
            row.resize(width);
        TransposeCells(cells);
        std::swap(hasHeader, hasNames);
    }
    if (cells.empty())
        return {};
    const bool isShown = profile.kind == ENumberProfile::Shown;
    return {SelectionHtml(cells, hasHeader, hasNames),
            isShown ? SelectionText(cells) : GenerateProfileText(cells, profile)};
}

} // namespace CommonUI

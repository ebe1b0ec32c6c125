#include "common/TextBuilder.h"
#include "output/results/detail/ResultPieces.h"
#include "output/results/detail/TableRows.h"
#include "output/results/GridBaseOutputCtrl.h"
#include "output/results/ProfileText.h"
#include "output/results/ResultsHtml.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

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

template<class TRow>
bool StartsWith(const TRow& row, SCellInfo::EFlag flag)
{
    return !row.empty() && row.front().Has(flag);
}

// How a table divides into header rows and body rows.
struct SSections {
    std::size_t headerRows = 0;
    // The last row of the block of sub-headers below the header rows.
    std::optional<std::size_t> lastSubHeader;

    template<class TRows>
    explicit SSections(TRows& rows)
    {
        const std::size_t count = rows.GetCount();
        while (headerRows < count && StartsWith(rows.At(headerRows), SCellInfo::ColumnHeader))
            ++headerRows;
        for (std::size_t row = headerRows; row < count && StartsWith(rows.At(row), SCellInfo::SubHeader);
             ++row)
            lastSubHeader = row;
    }
};

template<class TCell>
std::u16string_view HeaderClass(const TCell& cell, bool last)
{
    if (cell.Has(SCellInfo::MergedHeader))
        return last ? u"class=\"mergedlast\"" : u"class=\"merged\"";
    return last ? u"class=\"last\"" : u"";
}

template<class TCell>
std::u16string_view BodyClass(const TCell& cell, std::size_t row, std::size_t rowCount,
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

template<class TCell>
std::u16string_view HeaderStyle(const TCell& cell)
{
    return cell.Has(SCellInfo::RowHeader) ? u"style=\"text-align:left;\"" : u"style=\"text-align:center;\"";
}

template<class TCell>
std::u16string_view BodyStyle(const TCell& cell)
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
        return CStr::Format(u"<%s ROWSPAN=%d COLSPAN=%d %s %s><nobr>", element, rowSpan, columnSpan, style,
                            cssClass);
    }
    CStr GetClosing() const { return u"</nobr></" + CStr(element) + u">\n"; }
};

// The texts of the tags that were met: a table has a few of them in all rows.
class CTagTexts
{
public:
    struct STexts {
        STag tag;
        CStr opening;
        CStr closing;
        CStr between; // of two neighbours
    };

    const STexts& Get(const STag& tag)
    {
        const auto found = std::ranges::find(m_texts, tag, &STexts::tag);
        if (found != m_texts.end())
            return *found;
        if (m_texts.size() == c_most)
            m_texts.clear();
        const CStr opening = tag.GetOpening();
        const CStr closing = tag.GetClosing();
        return m_texts.emplace_back(tag, opening, closing, closing + opening);
    }

private:
    static constexpr std::size_t c_most = 32; // more are not found faster than formatted

    std::vector<STexts> m_texts;
};

// Writes rows of a table. Neighbouring cells mostly have the same tag.
class CRowWriter
{
public:
    CRowWriter(std::size_t rowCount, const SSections& sections)
        : m_rowCount(rowCount)
        , m_sections(sections)
    {
    }

    // @param index of the row in the whole table
    template<class THtml, class TRow>
    void Append(THtml& html, const TRow& row, std::size_t index)
    {
        if (index == m_sections.headerRows)
            html += u"</THEAD>\n<TBODY>\n";
        html += u"<TR>";
        const CTagTexts::STexts* texts = nullptr;
        for (const auto& cell : row) {
            if (texts && HaveSameTag(*(&cell - 1), cell)) {
                html += texts->between.View();
            } else {
                html += texts ? texts->closing.View() : std::u16string_view();
                texts = &m_texts.Get(TagOf(cell, &cell == &row.back(), index));
                html += texts->opening.View();
            }
            AppendText(html, cell.text);
        }
        html += texts ? texts->closing.View() : std::u16string_view();
        html += u"</TR>\n";
    }

private:
    // Of neighbours in a row. The tag of a header depends on where it stands, too.
    template<class TCell>
    static bool HaveSameTag(const TCell& a, const TCell& b)
    {
        return a.flags == b.flags && a.columnSpan == b.columnSpan && a.rowSpan == b.rowSpan &&
               !b.Has(SCellInfo::ColumnHeader);
    }

    template<class TCell>
    STag TagOf(const TCell& cell, bool last, std::size_t row) const
    {
        if (cell.Has(SCellInfo::ColumnHeader))
            return {u"TH", HeaderStyle(cell), HeaderClass(cell, last), cell.rowSpan, cell.columnSpan};
        return {u"TD", BodyStyle(cell), BodyClass(cell, row, m_rowCount, m_sections), cell.rowSpan,
                cell.columnSpan};
    }

    template<class THtml>
    static void AppendText(THtml& html, std::u16string_view text)
    {
        if (!HasReturn(text)) {
            html += text;
            return;
        }
        bool first = true;
        ForEachPiece(text, [&](std::u16string_view piece) {
            if (!first)
                html += u"</nobr><br><nobr>";
            html += piece;
            first = false;
        });
    }

    std::size_t m_rowCount;
    SSections m_sections;
    CTagTexts m_texts{};
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
template<class TRows>
CStr SelectionHtml(TRows& rows, bool hasHeader, bool hasNames)
{
    constexpr std::u16string_view c_tableEnd = u"</table>";
    CTextBuilder html;
    html += c_metaLine;
    html += c_style;
    html += u"<table>";
    AppendLongRows(html, rows, c_tableEnd.size(), [=](auto& to, const auto& row, std::size_t index) {
        to += u"<tr>";
        for (const auto& cell : row) {
            to += u"<td style=\"";
            to += SelectionStyle(hasHeader && index == 0, hasNames && &cell == &row.front());
            to += u"\">";
            to += cell.text;
            to += u"</td>\n";
        }
        to += u"</tr>";
    });
    html += c_tableEnd;
    return html.Take();
}

template<class TRows>
CStr SelectionText(TRows& rows)
{
    CTextBuilder text;
    AppendRows(text, rows, [](auto& to, const auto& row, std::size_t index) {
        if (index != 0)
            to += u'\n';
        for (const auto& cell : row) {
            if (&cell != &row.front())
                to += u'\t';
            to += cell.text;
        }
    });
    return text.Take();
}

// The headers of the selected columns, each as one line. The grid has columns.
CRow SelectedHeaders(const CGridBaseOutputCtrl& grid, const SGridRange& selection)
{
    CCells headers;
    grid.GetGridHeaders(headers, grid.GetType());
    const CRow& all = headers.back();
    CRow row;
    for (std::size_t i = selection.firstColumn; i < all.size() && i <= selection.lastColumn; ++i) {
        row.push_back(all[i]);
        row.back().text = all[i].text.Replace(c_lineEnd, u" ");
    }
    return row;
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

// Appends the table of results, or nothing when there are no rows.
template<class TRows>
void AppendResults(CTextBuilder& html, TRows& rows, bool omitColumnGroup, bool fullWidth)
{
    if (rows.GetCount() == 0)
        return;
    AppendStart(html, omitColumnGroup, fullWidth);
    CRowWriter writer(rows.GetCount(), SSections(rows));
    AppendLongRows(html, rows, c_end.size(),
                   [&](auto& to, const auto& row, std::size_t index) { writer.Append(to, row, index); });
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
    CCellRows views(rows);
    if (!m_state->writer) {
        AppendStart(html, false, false);
        m_state->writer.emplace(m_state->rowCount, SSections(views));
    }
    for (std::size_t row = 0; row < rows.size(); ++row)
        m_state->writer->Append(html, views.At(row), m_state->done++);
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
    CCellRows rows(cells);
    AppendResults(html, rows, omitColumnGroup, fullWidth);
    return html.Take();
}

CStr CReportRows::MakeHtml(bool omitColumnGroup)
{
    if (HasNone())
        return {};
    CTextBuilder html;
    html += c_metaLine;
    html += c_style;
    AppendSummary(html, m_summary);
    if (!m_summary.empty() && HasResults())
        html += u"<br>\n";
    AppendResults(html, m_rows, omitColumnGroup, false);
    CCellRows cells(m_cells);
    AppendResults(html, cells, omitColumnGroup, false);
    return html.Take();
}

CStr CGridBaseOutputCtrl::GenerateHTMLTables(const CGridBaseOutputCtrl* summary,
                                             const CGridBaseOutputCtrl* results,
                                             const CGridBaseOutputCtrl* statistics, bool transpose,
                                             bool omitColumnGroup)
{
    return CReportRows(summary, results, statistics, transpose).MakeHtml(omitColumnGroup);
}

CGridBaseOutputCtrl::SCopiedTexts
CGridBaseOutputCtrl::CopySelectionAsHTML(bool transpose, bool headers, const SNumberProfile& profile) const
{
    const bool isShown = profile.kind == ENumberProfile::Shown;
    bool hasHeader = headers && !m_columns.empty();
    bool hasNames = m_selection.firstColumn == 0;
    if (isShown && !transpose && m_hasSelection) {
        CGridRows rows;
        if (hasHeader)
            rows.GetHeaders().push_back(SelectedHeaders(*this, m_selection));
        rows.Add(*this, m_selection);
        return {SelectionHtml(rows, hasHeader, hasNames), SelectionText(rows)};
    }
    CCells cells;
    GetSelectedCells(cells, headers, profile.kind == ENumberProfile::Machine);
    ConvertCells(cells, profile);
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
    CCellRows rows(cells);
    return {SelectionHtml(rows, hasHeader, hasNames),
            isShown ? SelectionText(rows) : GenerateProfileText(cells, profile)};
}

} // namespace CommonUI

#include "measurement/documents/HtmlDocument.h"

#include "common/NumberText.h"
#include "measurement/charts/Plot.h"

#include <utility>

namespace CommonUI::Measurement
{

using CGrid = CGridBaseOutputCtrl;

CDocumentWriter::~CDocumentWriter() = default;

namespace
{

// Control characters go, and the rest stands for itself.
CStr Escaped(const CStr& text)
{
    return CStr::FromUtf8(EscapeXml(text.ToUtf8()));
}

// The lines of a header are kept.
CStr EscapedLines(const CStr& text)
{
    CStr lines;
    for (const CStr& line : text.Split(u"\r\n"))
        lines += (lines.IsEmpty() ? u"" : u"\r\n") + Escaped(line);
    return lines;
}

std::string Element(const std::string& name, const CStr& text)
{
    return "<" + name + ">" + EscapeXml(text.ToUtf8()) + "</" + name.substr(0, name.find(' ')) + ">\n";
}

std::string NumberText(double value)
{
    return std::string(CNumberText(value, {.conversion = 'g', .precision = 6}).View());
}

std::string PageStyle(const SDocumentPage& page)
{
    return "<style>\n@page {\nsize:A4 " + std::string(page.isLandscape ? "landscape" : "portrait") +
           ";\nmargin:" + NumberText(page.margin) + "mm;\n}\n" + R"(body {
font-family:"Liberation Sans", Arial, Helvetica, sans-serif;
max-width:)" +
           (page.isLandscape ? "77em" : "54em") + R"(;
margin:1.5em auto;
padding:0 1em;
}
h1 {
font-size:1.7em;
margin:0 0 0.6em;
}
h2 {
font-size:1.15em;
margin:1.5em 0 0.5em;
break-after:avoid;
}
table {
margin:0.5em 0;
font-variant-numeric:tabular-nums;
}
.wide {
overflow-x:auto;
}
thead {
display:table-header-group;
}
tr {
break-inside:avoid;
}
.facts th {
background-color:transparent;
border:none;
padding-left:0;
text-align:left;
vertical-align:top;
opacity:0.75;
}
.facts td {
text-align:left;
}
.charts figure {
max-width:none;
}
.charts.portrait figure:only-child {
max-width:41em;
}
.comment {
border:1px solid #888;
min-height:7em;
padding:0.5em;
break-inside:avoid;
}
.comment:focus-visible {
outline:2px solid #0B5CAD;
}
.newpage {
break-before:page;
}
@media screen and (prefers-color-scheme:dark) {
html .facts th {
background-color:transparent;
}
}
@media print {
body {
max-width:none;
margin:0;
padding:0;
font-size:10pt;
}
}
@media print, (min-width:48em) {
.charts {
grid-template-columns:repeat()" +
           std::to_string(page.columns) + R"(, minmax(0, 1fr));
}
}
</style>
)";
}

CGrid::CCells EscapedCells(CGrid::CCells cells)
{
    for (CGrid::CRow& row : cells) {
        for (CGrid::SCellInfo& cell : row)
            cell.text = EscapedLines(cell.text);
    }
    return cells;
}

std::string NotesHtml(const std::vector<CStr>& notes)
{
    std::string html;
    for (const CStr& line : notes)
        html += (html.empty() ? "" : "<br>\n") + EscapeXml(line.ToUtf8());
    return html.empty() ? html : "<p><small>\n" + html + "\n</small></p>\n";
}

} // namespace

CHtmlDocument::CHtmlDocument(const SDocumentPage& page, const FWriteText& write)
    : m_write(write)
{
    m_write("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n" + Element("title", page.title));
    m_write("<meta name=\"viewport\" content=\"width=device-width\">\n");
    m_write(CGrid::GenerateHTMLTableStyle().ToUtf8());
    m_write("\n" + GetChartStyle() + PageStyle(page) + "</head>\n<body>\n");
}

void CHtmlDocument::Add(const CDocumentElement& element)
{
    const bool breaksPage =
        std::exchange(m_breaksPage, false) && !std::holds_alternative<SPageBreak>(element);
    if (breaksPage)
        m_write("<div class=\"newpage\"></div>\n");
    std::visit([this](const auto& part) { AddPart(part); }, element);
}

void CHtmlDocument::Finish()
{
    m_write("</body>\n</html>\n");
}

void CHtmlDocument::AddPart(const SHeading& heading)
{
    m_write(Element(heading.isTitle ? "h1" : "h2", heading.text));
}

void CHtmlDocument::AddPart(const SParagraph& paragraph)
{
    m_write(Element("p", paragraph.text));
}

void CHtmlDocument::AddPart(const SFacts& facts)
{
    std::string html = "<table class=\"facts\">\n";
    for (const auto& [label, text] : facts.rows)
        html += "<tr>\n" + Element("th scope=\"row\"", label) + Element("td", text) + "</tr>\n";
    m_write(html + "</table>\n");
}

void CHtmlDocument::AddPart(const SDocumentTable& table)
{
    m_write("<div class=\"wide\">\n");
    m_write(CGrid::GenerateResultsHTMLTable(EscapedCells(table.cells)).ToUtf8());
    m_write("\n</div>\n" + NotesHtml(table.notes));
}

void CHtmlDocument::AddPart(const SPictures& pictures)
{
    m_write("<div class=\"charts\">\n");
    for (const SPicture& picture : pictures.pictures)
        m_write("<figure>\n" + Element("figcaption", picture.caption) + picture.svg + "</figure>\n");
    m_write("</div>\n");
}

void CHtmlDocument::AddPart(const SCommentField& field)
{
    m_write(Element("h2", field.label) +
            "<div class=\"comment\" contenteditable=\"true\" role=\"textbox\" "
            "aria-multiline=\"true\" aria-label=\"" +
            EscapeXml(field.label.ToUtf8()) + "\"></div>\n");
}

void CHtmlDocument::AddPart(const SPageBreak&)
{
    m_breaksPage = true;
}

} // namespace CommonUI::Measurement

#include "measurement/documents/OdtDocument.h"

#include "measurement/Request.h"

#ifdef COMMONUI_WITH_ODT

#include "common/ControlCharacters.h"
#include "measurement/charts/Svg.h"
#include "measurement/documents/detail/OdtPackage.h"
#include "measurement/documents/detail/TableColumns.h"
#include "measurement/documents/StandaloneSvg.h"

#include <algorithm>
#include <libodfgen/libodfgen.hxx>
#include <librevenge/librevenge.h>
#include <string_view>
#include <vector>

namespace CommonUI::Measurement
{

using CProperties = librevenge::RVNGPropertyList;
using SCell = CGridBaseOutputCtrl::SCellInfo;

namespace
{

constexpr double c_millimetres = 25.4; // of an inch
constexpr double c_paperWidth = 210 / c_millimetres;
constexpr double c_paperHeight = 297 / c_millimetres;
constexpr double c_footer = 0.25; // inches, with the number of the page
constexpr double c_widestPicture = 6.3;
constexpr double c_gap = 0.12; // between pictures that stand side by side

// The generator ends a text at a null character, and takes a tabulator for what it is.
librevenge::RVNGString TextOf(const CStr& text)
{
    return CStr(ReplaceControls(text.View(), u' ')).ToUtf8().c_str();
}

// A picture as a file of the package.
struct SPackagePicture {
    CStr caption; // for those who do not see it
    std::string svg;
};

// Makes XML of what the generator says. Pictures, whose bytes it would write into the text, become links to
// files of the package.
class CXml : public OdfDocumentHandler
{
public:
    // @param pictures those of the document, in their order, when the generator ends it
    explicit CXml(const std::vector<SPackagePicture>& pictures)
        : m_pictures(pictures)
    {
    }

    const std::string& GetText() const { return m_text; }

    void startDocument() override { m_text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"; }
    void endDocument() override {}
    void startElement(const char* name, const CProperties& properties) override
    {
        m_isPicture = std::string_view(name) == "office:binary-data";
        if (m_isPicture)
            return;
        m_text += std::string("<") + name;
        CProperties::Iter property(properties);
        for (property.rewind(); property.next();) {
            if (!property.child() && !std::string_view(property.key()).starts_with("librevenge:"))
                AddAttribute(property.key(), std::string_view(property.key()) == "office:version"
                                                 ? "1.2" // as in the list of the package
                                                 : property()->getStr().cstr());
        }
        if (std::string_view(name) == "draw:image" && !properties["xlink:href"]) {
            AddAttribute("xlink:href", "Pictures/" + std::to_string(++m_count) + ".svg");
            for (const auto& [key, value] :
                 {std::pair("xlink:type", "simple"), {"xlink:show", "embed"}, {"xlink:actuate", "onLoad"}})
                AddAttribute(key, value);
        }
        m_text += '>';
    }
    void endElement(const char* name) override
    {
        if (std::string_view(name) == "draw:frame")
            m_text += "<svg:title>" + EscapeXml(m_pictures[m_count - 1].caption.ToUtf8()) + "</svg:title>";
        if (!m_isPicture)
            m_text += std::string("</") + name + ">";
        m_isPicture = false;
    }
    void characters(const librevenge::RVNGString& text) override
    {
        if (!m_isPicture)
            m_text += EscapeXml(text.cstr());
    }

private:
    void AddAttribute(const std::string& name, const std::string& value)
    {
        m_text += " " + name + "=\"" + EscapeXml(value) + "\"";
    }

    const std::vector<SPackagePicture>& m_pictures;
    std::string m_text{};
    bool m_isPicture = false; // what comes are the bytes of one
    std::size_t m_count = 0;  // of pictures
};

struct SFont {
    double points = 10;
    bool isBold = false;
    const char* color = "#000000";
};

CProperties SpanOf(const SFont& font)
{
    CProperties span;
    span.insert("style:font-name", "Liberation Sans");
    span.insert("fo:font-size", font.points, librevenge::RVNG_POINT);
    span.insert("fo:font-weight", font.isBold ? "bold" : "normal");
    span.insert("fo:color", font.color);
    return span;
}

constexpr SFont c_textFont{};
constexpr SFont c_cellFont{.points = 9};
constexpr SFont c_headFont{.points = 9, .isBold = true};
constexpr SFont c_noteFont{.points = 8};
constexpr SFont c_labelFont{.color = "#505050"};
constexpr SFont c_unitFont{.points = 9, .color = "#505050"};
constexpr SFont c_pageFont{.points = 8, .color = "#505050"};

CProperties ParagraphOf(double above, double below, const char* align = "left")
{
    CProperties paragraph;
    paragraph.insert("fo:margin-top", above, librevenge::RVNG_INCH);
    paragraph.insert("fo:margin-bottom", below, librevenge::RVNG_INCH);
    paragraph.insert("fo:text-align", align);
    return paragraph;
}

bool IsHeaderRow(const CGridBaseOutputCtrl::CRow& row)
{
    return std::ranges::any_of(row, [](const SCell& cell) { return cell.Has(SCell::ColumnHeader); });
}

} // namespace

struct COdtDocument::SState {
    SState(const SDocumentPage& page, const FWriteText& writeTo)
        : write(writeTo)
        , columns(page.columns)
        , textWidth((page.isLandscape ? c_paperHeight : c_paperWidth) - 2 * page.margin / c_millimetres)
        , highestPicture(
              ((page.isLandscape ? c_paperWidth : c_paperHeight) - 2 * page.margin / c_millimetres) / 2)
    {
        generator.addDocumentHandler(&content, ODF_CONTENT_XML);
        generator.addDocumentHandler(&styles, ODF_STYLES_XML);
        generator.addDocumentHandler(&meta, ODF_META_XML);
        CProperties facts;
        facts.insert("dc:title", TextOf(page.title));
        facts.insert("dc:language", "en");
        generator.setDocumentMetaData(facts);
        generator.startDocument({});
        OpenPage(page);
    }

    void OpenPage(const SDocumentPage& page)
    {
        const double margin = page.margin / c_millimetres;
        CProperties paper;
        paper.insert("fo:page-width", page.isLandscape ? c_paperHeight : c_paperWidth, librevenge::RVNG_INCH);
        paper.insert("fo:page-height", page.isLandscape ? c_paperWidth : c_paperHeight,
                     librevenge::RVNG_INCH);
        paper.insert("style:print-orientation", page.isLandscape ? "landscape" : "portrait");
        for (const char* const side : {"fo:margin-left", "fo:margin-right", "fo:margin-top"})
            paper.insert(side, margin, librevenge::RVNG_INCH);
        paper.insert("fo:margin-bottom", std::max(0.0, margin - c_footer), librevenge::RVNG_INCH);
        generator.openPageSpan(paper);
        CProperties footer;
        footer.insert("librevenge:occurrence", "all");
        generator.openFooter(footer);
        generator.openParagraph(ParagraphOf(0.08, 0, "end"));
        generator.openSpan(SpanOf(c_pageFont));
        AddField("text:page-number");
        generator.insertText(" / ");
        AddField("text:page-count");
        generator.closeSpan();
        generator.closeParagraph();
        generator.closeFooter();
    }
    void AddField(const char* type)
    {
        CProperties field;
        field.insert("librevenge:field-type", type);
        field.insert("style:num-format", "1");
        generator.insertField(field);
    }

    // Lines of a text, in a paragraph of their own.
    void AddText(const CStr& text, const SFont& font, CProperties paragraph)
    {
        if (breaksPage)
            paragraph.insert("fo:break-before", "page");
        breaksPage = false;
        generator.openParagraph(paragraph);
        generator.openSpan(SpanOf(font));
        bool isFirst = true;
        for (const CStr& line : text.Split(u"\r\n")) {
            if (!isFirst)
                generator.insertLineBreak();
            isFirst = false;
            generator.insertText(TextOf(line));
        }
        if (text.IsEmpty()) // as high as others
            generator.insertSpace();
        generator.closeSpan();
        generator.closeParagraph();
    }
    void OpenTable(const std::vector<double>& widths)
    {
        CProperties table;
        librevenge::RVNGPropertyListVector list;
        double sum = 0;
        for (const double width : widths) {
            CProperties column;
            column.insert("style:column-width", width, librevenge::RVNG_INCH);
            list.append(column);
            sum += width;
        }
        table.insert("librevenge:table-columns", list);
        table.insert("style:width", sum, librevenge::RVNG_INCH);
        table.insert("table:align", "left");
        if (breaksPage)
            table.insert("fo:break-before", "page");
        breaksPage = false;
        generator.openTable(table);
    }
    void OpenRow(bool isHeader)
    {
        CProperties row;
        row.insert("librevenge:is-header-row", isHeader);
        row.insert("fo:keep-together", "always");
        generator.openTableRow(row);
    }
    void OpenCell(std::size_t span, const char* background, bool hasRule)
    {
        CProperties cell;
        cell.insert("fo:padding", 0.03, librevenge::RVNG_INCH);
        cell.insert("style:vertical-align", "top");
        if (span > 1)
            cell.insert("table:number-columns-spanned", static_cast<int>(span));
        if (background)
            cell.insert("fo:background-color", background);
        if (hasRule)
            cell.insert("fo:border-bottom", "0.5pt solid #C0C0C0");
        generator.openTableCell(cell);
    }
    void AddPart(const SHeading& heading)
    {
        CProperties paragraph = ParagraphOf(heading.isTitle ? 0 : 0.2, heading.isTitle ? 0.15 : 0.08);
        paragraph.insert("text:outline-level", heading.isTitle ? 1 : 2);
        paragraph.insert("fo:keep-with-next", "always");
        AddText(heading.text, {.points = heading.isTitle ? 18.0 : 12.0, .isBold = true}, paragraph);
    }
    void AddPart(const SParagraph& paragraph) { AddText(paragraph.text, c_textFont, ParagraphOf(0, 0.1)); }
    void AddPart(const SFacts& facts)
    {
        const double first = std::min(1.7, textWidth / 3);
        OpenTable({first, textWidth - first});
        for (const auto& [label, text] : facts.rows) {
            OpenRow(false);
            OpenCell(1, nullptr, false);
            AddText(label, c_labelFont, ParagraphOf(0, 0));
            generator.closeTableCell();
            OpenCell(1, nullptr, false);
            AddText(text, c_textFont, ParagraphOf(0, 0));
            generator.closeTableCell();
            generator.closeTableRow();
        }
        generator.closeTable();
        AddText({}, c_noteFont, ParagraphOf(0, 0));
    }
    void AddPart(const SDocumentTable& table)
    {
        const std::vector<double> widths = WidthsOf(table.cells);
        OpenTable(widths);
        std::size_t index = 0;
        for (const auto& row : table.cells) {
            OpenRow(IsHeaderRow(row) && index++ < 3);
            for (std::size_t i = 0; i < widths.size(); ++i)
                AddCell(i < row.size() ? row[i] : SCell(), i == 0);
            generator.closeTableRow();
        }
        generator.closeTable();
        for (const CStr& note : table.notes)
            AddText(note, c_noteFont, ParagraphOf(0.03, 0));
        AddText({}, c_noteFont, ParagraphOf(0, 0));
    }
    void AddCell(const SCell& cell, bool isName)
    {
        if (cell.columnSpan <= 0) {
            generator.insertCoveredTableCell({});
            return;
        }
        const bool isHeader = cell.Has(SCell::ColumnHeader) || cell.Has(SCell::MergedHeader);
        OpenCell(static_cast<std::size_t>(cell.columnSpan), isHeader ? "#EAEAEA" : nullptr, true);
        AddText(cell.text,
                isHeader                     ? c_headFont
                : cell.Has(SCell::SubHeader) ? c_unitFont
                                             : c_cellFont,
                ParagraphOf(0, 0, isName ? "left" : "end"));
        generator.closeTableCell();
    }
    // As wide as the texts, the page at the most.
    std::vector<double> WidthsOf(const CGridBaseOutputCtrl::CCells& cells) const
    {
        constexpr double c_character = 0.073; // inches, of the font of tables
        constexpr double c_padding = 0.13;
        std::vector<double> widths = GetColumnLengths(cells);
        double sum = 0;
        for (double& width : widths)
            sum += width = width * c_character + c_padding;
        for (double& width : widths)
            width *= std::min(1.0, textWidth / sum);
        return widths;
    }
    void AddPart(const SPictures& pictures)
    {
        const auto across = static_cast<std::size_t>(columns);
        const double width = textWidth / static_cast<double>(across);
        if (across > 1)
            OpenTable(std::vector<double>(across, width));
        for (std::size_t i = 0; i < pictures.pictures.size(); i += across) {
            if (across > 1)
                OpenRow(false);
            for (std::size_t column = 0; column < across; ++column) {
                if (across > 1)
                    OpenCell(1, nullptr, false);
                if (i + column < pictures.pictures.size())
                    AddPicture(pictures.pictures[i + column], width - (across > 1 ? c_gap : 0));
                if (across > 1)
                    generator.closeTableCell();
            }
            if (across > 1)
                generator.closeTableRow();
        }
        if (across > 1) {
            generator.closeTable();
            AddText({}, c_noteFont, ParagraphOf(0, 0));
        }
    }
    void AddPicture(const SPicture& picture, double room)
    {
        CProperties caption = ParagraphOf(0.1, 0.03);
        if (!picture.svg.empty())
            caption.insert("fo:keep-with-next", "always");
        AddText(picture.caption, c_textFont, caption);
        if (picture.svg.empty())
            return;
        SStandaloneSvg svg = MakeStandaloneSvg(picture.svg);
        const double width = std::min({room, c_widestPicture, highestPicture * svg.width / svg.height});
        generator.openParagraph(ParagraphOf(0, 0.08));
        CProperties frame;
        frame.insert("text:anchor-type", "as-char");
        frame.insert("svg:width", width, librevenge::RVNG_INCH);
        frame.insert("svg:height", width * svg.height / svg.width, librevenge::RVNG_INCH);
        generator.openFrame(frame);
        CProperties object;
        object.insert("librevenge:mime-type", "image/svg+xml");
        object.insert("office:binary-data", reinterpret_cast<const unsigned char*>("x"), 1ul);
        generator.insertBinaryObject(object);
        generator.closeFrame();
        generator.closeParagraph();
        files.push_back({picture.caption, std::move(svg.bytes)});
    }
    void AddPart(const SCommentField& field)
    {
        AddPart(SHeading{.text = field.label});
        OpenTable({textWidth});
        CProperties row;
        row.insert("style:min-row-height", 1.2, librevenge::RVNG_INCH);
        generator.openTableRow(row);
        CProperties cell;
        cell.insert("fo:padding", 0.08, librevenge::RVNG_INCH);
        cell.insert("fo:border", "0.5pt solid #808080");
        generator.openTableCell(cell);
        AddText({}, c_textFont, ParagraphOf(0, 0));
        generator.closeTableCell();
        generator.closeTableRow();
        generator.closeTable();
    }
    void AddPart(const SPageBreak&) { breaksPage = true; }

    void Finish()
    {
        generator.closePageSpan();
        generator.endDocument();
        COdtPackage package;
        package.Add("content.xml", "text/xml", content.GetText());
        package.Add("styles.xml", "text/xml", styles.GetText());
        package.Add("meta.xml", "text/xml", meta.GetText());
        for (std::size_t i = 0; i < files.size(); ++i)
            package.Add("Pictures/" + std::to_string(i + 1) + ".svg", "image/svg+xml",
                        std::move(files[i].svg));
        package.Write(write);
    }

    const FWriteText& write;
    int columns;
    double textWidth;      // inches
    double highestPicture; // inches, half of the page
    std::vector<SPackagePicture> files{};
    CXml content{files};
    CXml styles{files};
    CXml meta{files};
    OdtGenerator generator{}; // refers to the above
    bool breaksPage = false;  // before the next element
};

bool HasOdt()
{
    return true;
}

COdtDocument::COdtDocument(const SDocumentPage& page, const FWriteText& write)
    : m_state(std::make_unique<SState>(page, write))
{
}

COdtDocument::~COdtDocument() = default;

void COdtDocument::Add(const CDocumentElement& element)
{
    std::visit([this](const auto& part) { m_state->AddPart(part); }, element);
}

void COdtDocument::Finish()
{
    m_state->Finish();
}

} // namespace CommonUI::Measurement

#else

namespace CommonUI::Measurement
{

struct COdtDocument::SState {
};

bool HasOdt()
{
    return false;
}

COdtDocument::COdtDocument(const SDocumentPage&, const FWriteText&)
{
    throw ERequest(u"", CStr(c_noOdt));
}

COdtDocument::~COdtDocument() = default;

void COdtDocument::Add(const CDocumentElement&)
{
}

void COdtDocument::Finish()
{
}

} // namespace CommonUI::Measurement

#endif

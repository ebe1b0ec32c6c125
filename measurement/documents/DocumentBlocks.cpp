#include "measurement/documents/detail/DocumentBlocks.h"

#include "measurement/documents/detail/TableColumns.h"
#include "measurement/documents/HtmlDocument.h"
#include "measurement/documents/OdtDocument.h"

#include <algorithm>
#include <utility>

namespace CommonUI::Measurement
{

namespace
{

SDocumentPage PageOf(const SReportTemplateSettings& layout, const CStr& title)
{
    return {.title = title,
            .isLandscape = layout.orientation == EReportOrientation::Landscape,
            .margin = layout.margin,
            .columns = layout.columns};
}

template<class TDocument>
std::function<void(const FWriteText&)> WriterOf(SDocumentPage page,
                                                std::function<void(CDocumentWriter&)> make)
{
    return [page = std::move(page), make = std::move(make)](const FWriteText& write) {
        TDocument document(page, write);
        make(document);
        document.Finish();
    };
}

} // namespace

CStr NameOf(EReportBlock block)
{
    return GetReportBlockEnum().GetFriendlyString(static_cast<int>(block));
}

CStr EmptyBlockText(const CStr& names, const CStr& reason)
{
    return names + u": not shown, as " + reason;
}

CStr TitleOf(const SReportTemplateSettings& layout, const CStr& name)
{
    if (!layout.title.IsEmpty())
        return layout.title;
    return name.IsEmpty() ? CStr(u"Surface report") : name;
}

SDocumentFile MakeDocumentFile(const SReportTemplateSettings& layout, const CStr& title,
                               std::function<void(CDocumentWriter&)> make)
{
    SDocumentPage page = PageOf(layout, title);
    if (layout.format == EReportFormat::Doc && HasOdt())
        return {".odt", WriterOf<COdtDocument>(std::move(page), std::move(make))};
    return {".html", WriterOf<CHtmlDocument>(std::move(page), std::move(make))};
}

void CDocumentBlocks::Add(const CDocumentElement& element)
{
    FlushPictures();
    m_document.Add(element);
    m_isAtTop = false;
}

void CDocumentBlocks::AddSentence(EReportBlock block, const CStr& reason)
{
    Add(SParagraph{EmptyBlockText(NameOf(block), reason) + u"."});
}

void CDocumentBlocks::AddPicture(const SPicture& picture)
{
    if (m_hasPictures)
        m_pictures.pictures.push_back(picture);
}

void CDocumentBlocks::AddChart(EReportBlock block, const CStr& caption, std::string svg, const CStr& reason)
{
    if (!m_hasPictures)
        return;
    if (svg.empty())
        AddSentence(block, reason);
    else
        AddPicture({caption, std::move(svg)});
}

void CDocumentBlocks::AddTable(const CStr& heading, const CGridBaseOutputCtrl::CCells& cells,
                               const std::vector<CStr>& notes)
{
    constexpr std::size_t c_longTable = 32;
    if (cells.size() > c_longTable && !m_isAtTop)
        Add(SPageBreak());
    Add(SHeading{heading});
    std::vector<CGridBaseOutputCtrl::CCells> parts = SplitColumns(cells, GetCharacters());
    for (std::size_t i = 0; i < parts.size(); ++i)
        Add(SDocumentTable{std::move(parts[i]), i + 1 == parts.size() ? notes : std::vector<CStr>()});
}

void CDocumentBlocks::AddShownRows(std::size_t shown, std::size_t count)
{
    if (shown < count)
        Add(SParagraph{
            CStr::Format(u"The first %u of %u; all are in the text file beside this report.", shown, count)});
}

void CDocumentBlocks::FlushPictures()
{
    if (!m_pictures.pictures.empty())
        m_document.Add(std::exchange(m_pictures, {}));
}

// How many of a line the page has room for, in the font of tables.
double CDocumentBlocks::GetCharacters() const
{
    constexpr double c_each = 1.88; // mm
    const double width = m_layout.orientation == EReportOrientation::Landscape ? 297 : 210;
    return std::max(20.0, (width - 2 * m_layout.margin) / c_each);
}

} // namespace CommonUI::Measurement

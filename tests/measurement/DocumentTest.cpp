#include "measurement/documents/HtmlDocument.h"

#include "measurement/charts/Svg.h"
#include "measurement/documents/OdtDocument.h"
#include "measurement/documents/StandaloneSvg.h"
#include "tests/measurement/DocumentTesting.h"
#include "tests/TestData.h"

#include <stdexcept>
#include <tuple>

using namespace CommonUI;
using namespace CommonUI::Measurement;
using Analysis::MakeSurface;

namespace
{

// Keeps a document as a text of few words.
class COutline : public CDocumentWriter
{
public:
    void Add(const CDocumentElement& element) override
    {
        m_text += m_text.empty() ? "" : " | ";
        std::visit([this](const auto& part) { m_text += TextOf(part).ToUtf8(); }, element);
    }
    void Finish() override {}

    const std::string& GetText() const { return m_text; }

private:
    static CStr TextOf(const SHeading& heading) { return (heading.isTitle ? u"# " : u"## ") + heading.text; }
    static CStr TextOf(const SParagraph& paragraph) { return paragraph.text; }
    static CStr TextOf(const SFacts& facts)
    {
        return CStr::Format(u"%u facts to ", facts.rows.size()) + facts.rows.back().second;
    }
    static CStr TextOf(const SDocumentTable& table)
    {
        const auto& last = table.cells.back();
        return CStr::Format(u"%u × %u to %s %s, %u notes", table.cells.size(), last.size(), last.front().text,
                            last.back().text, table.notes.size());
    }
    static CStr TextOf(const SPictures& pictures)
    {
        CStr text;
        for (const SPicture& picture : pictures.pictures)
            text += u"[" + picture.caption + (picture.svg.empty() ? u": none]" : u"]");
        return text;
    }
    static CStr TextOf(const SCommentField& field) { return u"____ " + field.label; }
    static CStr TextOf(const SPageBreak&) { return u"new page"; }

    std::string m_text{};
};

std::string OutlineOf(const SReportTemplateSettings& layout, const SDocumentSource& source)
{
    COutline outline;
    MakeReportDocument(layout, source, outline);
    return outline.GetText();
}

} // namespace

TEST(Document, EveryBlockShowsSomethingOrSaysWhyNot)
{
    const CMeasured surface(MakeWaves(), {});
    const CMeasured grains(MakeWaves(), 1.5e-7);
    const CMeasured noGrains(MakeWaves(), 1.0);
    const CMeasured profile(MakeWaves(200, 1), {});
    const CMeasured empty(MakeSurface(9, 9, [](double, double) { return Analysis::c_missing; }), 0.0);
    const std::pair<const char*, const CMeasured*> sources[]{{"surface", &surface},
                                                             {"with grains", &grains},
                                                             {"without any grain", &noGrains},
                                                             {"profile", &profile},
                                                             {"without points", &empty}};
    std::string text;
    for (const EReportBlock block : AllBlocks()) {
        text += GetReportBlockEnum().GetIniName(static_cast<int>(block)).ToUtf8() + "\n";
        for (const auto& [name, source] : sources) {
            const SReportTemplateSettings layout{.blocks = {block}};
            if (source->GetSource().roughness || !IsAboutRoughness(layout))
                text += std::string("  ") + name + ": " + OutlineOf(layout, source->GetSource()) + "\n";
        }
    }
    EXPECT_EQ(text, ReadTestData("document-blocks.txt"));
}

TEST(Document, TablesKeepWithinAPage)
{
    const CMeasured many(MakeSurface(3, 1200, [](double x, double y) { return 1e-7 * std::sin(x * y); }), {},
                         {u"4287Ra"});
    const SReportTemplateSettings layout{
        .blocks = {EReportBlock::Comment, EReportBlock::RoughnessParameters}};
    EXPECT_TRUE(Has(DocumentOf(layout, many.GetSource()), "<div class=\"newpage\"></div>\n<h2>"));
    EXPECT_EQ(
        OutlineOf(layout, many.GetSource()),
        "____ Comment | new page | ## Roughness parameters | 1002 × 2 to 1000 , 1 notes | The first 1000 "
        "of 1200; all are in the text file beside this report.");
    const CMeasured wide(MakeWaves(), 1.5e-7);
    const std::tuple<EReportOrientation, double, int> pages[]{{EReportOrientation::Landscape, 5, 1},
                                                              {EReportOrientation::Landscape, 20, 2},
                                                              {EReportOrientation::Portrait, 20, 2},
                                                              {EReportOrientation::Portrait, 55, 4}};
    for (const auto& [orientation, margin, parts] : pages) {
        const std::string outline =
            OutlineOf({.orientation = orientation, .margin = margin, .blocks = {EReportBlock::GrainTable}},
                      wide.GetSource());
        EXPECT_EQ(std::ranges::count(outline, '|'), parts) << outline;
    }
}

TEST(Document, PicturesAreLeftOutWhereNobodyWantsThem)
{
    const CMeasured grains(MakeWaves(), 1.5e-7);
    SDocumentSource source = grains.GetSource();
    source.hasPictures = false;
    const std::string page = DocumentOf({.blocks = AllBlocks()}, source);
    EXPECT_FALSE(Has(page, "<svg") || Has(page, "<figure"));
    EXPECT_TRUE(Has(page, "Statistics of grains") && Has(page, "Comment"));
}

TEST(Document, PageOfHtmlStandsAlone)
{
    const CMeasured grains(MakeWaves(), 1.5e-7);
    std::string page = DocumentOf(
        {.orientation = EReportOrientation::Landscape, .columns = 3, .margin = 12.5, .blocks = AllBlocks()},
        grains.GetSource());
    for (const char* const part :
         {"size:A4 landscape;\nmargin:12.5mm", "repeat(3, ", "prefers-color-scheme:dark",
          "<title>waves.sdf</title>", "contenteditable"})
        EXPECT_TRUE(Has(page, part)) << part;
    for (const char* const reference : {"src=", "url(", "@import", "<script", "href=\"http"})
        EXPECT_FALSE(Has(page, reference)) << reference;
}

TEST(Document, TextsOfAFileStayTextsInHtml)
{
    Analysis::SSurface surface = MakeWaves();
    surface.fileName = c_hostileName.ToUtf8();
    surface.channel = "<script>";
    const CMeasured hostile(std::move(surface), {});
    const std::string page = DocumentOf({.title = c_hostileName, .blocks = AllBlocks()}, hostile.GetSource());
    EXPECT_TRUE(Has(page, "<h1>&lt;b&gt;&quot;A&amp;B&quot;&lt;/b&gt;   [31m ]]&gt; � � � 'ä'    .</h1>"))
        << page;
    EXPECT_TRUE(Has(page, "<td>&lt;script&gt;</td>"));
    EXPECT_FALSE(Has(page, "<script") || Has(page, "<b>"));
    EXPECT_EQ(page.find_first_of("\x01\x1B\x7F"), page.npos);
}

TEST(Document, WriterThatFailsEndsTheDocument)
{
    const CMeasured measured(MakeWaves(), {});
    const SDocumentSource source = measured.GetSource();
    for (const EReportFormat format : {EReportFormat::HTML, EReportFormat::Doc}) {
        const SReportTemplateSettings layout{.format = format, .blocks = AllBlocks()};
        const std::size_t size = DocumentOf(layout, source).size();
        for (const std::size_t most : {std::size_t{0}, size / 2, size - 1}) {
            std::size_t written = 0;
            EXPECT_THROW(GetDocumentFile(layout, source).write([&](std::string_view piece) {
                written += piece.size();
                if (written > most)
                    throw std::runtime_error("the disk is full");
            }),
                         std::runtime_error);
        }
    }
}

TEST(StandaloneSvg, NeedsNoPage)
{
    CSvg svg(200, 100, u"A & B", u"about it");
    svg.AddText(u"5 < 6", 1, 2, "end note");
    svg.Open("svg", {{"width", 100.0}, {"height", 50.0}, {"viewBox", "0 0 10 5"}});
    svg.Add("path", {{"class", "outline fine"}, {"d", "M0 0L1 1"}});
    svg.Close();
    svg.Add("image", {{"class", "pixels"}, {"href", "data:,"}});
    svg.AddLine(0, 0, 9, 9, "curve");
    const SStandaloneSvg picture = MakeStandaloneSvg(svg.Finish());
    EXPECT_EQ(picture.width, 200);
    EXPECT_EQ(picture.height, 100);
    EXPECT_EQ(picture.bytes,
              R"(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" version="1.1" viewBox="0 0 200 100" width="200" height="100" font-family="Liberation Sans, Arial, sans-serif" font-size="13">
<title>A &amp; B</title>
<desc>about it</desc>
<text text-anchor="end" x="1" y="2" fill="#FFF" stroke="#FFF" stroke-width="3" stroke-linejoin="round">5 &lt; 6</text><text text-anchor="end" x="1" y="2">5 &lt; 6</text>
<svg width="100" height="50" viewBox="0 0 10 5">
<path fill="none" stroke="#000" stroke-width="0.06" d="M0 0L1 1"/>
</svg>
<image xlink:href="data:,"/>
<line fill="none" stroke="#0B5CAD" stroke-linejoin="round" stroke-linecap="round" stroke-width="1.5" x1="0" y1="0" x2="9" y2="9"/>
</svg>
)");
}

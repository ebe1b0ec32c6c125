#include "measurement/documents/OdtDocument.h"

#include "tests/measurement/DocumentTesting.h"
#include "tests/TestData.h"

#ifdef COMMONUI_WITH_ODT

#include <map>
#include <pugixml.hpp>
#include <zip.h>

using namespace CommonUI;
using namespace CommonUI::Measurement;

namespace
{

// The entries of a package, the first of which has to be stored as it is.
std::map<std::string, std::string> Unpack(const std::string& bytes)
{
    zip_source_t* const source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, nullptr);
    zip_t* const zip = zip_open_from_source(source, ZIP_CHECKCONS, nullptr);
    std::map<std::string, std::string> entries;
    for (zip_int64_t i = 0; zip && i < zip_get_num_entries(zip, 0); ++i) {
        zip_stat_t status{};
        zip_stat_index(zip, static_cast<zip_uint64_t>(i), 0, &status);
        EXPECT_EQ(i == 0, status.comp_method == ZIP_CM_STORE) << status.name;
        std::string& entry = entries[status.name];
        entry.resize(status.size);
        zip_file_t* const file = zip_fopen_index(zip, static_cast<zip_uint64_t>(i), 0);
        EXPECT_EQ(zip_fread(file, entry.data(), status.size), static_cast<zip_int64_t>(status.size));
        zip_fclose(file);
    }
    zip ? zip_discard(zip) : zip_source_free(source);
    return entries;
}

pugi::xml_document Parse(const std::string& text)
{
    pugi::xml_document document;
    EXPECT_TRUE(document.load_string(text.c_str(), pugi::parse_default | pugi::parse_ws_pcdata))
        << text.substr(0, 500);
    return document;
}

// The texts of all elements of a name.
std::vector<std::string> TextsOf(const pugi::xml_document& document, const std::string& element)
{
    std::vector<std::string> texts;
    for (const auto& found : document.select_nodes(("//" + element).c_str())) {
        std::string& text = texts.emplace_back();
        for (const auto& piece : found.node().select_nodes(".//text() | .//text:s | .//text:line-break"))
            text += piece.node().type() == pugi::node_element ? " " : piece.node().value();
    }
    return texts;
}

SReportTemplateSettings LayoutOf(std::vector<EReportBlock> blocks)
{
    return {.format = EReportFormat::Doc, .columns = 2, .blocks = std::move(blocks)};
}

} // namespace

TEST(OdtDocument, PackageIsWhole)
{
    const CMeasured measured(MakeWaves(), 1.5e-7);
    const std::string bytes = DocumentOf(LayoutOf(AllBlocks()), measured.GetSource());
    EXPECT_EQ(bytes.substr(30, 47), "mimetypeapplication/vnd.oasis.opendocument.text");
    EXPECT_EQ(bytes, DocumentOf(LayoutOf(AllBlocks()), measured.GetSource()));
    auto entries = Unpack(bytes);
    const pugi::xml_document manifest = Parse(entries["META-INF/manifest.xml"]);
    std::size_t listed = 0;
    for (const auto& row : manifest.select_nodes("//manifest:file-entry[@manifest:full-path!='/']")) {
        const std::string name = row.node().attribute("manifest:full-path").value();
        EXPECT_TRUE(entries.contains(name)) << name;
        Parse(entries[name]);
        ++listed;
    }
    EXPECT_EQ(listed + 2, entries.size()) << "all but itself and the media type";
    std::size_t pictures = 0;
    const pugi::xml_document content = Parse(entries["content.xml"]);
    for (const auto& image : content.select_nodes("//draw:image")) {
        EXPECT_TRUE(entries.contains(image.node().attribute("xlink:href").value()));
        const std::string title = image.node().parent().child("svg:title").text().as_string();
        const std::string svg = entries[image.node().attribute("xlink:href").value()];
        EXPECT_EQ(title == "Material ratio curve", Has(svg, "<title>Material ratio curve</title>")) << title;
        ++pictures;
    }
    EXPECT_EQ(pictures, 9u);
}

TEST(OdtDocument, AllCellsArriveInTheirRows)
{
    const CMeasured measured(MakeWaves(), {});
    auto entries = Unpack(DocumentOf(LayoutOf({EReportBlock::RoughnessParameters}), measured.GetSource()));
    const pugi::xml_document content = Parse(entries["content.xml"]);
    CGridBaseOutputCtrl::CCells cells;
    measured.GetRoughness().GetSurface().GetGridHeaders(cells, CGridBaseOutputCtrl::SCellInfo::Results);
    measured.GetRoughness().GetSurface().GetGridCells(cells, CGridBaseOutputCtrl::SCellInfo::Results);
    std::vector<std::string> expected;
    for (const auto& row : cells) {
        for (const auto& cell : row)
            expected.push_back(cell.text.IsEmpty() ? " " : cell.text.ToUtf8());
    }
    EXPECT_EQ(TextsOf(content, "table:table-cell"), expected);
    EXPECT_EQ(content.select_nodes("//table:table-header-rows/table:table-row").size(), 1u);
    EXPECT_EQ(TextsOf(content, "text:h"), std::vector<std::string>{"Roughness parameters"});
}

TEST(OdtDocument, PaperIsThatOfTheTemplate)
{
    const CMeasured measured(MakeWaves(), {});
    SReportTemplateSettings layout = LayoutOf({EReportBlock::Title});
    layout.orientation = EReportOrientation::Landscape;
    layout.margin = 25.4;
    auto entries = Unpack(DocumentOf(layout, measured.GetSource()));
    const std::string& styles = entries["styles.xml"];
    for (const char* const part :
         {"fo:page-width=\"11.69", "print-orientation=\"landscape\"", "fo:margin-left=\"1.0000in\""})
        EXPECT_TRUE(Has(styles, part)) << part << styles;
}

TEST(OdtDocument, LongTableStartsOnANewPage)
{
    for (const std::size_t lines : {10u, 50u}) {
        const CMeasured measured(MakeWaves(40, lines), {}, {u"4287Ra"});
        auto entries = Unpack(DocumentOf(LayoutOf({EReportBlock::Title, EReportBlock::RoughnessParameters}),
                                         measured.GetSource()));
        EXPECT_EQ(Has(entries["content.xml"], "fo:break-before=\"page\""), lines == 50);
    }
}

TEST(OdtDocument, TextsOfAFileStayTexts)
{
    Analysis::SSurface surface = MakeWaves();
    surface.fileName = c_hostileName.ToUtf8();
    const CMeasured measured(std::move(surface), {});
    auto entries =
        Unpack(DocumentOf(LayoutOf({EReportBlock::Title, EReportBlock::Information}), measured.GetSource()));
    const pugi::xml_document content = Parse(entries["content.xml"]);
    EXPECT_EQ(TextsOf(content, "text:h"), std::vector<std::string>{c_plainName.ToUtf8()});
    EXPECT_EQ(TextsOf(content, "table:table-cell").at(1), c_plainName.ToUtf8());
    EXPECT_TRUE(Has(entries["meta.xml"], "<dc:title>&lt;b&gt;&quot;A&amp;B&quot;&lt;/b&gt;"))
        << entries["meta.xml"];
}

#else

TEST(OdtDocument, BuildWithoutItSaysSo)
{
    using namespace CommonUI::Measurement;
    if (!HasOdt()) {
        EXPECT_THROW(COdtDocument({}, {}), ERequest);
    }
}

#endif

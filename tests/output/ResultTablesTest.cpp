#include "tests/output/TestTables.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(ResultText, SummaryLines)
{
    const CCells cells = {{Cell(u"Mean", 0, 1, 1), Cell(u"12.5", 0, 1, 1)},
                          {Cell(u"alone")},
                          {},
                          {Cell(u"a"), Cell(u"b"), Cell(u"c")}};
    EXPECT_EQ(CGrid::GenerateSummaryText(cells), u"   Mean:    12.5\r\nalone\r\n\r\nab: c\r\n");
    EXPECT_EQ(CGrid::GenerateSummaryHTMLTable({{Cell(u"Mean", 0, 1, 2), Cell(u"<b>")}}),
              u"<table>\n<tr>\n<td style=\"text-align:left;padding-left:40px;\">Mean:&nbsp;</td>\n"
              u"<td style=\"text-align:left;padding-left:0px;\"><b></td>\n</tr>\n</table>\n");
}

TEST(ResultText, WrappedCellsStackAndCoveredCellsJoin)
{
    const CCells cells = {
        {Cell(u"Line"), Cell(u"two\r\nlines"), Cell(u"covered", 0, 0), Cell(u"a\r\n\r\nc", 0, 2)},
        {},
        {Cell(u"x\ry"), Cell(u"\n")}};
    EXPECT_EQ(CGrid::GenerateResultsText(cells),
              u"Line\ttwocovered\ta\r\n\tlines\t\r\n\t\tc\r\n\r\nx\ry\t\n\r\n");
}

TEST(ResultText, EmptyTablesGiveEmptyTexts)
{
    CCells empty;
    EXPECT_EQ(CGrid::GenerateSummaryText(empty), u"");
    EXPECT_EQ(CGrid::GenerateSummaryHTMLTable(empty), u"");
    EXPECT_EQ(CGrid::GenerateResultsText(empty), u"");
    EXPECT_EQ(CGrid::GenerateResultsHTMLTable(empty), u"");
    CGrid::TransposeCells(empty);
    EXPECT_TRUE(empty.empty());
    const CGrid grid(SCell::Results);
    EXPECT_EQ(CGrid::GenerateText(nullptr, &grid, nullptr, true), u"");
    EXPECT_EQ(CGrid::GenerateHTMLTables(nullptr, &grid, nullptr, true), u"");
    EXPECT_EQ(grid.CopySelectionAsHTML(false, true).html, u"");
}

TEST(ResultHtml, EveryAttributeOfTheTable)
{
    CCells cells = SampleTable();
    cells.insert(cells.begin() + 3, CGrid::CRow{Cell(u"Section", 0, 4)});
    const auto cell = [](const char* element, const char* span, const char* align, const char* attribute,
                         const char* content) {
        const std::string name = element;
        return "<" + name + " ROWSPAN=1 COLSPAN=" + span + " style=\"text-align:" + align + ";\" " +
               attribute + ">" + "<nobr>" + content + "</nobr></" + name + ">\n";
    };
    const char* const separator = "class=\"separatorbottom\"";
    const char* const lastRow = "class=\"lastrow\"";
    EXPECT_EQ(CGrid::GenerateResultsHTMLTable(cells).ToUtf8(),
              "<table>\n<colgroup><col class=\"first\"</colgroup><THEAD>\n<TR>" +
                  cell("TH", "1", "left", "", "") + cell("TH", "2", "center", "class=\"merged\"", "Height") +
                  cell("TH", "1", "center", "class=\"last\"", "") + "</TR>\n<TR>" +
                  cell("TH", "1", "left", "", "Line") + cell("TH", "1", "center", "", "Ra") +
                  cell("TH", "1", "center", "", "R</nobr><br><nobr>q") +
                  cell("TH", "1", "center", "class=\"last\"", "RSm") + "</TR>\n</THEAD>\n<TBODY>\n<TR>" +
                  cell("TD", "1", "left", separator, "") + cell("TD", "1", "right", separator, "nm") +
                  cell("TD", "1", "right", separator, "nm") + cell("TD", "1", "right", separator, "µm") +
                  "</TR>\n<TR>" + cell("TD", "4", "center", "class=\"subHeaderSep\"", "Section") +
                  "</TR>\n<TR>" + cell("TD", "1", "left", "", "1") + cell("TD", "1", "right", "", "1.5") +
                  cell("TD", "1", "right", "", "1.9") + cell("TD", "1", "right", "", "7") + "</TR>\n<TR>" +
                  cell("TD", "1", "left", lastRow, "Mean") + cell("TD", "1", "right", lastRow, "2.5") +
                  cell("TD", "1", "right", lastRow, "") + cell("TD", "1", "right", lastRow, "") +
                  "</TR>\n</TBODY>\n</table>");
}

TEST(ResultHtml, SectionsAndSpansAtTheEdges)
{
    const auto has = [](const CCells& cells, const char* part) {
        return CGrid::GenerateResultsHTMLTable(cells, true).ToUtf8().find(part) != std::string::npos;
    };
    EXPECT_FALSE(has(SampleTable(), "colgroup"));
    EXPECT_TRUE(CGrid::GenerateResultsHTMLTable(SampleTable(), true, true)
                    .StartsWith(u"<table style=\"width:100%;\">\n<THEAD>\n"));
    // A spanning cell in the first body row has no line above it.
    EXPECT_TRUE(
        has({{Cell(u"x", 0, 3)}, {Cell(u"y")}},
            "<TBODY>\n<TR><TD ROWSPAN=1 COLSPAN=3 style=\"text-align:center;\" class=\"subHeader\">"));
    // Two sub-header rows: the line is below the second only; the block must follow the headers directly.
    EXPECT_TRUE(has({{Cell(u"a", SCell::SubHeader)}, {Cell(u"b", SCell::SubHeader)}, {Cell(u"c")}},
                    "class=\"separatorbottom\"><nobr>b<"));
    EXPECT_FALSE(has({{Cell(u"c")}, {Cell(u"a", SCell::SubHeader)}, {Cell(u"c")}}, "separatorbottom"));
    EXPECT_TRUE(
        has({{Cell(u"a", SCell::MergedHeader | SCell::ColumnHeader, 12)}},
            "<THEAD>\n<TR><TH ROWSPAN=1 COLSPAN=12 style=\"text-align:center;\" class=\"mergedlast\">"));
}

TEST(ResultHtml, StyleSheetStandsAsItIs)
{
    // Rule by rule, each declaration on a line of its own.
    const std::pair<const char*, std::vector<const char*>> rules[] = {
        {"th",
         {"font-weight:normal", "text-align:center", "padding:2px 5px", "background-color:#EAEAEA",
          "border-right:1px #C0C0C0 solid"}},
        {"th.merged", {"font-weight:bold"}},
        {"th.mergedlast", {"font-weight:bold", "border-right: 0px #C0C0C0 none"}},
        {"th.last", {"border-right: 0px #C0C0C0 none"}},
        {"td", {"padding:2px 5px", "text-align:right"}},
        {"td.first", {"border-right:1px #C0C0C0 solid", "text-align:left"}},
        {"td.lastrow", {"border-bottom:1px #C0C0C0 solid"}},
        {"td.separatorbottom", {"border-bottom:1px #C0C0C0 double"}},
        {"td.subHeader", {"font-weight:bold"}},
        {"td.subHeaderSep", {"border-top:1px #C0C0C0 solid", "font-weight:bold"}},
        {"table",
         {"border-collapse:collapse", "font-size:1em", "font-weight:inherit", "font-style:inherit",
          "font-variant:inherit"}},
    };
    std::string expected = "<style>\n";
    for (const auto& [selector, declarations] : rules) {
        expected += std::string(selector) + " {\n";
        for (const char* declaration : declarations)
            expected += std::string(declaration) + ";\n";
        expected += "}\n";
    }
    EXPECT_EQ(CGrid::GenerateHTMLTableStyle().ToUtf8(), expected + "</style>\n");
}

TEST(Transpose, ColumnsBecomeRowsAndGroupsStandInFrontOfTheirMembers)
{
    CCells cells = SampleTable();
    CGrid::TransposeCells(cells);
    EXPECT_EQ(Describe(cells), "[Line #28][ #a][1 #8][Mean #8]\n"
                               "[Height 4x1 #10]\n"
                               "[Ra #20][nm #2][1.5][2.5]\n"
                               "[R q #20][nm #2][1.9][ #100]\n"
                               "[RSm #20][µm #2][7][]\n");
    CCells twoGroups = {
        {Cell(u"", c_corner), Cell(u"A", SCell::ColumnHeader, 2), Cell(u"B", SCell::ColumnHeader, 2)},
        {Cell(u"", c_corner), Cell(u"a"), Cell(u"b"), Cell(u"c"), Cell(u"d")}};
    CGrid::TransposeCells(twoGroups);
    EXPECT_EQ(Describe(twoGroups), "[ #28]\n[A]\n[a]\n[b]\n[B]\n[c]\n[d]\n");
}

TEST(Transpose, TwiceRestoresATableWithoutGroups)
{
    CCells cells = SampleTable();
    cells.erase(cells.begin());
    cells[0][2].text = u"Rq";
    for (CGrid::CRow& row : cells)
        row[2].columnSpan = 2;
    const CCells before = cells;
    CGrid::TransposeCells(cells);
    EXPECT_EQ(cells[2][0].rowSpan, 2);
    CGrid::TransposeCells(cells);
    EXPECT_EQ(Describe(cells), Describe(before));
}

TEST(Transpose, CoveredCellsAddNoRow)
{
    CCells cells = {{Cell(u"wide", 0, 2), Cell(u"covered", 0, 0)}, {Cell(u"a"), Cell(u"b")}};
    CGrid::TransposeCells(cells);
    EXPECT_EQ(Describe(cells), "[wide 1x2][a]\n[covered 1x0][b]\n");
    CCells covered = {{Cell(u"x", 0, -3)}};
    CGrid::TransposeCells(covered);
    EXPECT_TRUE(covered.empty());
}

#include "tests/output/TestTables.h"
#include "tests/TestData.h"

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
    EXPECT_EQ(CGrid::GenerateResultsHTMLTable(cells).ToUtf8() + "\n", ReadTestData("result-table.html"));
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

TEST(Transpose, CoveredCellsAddNoRow)
{
    CCells cells = {{Cell(u"wide", 0, 2), Cell(u"covered", 0, 0)}, {Cell(u"a"), Cell(u"b")}};
    CGrid::TransposeCells(cells);
    EXPECT_EQ(Describe(cells), "[wide 1x2][a]\n[covered 1x0][b]\n");
    CCells covered = {{Cell(u"x", 0, -3)}};
    CGrid::TransposeCells(covered);
    EXPECT_TRUE(covered.empty());
}

#include "output/results/EndResults.h"
#include "tests/output/TestTables.h"
#include "tests/TestData.h"

#include <gtest/gtest.h>

#include <vector>

using namespace CommonUI;

TEST(EndResults, LinesForTheTokenizer)
{
    SEndResultItem item(u"Ra");
    EXPECT_EQ(item.CreateTokenizableString({}, 2), u"") << "no values, no line";
    item.AddText(u"0.123");
    item.AddBlank();
    EXPECT_EQ(item.CreateTokenizableString({}, 2), u"Ra\t0.123\t\t \t");
    item.AddText(u"high");
    item.AddValue(3.14159, 4);
    EXPECT_EQ(item.GetValues()[3], u" 3.142") << "the item keeps the blank";
    EXPECT_EQ(item.GetCount(), 4u);
    const std::tuple<std::vector<int>, int, const char16_t*> cases[] = {
        {{}, 4, u"Ra\t0.123\t\t \t\thigh\t3.142\t"},
        {{}, 9, u"Ra\t0.123\t\t \t\thigh\t3.142\t"},
        {{}, 0, u"Ra\t"},
        {{0}, 2, u"Ra\t\t \t"},
        {{1, 7}, 8, u"Ra\t0.123\t \t\thigh\t3.142\t \t"},
    };
    for (const auto& [blank, columns, line] : cases)
        EXPECT_EQ(item.CreateTokenizableString(blank, columns), line);
    EXPECT_EQ(item.CreateTokenizableString({0, 1}, 2), u"Ra\t \t");
}

TEST(EndResults, NewRowsGoInFrontUnlessAppended)
{
    SEndResultCollection collection;
    for (const auto& [name, append] : {std::pair(u"b", false), std::pair(u"a", false), std::pair(u"c", true)})
        collection.AddItemToCollection(SEndResultItem(name), append);
    std::string order;
    for (const SEndResultItem& item : collection.GetResultsVector())
        order += item.GetName().ToUtf8();
    EXPECT_EQ(order, "abc");
}

TEST(ResultGrid, TakesRowsFromTokens)
{
    CGrid grid(SCell::Results);
    grid.AddRow({.name = u"early", .cells = {u"1", u"2", u"surplus"}});
    grid.AddColumn({u"A", {}});
    grid.AddColumn({u"B", {}});
    EXPECT_FALSE(grid.InsertTokenizableRow(u"\t\t", u"\t"));
    EXPECT_TRUE(grid.InsertTokenizableRow(u"\tx;;1\t\t \t", u"\t;", true, false, 7));
    EXPECT_TRUE(grid.InsertTokenizableRow(u"first", u"\t", false, true));
    SEndResultCollection collection;
    SEndResultItem item(u"item");
    item.AddBlank();
    item.AddValue(0.5, 3);
    item.AddText(u"surplus");
    collection.AddItemToCollection(item, true);
    collection.AddItemToCollection(SEndResultItem(u"no values"), true);
    grid.AddResultsToGrid(&collection, {});
    grid.AddResultsToGrid(nullptr, {0, 1});
    EXPECT_EQ(grid.GetRows()[2].data, 7u);
    CCells cells;
    grid.GetGridHeaders(cells, SCell::Results | SCell::Statistics);
    grid.GetGridCells(cells, SCell::Results);
    grid.GetGridCells(cells, SCell::Statistics);
    EXPECT_EQ(Describe(cells), "[ #28][A #8][B #8]\n"
                               "[first #20][][]\n"
                               "[early #20][1][2]\n"
                               "[x #22][1 #2][ #2]\n"
                               "[item #20][][0.5]\n");
}

TEST(ResultGrid, GroupsOfNeighbouringColumnsAreMerged)
{
    CGrid grid(SCell::Results);
    grid.SetNameHeader(u"Line");
    for (const auto& [name, group] :
         {std::pair(u"a", u"G"), std::pair(u"b", u"G"), std::pair(u"c", u""), std::pair(u"d", u"H")})
        grid.AddColumn({name, group});
    CCells cells;
    grid.GetGridHeaders(cells, SCell::Results);
    EXPECT_EQ(Describe(cells), "[ #28][G 2x1 #18][ #8][H #18]\n[Line #28][a #8][b #8][c #8][d #8]\n");
}

TEST(ResultGrid, WholeReport)
{
    CGrid summary(SCell::Summary);
    summary.AddRow({.name = u"File", .cells = {u"a.sdf"}});
    CGrid results(SCell::Results);
    results.SetNameHeader(u"Line");
    results.AddColumn({u"Ra", {}});
    results.AddRow({.name = u"1", .cells = {u"1.5"}});
    CGrid statistics(SCell::Statistics);
    statistics.SetNameHeader(u"Statistic");
    statistics.AddColumn({u"Ra", {}});
    statistics.AddRow({.name = u"Mean", .cells = {u"2.5"}});

    EXPECT_EQ(CGrid::GenerateText(&summary, &results, &statistics, false),
              u"File: a.sdf\r\n\r\nLine\tRa\r\n1\t1.5\r\nMean\t2.5\r\n");
    EXPECT_EQ(CGrid::GenerateText(nullptr, &results, &statistics, true),
              u"Line\t1\tMean\r\nRa\t1.5\t2.5\r\n");
    EXPECT_EQ(CGrid::GenerateText(nullptr, nullptr, &statistics, false), u"Statistic\tRa\r\nMean\t2.5\r\n");
    EXPECT_EQ(CGrid::GenerateText(&summary, nullptr, nullptr, false), u"File: a.sdf\r\n");
    EXPECT_EQ(CGrid::GenerateText(&results, &summary, &results, false), u"") << "grids of the wrong kind";
}

// The record has the text of each copy and, below it, the tables of its HTML.
TEST(ResultGrid, SelectionIsCutAndCopied)
{
    CGrid grid(SCell::Results);
    grid.SetNameHeader(u"Line");
    grid.AddColumn({u"R\r\na", {}});
    grid.AddColumn({u"Rq", {}});
    grid.AddRow({.name = u"1", .cells = {u"1.5", u"1.9"}});
    grid.AddRow({.name = u"2", .cells = {u"2.5", u"2.9"}});
    CGrid summary(SCell::Summary);
    summary.AddRow({.name = u"Sq", .cells = {u"12.5"}});
    summary.AddRow({.name = u"Sa", .cells = {u"10", u"nm"}});
    const std::tuple<CGrid&, CGrid::SSelection, bool, bool> rows[] = {
        {grid, {0, 9, 0, 9}, false, true},    {grid, {1, 1, 1, 2}, false, false},
        {grid, {0, 1, 2, 2}, false, true},    {grid, {0, 1, 0, 1}, true, false},
        {grid, {0, 1, 1, 2}, true, true},     {grid, {5, 9, 0, 9}, false, true},
        {summary, {0, 9, 0, 9}, false, true}, {summary, {0, 9, 0, 9}, true, true},
    };
    std::string copies;
    for (const auto& [table, selection, transpose, headers] : rows) {
        table.Select(selection);
        const CGrid::SCopiedTexts copied = table.CopySelectionAsHTML(transpose, headers);
        const std::string html = copied.html.ToUtf8();
        copies +=
            copied.text.ToUtf8() + "\n" + html.substr(std::min(html.find("</style>"), html.size())) + "\n";
    }
    EXPECT_EQ(copies, ReadTestData("result-selections.txt"));
}

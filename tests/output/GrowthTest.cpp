// The cost of a unit of growing things, by counting what is allocated for it: many units may not cost more
// each than few do.
#include "output/grid/GridCtrl.h"
#include "output/results/GridCopy.h"
#include "platform/memory/MemoryClipboard.h"
#include "tests/common/FailingAllocation.h"
#include "tests/output/TestTables.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

using namespace CommonUI;

namespace
{

CGrid GridOf(int rows)
{
    CGrid grid(SCell::Results);
    for (int column = 0; column < 8; ++column)
        grid.AddColumn({u"P", {}});
    for (int row = 0; row < rows; ++row)
        grid.AddRow({.name = u"1", .cells = std::vector<CStr>(8, u"1.2345")});
    return grid;
}

std::size_t BytesOf(const CStr& text)
{
    return text.GetLength() * sizeof(char16_t);
}

} // namespace

TEST(Growth, AUnitCostsTheSameHoweverManyThereAre)
{
    struct SRow {
        const char* what;
        std::function<void(int count)> work;
    };
    const SRow rows[] = {
        {"columns of a grid",
         [](int count) {
             CGridCtrl grid;
             for (int i = 0; i < count; ++i)
                 grid.AddColumn({u"Name", 10});
             EXPECT_EQ(grid.GetExtent().width, 10 * count);
         }},
        {"rows of a grid",
         [](int count) {
             CGridCtrl grid;
             for (int i = 0; i < count; ++i)
                 grid.AddRow();
         }},
        {"rows in front of a table",
         [](int count) {
             CGrid grid(SCell::Results);
             for (int i = 0; i < count; ++i)
                 grid.InsertTokenizableRow(u"name", u"\t", false, true);
         }},
        {"units appended to a text",
         [](int count) {
             CStr text;
             for (int i = 0; i < count; ++i)
                 text += u'x';
         }},
        {"a text to UTF-8 and back",
         [](int count) { CStr::FromUtf8(CStr(static_cast<std::size_t>(count), u'ä').ToUtf8()); }},
        {"columns of results, every other one blank",
         [](int count) {
             SEndResultItem item(u"name");
             item.AddValue(1.5, 5);
             std::vector<int> blank;
             for (int i = 1; i < count; i += 2)
                 blank.push_back(count - i);
             item.CreateTokenizableString(blank, count);
         }},
        {"rows of a table that is copied",
         [](int count) {
             const CGrid grid = GridOf(count);
             CMemoryClipboard clipboard;
             CopyGrids(nullptr, &grid, nullptr, false, clipboard);
         }},
    };
    for (const auto& [what, work] : rows) {
        const auto perUnit = [&work](int count) {
            const CAllocatedBytes allocated;
            work(count);
            return static_cast<double>(allocated.Get()) / count;
        };
        const double few = perUnit(500);
        EXPECT_LE(perUnit(8000), 2 * few) << what;
    }
}

TEST(Growth, ATextOfATableIsTheOnlyCopyOfItsCells)
{
    CGrid grid = GridOf(5000);
    const CAllocatedBytes forHtml;
    const CStr html = CGrid::GenerateHTMLTables(nullptr, &grid, nullptr, false);
    EXPECT_LE(forHtml.Get(), BytesOf(html) + 16384);

    const CAllocatedBytes forText;
    const CStr text = CGrid::GenerateText(nullptr, &grid, nullptr, false);
    EXPECT_LE(forText.Get(), 3 * BytesOf(text)) << "which grows";

    grid.SelectAll();
    const CAllocatedBytes forBoth;
    const CGrid::SCopiedTexts both = grid.CopySelectionAsHTML(false, true);
    EXPECT_LE(forBoth.Get(), BytesOf(both.html) + 3 * BytesOf(both.text) + 16384);
}

TEST(Growth, BlankColumnsMayComeInAnyOrderAndTwice)
{
    SEndResultItem item(u"name");
    for (int i = 0; i < 4; ++i)
        item.AddValue(1.5, 3);
    EXPECT_EQ(item.CreateTokenizableString({3, -1, 1, 3, 9}, 4), item.CreateTokenizableString({1, 3}, 4));
}

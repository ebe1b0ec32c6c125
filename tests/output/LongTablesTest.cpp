// What long tables cost, by counting: as much for each row of a long table as of a short one.
#include "output/results/FrontVector.h"
#include "output/results/GridCopy.h"
#include "platform/memory/MemoryClipboard.h"
#include "platform/memory/MemoryMessageBoxService.h"
#include "tests/common/FailingAllocation.h"
#include "tests/output/TestTables.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

using namespace CommonUI;

namespace
{

// Counts the moves of all of its kind.
struct SMoved {
    explicit SMoved(int given)
        : number(given)
    {
    }
    SMoved(SMoved&& other) noexcept { *this = std::move(other); }
    SMoved& operator=(SMoved&& other) noexcept
    {
        number = other.number;
        ++s_moves;
        return *this;
    }

    int number;

    static inline long long s_moves = 0;
};

CCells RowsOf(std::size_t count, std::size_t longRows)
{
    const CStr note(4096, u'n');
    CCells cells(count, {Cell(u"Row", SCell::RowHeader), Cell(u"1.5")});
    for (std::size_t row = 0; row < longRows; ++row)
        cells[row][1].text = note;
    return cells;
}

// That a copy is refused in one sentence, which leaves the clipboard as it was.
template<class FCopy>
void ExpectRefused(FCopy copy)
{
    CMemoryMessageBoxService boxes;
    const CServiceScope<CMessageBoxService> scope(boxes);
    CMemoryClipboard clipboard;
    clipboard.Put(u"before", u"before");
    EXPECT_FALSE(copy(clipboard));
    ASSERT_EQ(boxes.GetShown().size(), 1U);
    EXPECT_EQ(boxes.GetShown()[0].text, u"There is not enough memory to copy this table.");
    EXPECT_EQ(clipboard.GetHtml() + clipboard.GetText(), u"beforebefore");
}

} // namespace

TEST(LongTables, RowsInFrontMoveNoOthers)
{
    constexpr int c_count = 20'000;
    SMoved::s_moves = 0;
    Detail::CFrontVector<SMoved> rows;
    for (int i = 0; i < c_count; ++i) {
        rows.PushFront(SMoved(-1 - i));
        rows.PushBack(SMoved(i));
    }
    for (int i = 0; i < 2 * c_count; ++i)
        ASSERT_EQ(rows.Get()[static_cast<std::size_t>(i)].number, i - c_count);
    EXPECT_LE(SMoved::s_moves, 6 * 2 * c_count);

    CGrid grid(SCell::Results);
    grid.InsertTokenizableRow(u"first", u"\t");
    const CGrid::SRow* const first = &grid.GetRows().front();
    for (int i = 0; i < 1000; ++i)
        grid.InsertTokenizableRow(CStr::Format(u"%d", i), u"\t", false, true);
    EXPECT_EQ(&grid.GetRows().back(), first);
    EXPECT_EQ(grid.GetRows().front().name, u"999");
}

TEST(LongTables, TextsTakeMemoryByTheirLength)
{
    const std::pair<const char*, CCells> rows[] = {{"all alike", RowsOf(20'000, 0)},
                                                   {"long notes in front", RowsOf(20'000, 8)}};
    for (const auto& [what, cells] : rows) {
        SCOPED_TRACE(what);
        const CAllocatedBytes forText;
        const CStr text = CGrid::GenerateResultsText(cells);
        EXPECT_LE(forText.Get(), 8 * text.GetLength() * sizeof(char16_t));
        const CAllocatedBytes forHtml;
        const CStr html = CGrid::GenerateResultsHTMLTable(cells);
        EXPECT_LE(forHtml.Get(), 8 * html.GetLength() * sizeof(char16_t));
    }

    CGrid grid(SCell::Summary);
    for (const CGrid::CRow& cells : RowsOf(500, 0))
        grid.AddRow({.name = cells[0].text, .cells = {cells[1].text}});
    const CAllocatedBytes alone;
    CCells cells;
    grid.GetGridCells(cells, SCell::Summary);
    const CStr table = CGrid::GenerateSummaryHTMLTable(cells);
    const std::size_t aloneBytes = alone.Get();
    const CAllocatedBytes report;
    EXPECT_GT(CGrid::GenerateHTMLTables(&grid, nullptr, nullptr, false).GetLength(), table.GetLength());
    EXPECT_LE(report.Get(), aloneBytes + table.GetLength()) << "the finished table is copied once more";
}

#if !defined(_WIN32) // where a program cannot replace the "new" of its libraries
TEST(LongTables, RoomThatThereIsNotIsDoneWithout)
{
    const CCells cells = RowsOf(100, 0);
    const CStr expected = CGrid::GenerateResultsText(cells);
    int survived = 0;
    for (CEachAllocation each; each.Next();) {
        CStr text;
        if (!each.Try([&] { text = CGrid::GenerateResultsText(cells); }))
            continue;
        EXPECT_EQ(text, expected);
        survived += each.HasFailed() ? 1 : 0;
    }
    EXPECT_GT(survived, 0);
}

TEST(LongTables, CopiesThatThereIsNoRoomForAreRefused)
{
    CGrid grid(SCell::Results);
    grid.AddColumn({u"Sa", {}});
    grid.AddRow({.name = u"Row", .cells = {u"1.5"}});
    ExpectRefused([&grid](CMemoryClipboard& clipboard) {
        const CFailingAllocation failing(1);
        return CopyGrid(grid, false, clipboard);
    });
}
#endif

#if UINTPTR_MAX <= UINT32_MAX
TEST(LongTables, OfAMillionRowsAreShownAndNotCopiedWhereMemoryEnds)
{
    const auto makeRows = [](std::size_t count) {
        auto grid = std::make_unique<CGrid>(SCell::Results);
        for (int column = 0; column < 19; ++column)
            grid->AddColumn({CStr::Format(u"P%d", column), {}});
        for (std::size_t row = 0; row < count; ++row)
            grid->AddRow({.name = u"Row", .cells = std::vector<CStr>(19, u"1234.56789")});
        return grid;
    };
    {
        CMemoryClipboard clipboard;
        EXPECT_TRUE(CopyGrid(*makeRows(100'000), false, clipboard));
        EXPECT_GT(clipboard.GetText().GetLength(), 100'000U * 19 * 11);
    }
    const auto grid = makeRows(1'000'000);
    EXPECT_EQ(grid->GetRows().size(), 1'000'000U);
    ExpectRefused([&grid](CMemoryClipboard& clipboard) { return CopyGrid(*grid, false, clipboard); });
}
#endif

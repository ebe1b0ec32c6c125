#include "output/results/ResultGridPane.h"
#include "output/results/GridCopy.h"
#include "platform/memory/MemoryClipboard.h"

#include <gtest/gtest.h>

#include "tests/output/GridHarness.h"
#include "tests/output/TestTables.h"
#include "tests/TestData.h"

#include <algorithm>
#include <utility>
#include <vector>

using namespace CommonUI;

namespace
{

// Columns in two groups, one of them without a name and with a wrapped header; a row of units on top.
CGrid MakeTable(std::size_t rows)
{
    CGrid grid(SCell::Results);
    grid.SetNameHeader(u"Line");
    grid.AddColumn({u"Ra", u"Height"});
    grid.AddColumn({u"Rq", u"Height"});
    grid.AddColumn({u"RSm\r\nmean", {}});
    grid.AddRow({.name = u"", .cells = {u"nm", u"nm", u"µm"}, .subHeader = true});
    for (std::size_t row = 1; row < rows; ++row)
        grid.AddRow({.name = CStr::Format(u"%d", row), .cells = {u"1.5", u"1.9", u"7\r\n8"}});
    return grid;
}

struct SPane {
    explicit SPane(std::size_t rows)
        : grid(MakeTable(rows))
        , pane(grid)
    {
        pane.SetView(&view);
        pane.SetViewSize({200, 132});
    }
    std::string Draw(const SRect& clip) const
    {
        CTextGridPainter painter;
        pane.Draw(painter, clip);
        return painter.GetLog().ToUtf8();
    }

    CMemoryGridView view;
    CGrid grid;
    CResultGridPane pane;
};

} // namespace

// The record has the headers from the left, one of their lines, one point of a group, and what lies below the
// headers when it is scrolled to the right.
TEST(ResultGridPane, DrawsMergedHeadersAndCellsBelowThem)
{
    SPane shown(3);
    EXPECT_EQ(shown.pane.GetHeaderHeight(), 3 * 16 + 4);
    std::string drawn;
    for (const SRect& clip : {SRect{0, 0, 200, 52}, {240, 0, 260, 1}, {170, 0, 180, 1}})
        drawn += shown.Draw(clip) + '\n';
    shown.pane.ScrollTo(1000, 0);
    EXPECT_EQ(drawn + shown.Draw({0, 52, 200, 73}), ReadTestData("result-grid-pane.txt"));
    EXPECT_EQ(shown.Draw({0, 112, 200, 132}), "") << "below the last row";
}

TEST(ResultGridPane, CellsStayBelowNamesAndHeaders)
{
    SPane shown(3);
    shown.pane.ScrollTo(1000, 0);
    EXPECT_EQ(shown.pane.GetScrollLeft(), 120);
    EXPECT_EQ(shown.pane.GetVisibleRange(), (SGridRange{1, 2, 2, 3}));
    shown.pane.OnFocus(true);
    for (const auto& [column, place] : {std::pair(std::size_t{1}, std::size_t{2}), {0, 4}}) {
        shown.pane.SelectCell({1, column});
        shown.pane.ScrollTo(1000, 0);
        CTextGridPainter painter;
        shown.pane.Draw(painter, {70, 80, 90, 81});
        ASSERT_GT(painter.GetLines().size(), place);
        EXPECT_TRUE(painter.GetLines()[place].StartsWith(u"focus ")) << "below a name that lies over it";
    }
    EXPECT_EQ(shown.pane.HitTest({79, 80}).cell, (SGridCell{1, 0})) << "the names are not scrolled";
    EXPECT_EQ(shown.pane.HitTest({81, 80}).cell, (SGridCell{1, 2}));
    shown.pane.SelectCell({1, 1});
    EXPECT_EQ(shown.pane.GetScrollLeft(), 0) << "beside the names, not below them";

    shown.pane.FitColumns();
    shown.pane.Update();
    EXPECT_EQ(shown.pane.GetColumnWidth(0), 4 * 8 + 8 + 4);
    EXPECT_EQ(shown.pane.GetColumnWidth(1), 3 * 8 + 8 + 4);
    EXPECT_EQ(shown.pane.GetColumnWidth(3), 4 * 8 + 8 + 4);
    shown.grid.AddColumn({u"x", u"A long group"});
    shown.pane.Update();
    shown.pane.FitColumns();
    EXPECT_EQ(shown.pane.GetColumnWidth(4), 12 * 8 + 8) << "wide enough for the group";
}

// In a view of a header of 52 pixels, the units, and three rows.
TEST(ResultGridPane, UnitsStayWithTheHeaders)
{
    SPane shown(100);
    shown.pane.ScrollTo(0, 35);
    EXPECT_EQ(shown.pane.GetCellRect({0, 1}), (SRect{80, 52, 160, 72}));
    EXPECT_EQ(shown.pane.GetCellRect({2, 1}), (SRect{80, 57, 160, 77}));
    EXPECT_EQ(shown.pane.HitTest({100, 71}).cell.row, 0u);
    EXPECT_EQ(shown.pane.HitTest({100, 72}).cell.row, 2u);
    EXPECT_EQ(shown.pane.GetVisibleRange(), (SGridRange{2, 5, 1, 2}));
    for (const auto& [row, top] : {std::pair(50U, 940), {0U, 940}, {48U, 940}, {47U, 920}, {1U, 0}}) {
        shown.pane.EnsureVisible({row, 1});
        EXPECT_EQ(shown.pane.GetScrollTop(), top) << row;
    }
    shown.pane.ScrollTo(0, 60);
    shown.pane.OnMouse(GridMouse::c_leftDown, {100, 80}, c_plain);
    for (const std::size_t first : {3U, 2U, 1U, 0U}) {
        shown.pane.OnMouse(GridMouse::c_move, {100, 60}, c_plain);
        EXPECT_EQ(shown.pane.GetSelection().GetRange().firstRow, first) << "through the rows in between";
    }
    shown.pane.OnKey({EGridKey::PageDown});
    EXPECT_EQ(shown.pane.GetSelection().GetFocus().row, 2u);

    CGrid units(SCell::Results);
    for (int i = 0; i < 6; ++i)
        units.AddRow({.name = u"", .cells = {}, .subHeader = i < 5});
    EXPECT_EQ(CResultGridPane(units).GetFrozenRowCount(), CResultGridPane::c_frozenRows);
}

TEST(ResultGridPane, HeadersMarkWhatIsSelected)
{
    SPane shown(4);
    const auto marked = [&] {
        std::string names;
        for (const auto& header : shown.pane.GetHeaders(0, 3))
            names += header.marked ? header.lines[0].ToUtf8() + " " : "";
        for (std::size_t row = 1; row < 4; ++row)
            names += shown.pane.GetCell({row, 0}).marked ? shown.pane.GetCell({row, 0}).text.ToUtf8() : "";
        return names;
    };
    EXPECT_EQ(marked(), "");
    shown.pane.SelectCell({1, 1});
    shown.pane.OnKey({EGridKey::Down, c_shift});
    EXPECT_EQ(marked(), "Ra 12");
    EXPECT_NE(shown.Draw({80, 20, 81, 21}).find("background 80,18,160,52 marked\n"), std::string::npos);
    EXPECT_NE(shown.Draw({0, 80, 1, 81}).find("background 0,72,80,92 marked\n"), std::string::npos);
    shown.pane.SelectCell({2, 0});
    EXPECT_EQ(marked(), "Line Ra Rq RSm 2");
    EXPECT_FALSE(shown.pane.GetCell({2, 1}).marked) << "a cell is selected";
}

TEST(ResultGridPane, SelectionIsThatOfTheTable)
{
    // Pressed at the first point, dragged to the others.
    const std::tuple<std::vector<SPoint>, SGridModifiers, const char16_t*> cases[] = {
        {{{100, 80}}, c_plain, u"1.5"},
        {{{100, 80}, {170, 100}}, c_plain, u"1.5\t1.9\n1.5\t1.9"},
        {{{10, 80}}, c_plain, u"1\t1.5\t1.9\t7\r\n8"},
        {{{10, 80}, {100, 100}}, c_plain, u"1\t1.5\t1.9\t7\r\n8\n2\t1.5\t1.9\t7\r\n8"},
        {{{100, 30}}, c_plain, u"nm\n1.5\n1.5"},
        {{{100, 30}, {170, 30}}, c_plain, u"nm\tnm\n1.5\t1.9\n1.5\t1.9"},
        {{{10, 30}}, c_plain, u"\tnm\tnm\tµm\n1\t1.5\t1.9\t7\r\n8\n2\t1.5\t1.9\t7\r\n8"},
        {{{170, 80}}, c_shift, u"\tnm\tnm\n1\t1.5\t1.9"},
        {{{100, 100}, {100, 400}, {-10, 400}}, c_plain, u"2\t1.5"},
        {{{190, 125}}, c_plain, u""},
    };
    for (const auto& [path, modifiers, text] : cases) {
        SPane shown(3);
        if (modifiers.shift)
            shown.pane.SelectCell({0, 0});
        shown.pane.OnMouse(GridMouse::c_leftDown, path[0], modifiers);
        for (std::size_t i = 1; i < path.size(); ++i)
            shown.pane.OnMouse(GridMouse::c_move, path[i], modifiers);
        CMemoryClipboard clipboard;
        EXPECT_EQ(CopySelection(shown.grid, false, false, clipboard), *text != 0);
        EXPECT_EQ(clipboard.GetText(), text) << clipboard.GetText().ToUtf8();
    }
    SPane shown(3);
    shown.pane.SelectAll();
    shown.grid.Clear();
    EXPECT_EQ(shown.pane.GetCell({2, 1}).text, u"") << "not told yet";
    shown.pane.Update();
    EXPECT_TRUE(shown.pane.GetSelection().IsEmpty());
}

TEST(ResultGridPane, ViewAndListenerHearOfTheSelection)
{
    SPane shown(3);
    struct SListener {
        void OnSelection() { ++count; }
        int count = 0;
    } listener;
    shown.pane.SetSelectionCallback(listener, &SListener::OnSelection);
    shown.view.invalidated.clear();
    for (const SPoint point : {SPoint{100, 80}, {100, 30}, {10, 30}}) // a cell, a header, the corner
        shown.pane.OnMouse(GridMouse::c_leftDown, point, c_plain);
    shown.pane.OnKey({EGridKey::Down, c_plain});
    EXPECT_EQ(listener.count, 4);
    shown.pane.OnFocus(true);
    EXPECT_EQ(listener.count, 4);
    EXPECT_EQ(shown.view.invalidated.size(), 5U);
}

// The names' own edge, at 80, is not scrolled; that of the first column is where `edge` says.
TEST(ResultGridPane, EdgesBelowTheNamesCannotBeGrabbed)
{
    // The edge, where it is pressed, and the widths of the names and the first column, dragged by 10.
    const std::tuple<int, int, int, int> cases[] = {
        {120, 120, 80, 90}, {120, 117, 80, 90}, {86, 86, 80, 90},
        {78, 75, 80, 80},   {40, 40, 80, 80},   {40, 80, 90, 80},
    };
    for (const auto& [edge, x, names, first] : cases) {
        SCOPED_TRACE(edge);
        SPane shown(3);
        shown.pane.ScrollTo(160 - edge, 0);
        EXPECT_EQ(shown.pane.OnSetCursor({x, 45}) == EGridCursor::Resize, names + first != 160);
        shown.pane.OnMouse(GridMouse::c_leftDown, {x, 45}, c_plain);
        shown.pane.OnMouse(GridMouse::c_move, {x, 60}, c_plain);
        EXPECT_EQ(shown.pane.GetColumnWidth(1), 80) << "nothing moves sideways";
        shown.pane.OnMouse(GridMouse::c_move, {x + 10, 45}, c_plain);
        EXPECT_EQ(std::pair(shown.pane.GetColumnWidth(0), shown.pane.GetColumnWidth(1)),
                  std::pair(names, first));
    }
}

TEST(ResultGridPane, CopiesBothFormsTogether)
{
    SPane shown(2);
    CMemoryClipboard clipboard;
    EXPECT_FALSE(CopySelection(shown.grid, false, true, clipboard));
    const CServiceScope<CClipboard> scope(clipboard);
    EXPECT_FALSE(shown.pane.OnKey({EGridKey::C, c_control}));
    shown.pane.SelectCell({1, 1});
    EXPECT_TRUE(shown.pane.OnKey({EGridKey::C, c_control}));
    EXPECT_EQ(clipboard.GetText(), u"Ra\n1.5");
    EXPECT_NE(clipboard.GetHtml().Find(u">1.5</td>"), CStr::npos);
    EXPECT_TRUE(CopyGrids(nullptr, &shown.grid, nullptr, true, clipboard));
    EXPECT_EQ(clipboard.GetText(), CGrid::GenerateText(nullptr, &shown.grid, nullptr, true));
    EXPECT_EQ(clipboard.GetHtml(), CGrid::GenerateHTMLTables(nullptr, &shown.grid, nullptr, true));
    EXPECT_FALSE(CopyGrids(nullptr, nullptr, nullptr, false, clipboard));
}

TEST(ResultGridPane, ColumnsHaveFormats)
{
    CGrid grid(SCell::Results);
    CGrid::SColumn column{u"Ra", {}};
    column.formats.Set(5, u"%.1f");
    column.formats.Set(8, u"(%s)");
    grid.AddColumn(column);
    grid.AddRow({.name = u"units", .cells = {u"nm"}, .subHeader = true});
    for (const char16_t* text : {u"1.26", u"none", u"-INF", u""})
        grid.AddRow({.name = u"8", .cells = {text, u"surplus"}});
    EXPECT_EQ(CGrid::GenerateText(nullptr, &grid, nullptr, false),
              u"\tRa\r\nunits\tnm\r\n8\t1.3\r\n8\t(none)\r\n8\t(-INF)\r\n8\t\r\n");
    EXPECT_EQ(CResultGridPane(grid).GetCell({1, 1}).text, u"1.3");
}

TEST(ResultGridPane, SummaryHasNeitherHeadersNorFrozenNames)
{
    CGrid summary(SCell::Summary);
    summary.AddRow({.name = u"File", .cells = {u"a.sdf"}});
    summary.AddRow({.name = u"Sq", .cells = {u"12.5", u"nm"}, .indent = 1});
    CResultGridPane pane(summary);
    pane.SetViewSize({400, 100});
    CTextGridPainter painter;
    pane.Draw(painter, {0, 0, 400, 100});
    EXPECT_EQ(painter.GetLines()[0], u"background 0,0,80,20 plain");
    EXPECT_EQ(painter.GetLines()[1], u"text 4,0,76,20 left \"File\"");
    EXPECT_EQ(painter.GetLines()[8], u"text 104,20,156,40 left \"12.5\"") << painter.GetLog().ToUtf8();
    EXPECT_EQ(pane.GetColumnCount(), 3u);
}

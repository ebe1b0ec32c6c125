#include "output/results/ResultGridPane.h"
#include "output/results/GridCopy.h"
#include "platform/MemoryClipboard.h"

#include <gtest/gtest.h>

#include "tests/output/GridHarness.h"
#include "tests/output/TestTables.h"

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

TEST(ResultGridPane, HeadersAreMergedAndWrapped)
{
    const SPane shown(3);
    EXPECT_EQ(shown.pane.GetHeaderHeight(), 3 * 16 + 4);
    EXPECT_EQ(shown.Draw({0, 0, 200, 52}), "background 80,0,240,18 header\n"
                                           "text 84,2,236,18 center \"Height\"\n"
                                           "background 80,18,160,52 header\n"
                                           "text 84,18,156,34 center \"Ra\"\n"
                                           "background 160,18,240,52 header\n"
                                           "text 164,18,236,34 center \"Rq\"\n"
                                           "background 0,0,80,52 header\n"
                                           "text 4,2,76,18 left \"Line\"\n");
    EXPECT_EQ(shown.Draw({240, 0, 260, 1}), "background 240,0,320,52 header\n"
                                            "text 244,2,316,18 center \"RSm\"\n"
                                            "text 244,18,316,34 center \"mean\"\n");
    EXPECT_EQ(shown.Draw({170, 0, 180, 1}).find("background 80,0,240,18"), 0u) << "the whole group";
}

TEST(ResultGridPane, CellsStayBelowNamesAndHeaders)
{
    SPane shown(3);
    shown.pane.ScrollTo(1000, 0);
    EXPECT_EQ(shown.pane.GetScrollLeft(), 120);
    EXPECT_EQ(shown.pane.GetVisibleRange(), (SGridRange{0, 2, 2, 3}));
    EXPECT_EQ(shown.Draw({0, 112, 200, 132}), "") << "below the last row";
    EXPECT_EQ(shown.Draw({0, 52, 200, 73}), "background 40,52,120,72 sub-header\n"
                                            "text 44,52,116,72 right \"nm\"\n"
                                            "background 120,52,200,72 sub-header\n"
                                            "text 124,52,196,72 right \"µm\"\n"
                                            "background 0,52,80,72 header\n"
                                            "background 40,72,120,92 plain\n"
                                            "text 44,72,116,92 right \"1.9\"\n"
                                            "background 120,72,200,92 plain\n"
                                            "text 124,72,196,92 right \"7 8\"\n"
                                            "background 0,72,80,92 header\n"
                                            "text 4,72,76,92 left \"1\"\n");
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

TEST(ResultGridPane, SelectionIsThatOfTheTable)
{
    const struct {
        std::vector<SPoint> path; // pressed at the first, dragged to the others
        SGridModifiers modifiers;
        const char16_t* text;
    } cases[] = {
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
    for (const auto& row : cases) {
        SPane shown(3);
        if (row.modifiers.shift)
            shown.pane.SelectCell({0, 0});
        shown.pane.OnMouse(GridMouse::c_leftDown, row.path[0], row.modifiers);
        for (std::size_t i = 1; i < row.path.size(); ++i)
            shown.pane.OnMouse(GridMouse::c_move, row.path[i], row.modifiers);
        CMemoryClipboard clipboard;
        EXPECT_EQ(CopySelection(shown.grid, false, false, clipboard), *row.text != 0);
        EXPECT_EQ(clipboard.GetText(), row.text) << clipboard.GetText().ToUtf8();
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
    const auto expectHeard = [&](int count, const char* what) {
        EXPECT_EQ(std::exchange(listener.count, 0), count) << what;
        EXPECT_FALSE(std::exchange(shown.view.invalidated, {}).empty()) << what;
    };
    for (const auto& [what, point] :
         {std::pair("cell", SPoint{100, 80}), {"header", {100, 30}}, {"corner", {10, 30}}}) {
        shown.pane.OnMouse(GridMouse::c_leftDown, point, c_plain);
        expectHeard(1, what);
    }
    shown.pane.OnKey({EGridKey::Down, c_plain});
    expectHeard(1, "key");
    shown.pane.OnFocus(true);
    expectHeard(0, "focus");
}

// The names' own edge, at 80, is not scrolled; that of the first column is where `edge` says.
TEST(ResultGridPane, EdgesBelowTheNamesCannotBeGrabbed)
{
    const struct {
        int edge;
        int x;
        std::vector<int> widths; // of the names and the first column, dragged by 10
    } cases[] = {
        {120, 120, {80, 90}}, {120, 117, {80, 90}}, {86, 86, {80, 90}},
        {78, 75, {80, 80}},   {40, 40, {80, 80}},   {40, 80, {90, 80}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.edge);
        SPane shown(3);
        shown.pane.ScrollTo(160 - row.edge, 0);
        const bool grabs = row.widths[0] + row.widths[1] != 160;
        EXPECT_EQ(shown.pane.OnSetCursor({row.x, 45}) == EGridCursor::Resize, grabs);
        shown.pane.OnMouse(GridMouse::c_leftDown, {row.x, 45}, c_plain);
        shown.pane.OnMouse(GridMouse::c_move, {row.x, 60}, c_plain);
        EXPECT_EQ(shown.pane.GetColumnWidth(1), 80) << "nothing moves sideways";
        shown.pane.OnMouse(GridMouse::c_move, {row.x + 10, 45}, c_plain);
        EXPECT_EQ(shown.pane.GetColumnWidth(0), row.widths[0]);
        EXPECT_EQ(shown.pane.GetColumnWidth(1), row.widths[1]);
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
    EXPECT_TRUE(CopySelection(shown.grid, true, true, clipboard));
    EXPECT_EQ(clipboard.GetText(), u"Ra\t1.5");
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

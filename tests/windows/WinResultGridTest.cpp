#include "windows/grid/WinResultGrid.h"

#include "tests/windows/ClipboardTesting.h"
#include "tests/windows/ControlTesting.h"
#include "windows/edits/WinNumericEdit.h"

#include <memory>
#include <stdexcept>

using namespace CommonUI;

namespace
{

class WinResultGrid : public testing::Test
{
protected:
    WinResultGrid()
    {
        table.SetNameHeader(u"Profile");
        for (const char16_t* const name : {u"Ra", u"Rq", u"Rz"})
            table.AddColumn({name, u"Height"});
        AddRows(50);
        grid->Update();
        SetFocus(window);
    }

    void AddRows(int count)
    {
        for (int row = 0; row < count; ++row) {
            const CStr number = CStr::Format(u"%d", row);
            table.AddRow({.name = number, .cells = {u"a" + number, u"b" + number, u"c" + number}});
        }
    }
    void OnSelection()
    {
        if (destroys)
            grid.reset();
        if (throws)
            throw std::runtime_error("from a callback");
    }
    void OnChange(float)
    {
        if (destroys)
            grid.reset();
    }
    // The middle of a cell.
    LPARAM At(std::size_t row, std::size_t column) const
    {
        const SRect cell = grid->GetPane().GetCellRect({row, column});
        return MAKELPARAM(cell.left + cell.GetWidth() / 2, cell.top + cell.GetHeight() / 2);
    }
    void Drag(LPARAM from, LPARAM to) const
    {
        SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, from);
        SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, to);
        SendMessageW(window, WM_LBUTTONUP, 0, to);
    }

    const CWinServices services;
    CTestDialog dialog{1};
    CGridBaseOutputCtrl table{CGridBaseOutputCtrl::SCellInfo::Results};
    std::unique_ptr<CWinResultGrid> grid =
        std::make_unique<CWinResultGrid>(dialog.Get(), 200, SRect{10, 60, 260, 200}, table);
    HWND window = grid->GetWindow();
    bool destroys = false;
    bool throws = false;
};

int GetBar(HWND window, int bar)
{
    return GetScrollPos(window, bar);
}

} // namespace

TEST_F(WinResultGrid, SelectsByTheMouseAndCopiesByKey)
{
    Drag(At(1, 1), At(2, 2));
    EXPECT_EQ(GetFocus(), window);
    EXPECT_NE(GetCapture(), window);
    dialog.Press('C', true);
    EXPECT_EQ(ReadClipboardText(), u"Ra\tRq\r\na1\tb1\r\na2\tb2");
    EXPECT_NE(ReadClipboardHtml().Find(u"a2"), CStr::npos);
}

TEST_F(WinResultGrid, KeysMoveAndShowWhatTheyGoTo)
{
    grid->GetPane().SelectCell({0, 1});
    dialog.Press(VK_DOWN);
    dialog.Press(VK_RIGHT);
    EXPECT_EQ(grid->GetPane().GetSelection().GetFocus(), (SGridCell{1, 2}));
    dialog.Press(VK_END, true);
    EXPECT_EQ(grid->GetPane().GetSelection().GetFocus(), (SGridCell{49, 3}));
    EXPECT_GT(GetBar(window, SB_VERT), 0) << "the bar follows";
    dialog.Press(VK_ESCAPE);
    dialog.Press(VK_TAB);
    EXPECT_EQ(CTestDialog::TakeCommands(), std::vector<int>{IDCANCEL}) << "those are the dialog's";
    EXPECT_EQ(GetFocus(), dialog.GetItem(100));
}

TEST_F(WinResultGrid, ScrollsByBarAndWheel)
{
    CResultGridPane& pane = grid->GetPane();
    const struct {
        const char* description;
        UINT message;
        WPARAM wide;
        long long rows;
    } c_cases[] = {
        {"a line down", WM_VSCROLL, SB_LINEDOWN, 1},
        {"a notch towards the user", WM_MOUSEWHEEL, static_cast<WPARAM>(-WHEEL_DELTA * 0x10000), 4},
        {"a third of one", WM_MOUSEWHEEL, static_cast<WPARAM>(-WHEEL_DELTA / 3 * 0x10000), 5},
        {"a line up", WM_VSCROLL, SB_LINEUP, 4},
        {"to the top", WM_VSCROLL, SB_TOP, 0},
    };
    for (const auto& row : c_cases) {
        SendMessageW(window, row.message, row.wide, 0);
        EXPECT_EQ(pane.GetScrollTop(), row.rows * pane.GetRowHeight()) << row.description;
        EXPECT_EQ(GetBar(window, SB_VERT), pane.GetScrollTop()) << row.description;
    }
    SendMessageW(window, WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_EQ(pane.GetVisibleRange().lastRow, 49U);
}

TEST_F(WinResultGrid, ABarIsThereWhereItIsNeeded)
{
    EXPECT_TRUE(GetWindowLongW(window, GWL_STYLE) & WS_VSCROLL);
    table.Clear();
    table.AddColumn({u"Ra", u"Height"});
    AddRows(2);
    grid->Update();
    EXPECT_FALSE(GetWindowLongW(window, GWL_STYLE) & (WS_VSCROLL | WS_HSCROLL));
    MoveWindow(window, 0, 0, 60, 140, TRUE);
    EXPECT_TRUE(GetWindowLongW(window, GWL_STYLE) & WS_HSCROLL);
}

TEST_F(WinResultGrid, BarsThatTakeRoomFromEachOther)
{
    table.Clear();
    table.AddColumn({u"Ra", u"Height"});
    AddRows(5);
    grid->Update();
    const CGridPane::SExtent cells = grid->GetPane().GetExtent();
    const int edges = 2 * GetSystemMetrics(SM_CXEDGE);
    constexpr LONG c_both = WS_HSCROLL | WS_VSCROLL;
    const struct {
        const char* description;
        int moreWidth, moreHeight;
        LONG bars;
    } c_cases[] = {
        {"all fits, and nothing is left over", 0, 0, 0},
        {"the vertical bar hides a part of the columns", 0, -1, c_both},
        {"neither is left when all fits again", 0, 0, 0},
        {"the horizontal bar hides a part of the rows", -1, 0, c_both},
        {"there is room beside the rows", 100, -1, WS_VSCROLL},
        {"there is room below the rows", -1, 100, WS_HSCROLL},
    };
    for (const auto& row : c_cases) {
        MoveWindow(window, 0, 0, cells.width + edges + row.moreWidth,
                   static_cast<int>(cells.height) + edges + row.moreHeight, TRUE);
        EXPECT_EQ(GetWindowLongW(window, GWL_STYLE) & c_both, row.bars) << row.description;
    }
}

TEST_F(WinResultGrid, AFineWheelGoesAsFarAsACoarseOne)
{
    const CResultGridPane& pane = grid->GetPane();
    for (const int part : {5, 8, 24}) { // of which there are many in a notch
        for (int turned = 0; turned < 2 * WHEEL_DELTA; turned += part)
            SendMessageW(window, WM_MOUSEWHEEL, static_cast<WPARAM>(-part * 0x10000), 0);
        EXPECT_EQ(pane.GetScrollTop(), 6LL * pane.GetRowHeight()) << part;
        SendMessageW(window, WM_VSCROLL, SB_TOP, 0);
    }
}

TEST_F(WinResultGrid, AMillionRowsEndWhereTheBarEnds)
{
    for (int row = 0; row < 999'950; ++row)
        table.AddRow({.name = u"", .cells = {}});
    grid->Update();
    SendMessageW(window, WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_EQ(grid->GetPane().GetVisibleRange().lastRow, 999'999U);
}

TEST_F(WinResultGrid, ABarThatCountsSeveralPixelsLeadsToBothEnds)
{
    for (int row = 0; row < 999'950; ++row)
        table.AddRow({.name = u"", .cells = {}});
    grid->Update();
    CResultGridPane& pane = grid->GetPane();
    MoveWindow(window, 10, 60, 250, 141, FALSE); // an even number of pixels for an odd one of units
    for (const int size : {1500, 3002}) {        // with some billions of pixels in all
        HFONT__* const font = CreateFontW(-size, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Tahoma");
        SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        RECT client{};
        GetClientRect(window, &client);
        const long long end = pane.GetExtent().height - client.bottom;
        int first = 0, last = 0;
        GetScrollRange(window, SB_VERT, &first, &last);
        const struct {
            int position;
            long long top;
            long long reach;
        } c_thumbs[] = {{last, end, 0}, {last / 2, pane.GetExtent().height / 2, 10}, {0, 0, 0}};
        for (const auto& [position, top, reach] : c_thumbs) {
            SetScrollPos(window, SB_VERT, position, FALSE); // as far as the thumb goes
            SendMessageW(window, WM_VSCROLL, SB_THUMBPOSITION, 0);
            EXPECT_NEAR(static_cast<double>(pane.GetScrollTop()), static_cast<double>(top),
                        static_cast<double>(reach))
                << size << ' ' << position;
        }
        SendMessageW(window, WM_SETFONT, 0, FALSE);
        DeleteObject(font);
    }
}

TEST_F(WinResultGrid, IsDrawn)
{
    UpdateWindow(window);
    const int headers = CountDrawn(window);
    EXPECT_GT(headers, 200);
    grid->GetPane().SelectAll();
    UpdateWindow(window);
    EXPECT_GT(CountDrawn(window), headers) << "the selection stands out";
}

TEST_F(WinResultGrid, CommandsCopyTheWholeTableAndWidenColumns)
{
    grid->Run(CWinResultGrid::ECommand::CopyWhole);
    EXPECT_NE(ReadClipboardText().Find(u"c49"), CStr::npos);
    grid->GetPane().SelectCell({0, 2});
    const int before = grid->GetPane().GetColumnWidth(2);
    CTestDialog::Hold(VK_SHIFT, true);
    SendMessageW(window, WM_SYSKEYDOWN, VK_RIGHT, 1);
    EXPECT_GT(grid->GetPane().GetColumnWidth(2), before);
    CTestDialog::Hold(VK_SHIFT, false);
    dialog.Press(VK_ADD, true);
    EXPECT_EQ(grid->GetPane().GetColumnWidth(2), before);
}

TEST_F(WinResultGrid, RowsAreAsHighAsTheFont)
{
    const int before = grid->GetPane().GetRowHeight();
    const int width = grid->GetPane().GetColumnWidth(1);
    HFONT__* const large = CreateFontW(-40, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Tahoma");
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(large), TRUE);
    EXPECT_GT(grid->GetPane().GetRowHeight(), 40);
    EXPECT_GT(grid->GetPane().GetColumnWidth(1), width);
    SendMessageW(window, WM_SETFONT, 0, TRUE);
    EXPECT_EQ(grid->GetPane().GetRowHeight(), before);
    DeleteObject(large);
}

TEST_F(WinResultGrid, TheMenuCopies)
{
    grid->GetPane().SelectCell({3, 1});
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, [](HWND, UINT, UINT_PTR, DWORD) CALLBACK {
        if (HWND__* const menu = FindWindowW(L"#32768", nullptr)) {
            PostMessageW(menu, WM_KEYDOWN, VK_DOWN, 1);
            PostMessageW(menu, WM_KEYDOWN, VK_RETURN, 1);
        }
    });
    SendMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), -1);
    KillTimer(nullptr, timer);
    EXPECT_EQ(ReadClipboardText(), u"Ra\r\na3");
}

TEST_F(WinResultGrid, TakesThePlaceOfAControl)
{
    CWinResultGrid placed(dialog.Get(), 100, table);
    EXPECT_EQ(dialog.GetItem(100), placed.GetWindow());
    EXPECT_EQ(WidthOf(placed.GetWindow()), 120);
    EXPECT_THROW(CWinResultGrid(dialog.Get(), 300, table), std::system_error);
    dialog.Close();
    EXPECT_FALSE(placed.GetWindow());
    placed.Update();
    placed.GetPane().SelectAll();
}

TEST_F(WinResultGrid, ACallbackMayDestroyItOrThrow)
{
    grid->GetPane().SetSelectionCallback(*this,
                                         &WinResultGrid_ACallbackMayDestroyItOrThrow_Test::OnSelection);
    throws = true;
    PostMessageW(window, WM_KEYDOWN, VK_DOWN, 1);
    bool ended = false;
    GetMessageLoop().Post([&] { ended = true; });
    EXPECT_THROW(GetMessageLoop().RunUntil([&] { return ended; }), std::runtime_error);
    GetMessageLoop().Pump();
    throws = false;
    destroys = true;
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, At(1, 1));
    EXPECT_FALSE(grid);
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(WinResultGrid, WhoLosesTheKeyboardMayDestroyIt)
{
    CWinFloatEdit edit(dialog.Get(), 100);
    edit.GetEdit().SetChangeNotification(*this,
                                         &WinResultGrid_WhoLosesTheKeyboardMayDestroyIt_Test::OnChange);
    for (const UINT button : {WM_LBUTTONDOWN, WM_RBUTTONDOWN}) {
        if (!grid)
            grid = std::make_unique<CWinResultGrid>(dialog.Get(), 200, SRect{10, 60, 260, 200}, table);
        grid->Update();
        destroys = false;
        SetFocus(edit.GetField());
        dialog.Type(button == WM_LBUTTONDOWN ? L"2" : L"3");
        destroys = true;
        SendMessageW(grid->GetWindow(), button, 0, At(1, 1));
        EXPECT_FALSE(grid);
    }
}

#include "windows/grid/WinGridCtrl.h"

#include "output/grid/GridButtonItem.h"
#include "output/grid/GridCheckItem.h"
#include "output/grid/GridDblSpinItem.h"
#include "output/grid/GridListItem.h"
#include "platform/memory/MemoryMessageBoxService.h"
#include "tests/windows/ControlTesting.h"

#include <commctrl.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <tuple>

using namespace CommonUI;

namespace
{

// A grid with a row for every kind of item in its second column.
class WinGridCtrl : public testing::Test
{
public:
    enum ERow { Check, Button, Text, Code, Spin, List };

    WinGridCtrl()
    {
        Grid().AddColumn({u"Name", 100});
        Grid().AddColumn({u"Value", 140});
        Grid().SetChangeCallback(*this, &WinGridCtrl::OnChange);
        Add<CGridCheckItem>(0, 0);
        Add<CGridButtonItem>(u"Go", 400, ~0U).SetCallback(*this, &WinGridCtrl::OnButton);
        Add<CGridItem>(u"old");
        Add<CGridItem>(CGridValue(u"A-00"), 0,
                       SGridEditRules{.mask = u"a-dd", .validCharacters = u"ABC-0123"});
        Add<CGridDblSpinItem>(2.5).EnableSpinControl(true, 0, 4);
        Add<CGridListItem>().SetOptions({u"nm", u"mm", u"\u00B5m", CStr(60, u'x')});
        SetFocus(window);
    }

    CGridCtrl& Grid() const { return grid->GetGrid(); }
    template<class TItem, class... TArgs>
    TItem& Add(TArgs&&... arguments)
    {
        CGridRow& row = Grid().AddRow();
        row.Emplace<CGridItem>(u"name").SetFlag(CGridItem::ReadOnly);
        TItem& item = row.Emplace<TItem>(std::forward<TArgs>(arguments)...);
        item.SetId(static_cast<int>(Grid().GetRowCount()) - 1);
        return item;
    }
    void Select(ERow row) const { Grid().SelectCell({static_cast<std::size_t>(row), 1}); }
    void OnChange(CGridItem&, int id) { Call(" " + std::to_string(id)); }
    void OnButton(CGridButtonItem&) { Call(" button"); }
    void Call(const std::string& what)
    {
        changes += what;
        if (destroys)
            grid.reset();
        if (throws)
            throw std::runtime_error("from a callback");
    }
    // The text of an item after what was done, the changes that were told, and whether it beeped.
    std::string After(ERow row)
    {
        CTestDialog::Pump();
        EXPECT_FALSE(Grid().IsEditing() || FindEditor());
        const bool beeped = boxes.GetBeeps().size() > std::exchange(beeps, boxes.GetBeeps().size());
        return Grid().GetItem({static_cast<std::size_t>(row), 1})->FormatItem().ToUtf8() +
               std::exchange(changes, {}) + (beeped ? "!" : "");
    }
    // The place within the button of a cell.
    LPARAM ArrowOf(ERow row) const
    {
        const SRect rect = Grid().GetItemRect(*Grid().GetItem({static_cast<std::size_t>(row), 1}));
        return MAKELPARAM(rect.right - 5, rect.top + 5);
    }
    HWND FindEditor() const
    {
        for (const wchar_t* const name : {L"EDIT", L"COMBOBOX"})
            for (HWND child = nullptr; (child = FindWindowExW(window, child, name, nullptr));)
                if (GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE)
                    return child;
        return nullptr;
    }
    // Keys are their codes, after a text for the editor.
    void Play(const wchar_t* text, std::initializer_list<WORD> keys)
    {
        dialog.Type(text);
        for (const WORD key : keys)
            dialog.Press(key);
    }

    const CWinServices services;
    CMemoryMessageBoxService boxes;
    const CServiceScope<CMessageBoxService> boxesScope{boxes};
    CTestDialog dialog{1};
    std::unique_ptr<CWinGridCtrl> grid =
        std::make_unique<CWinGridCtrl>(dialog.Get(), 200, SRect{10, 60, 290, 260});
    HWND window = grid->GetWindow();
    std::string changes;
    std::size_t beeps = 0;
    bool destroys = false;
    bool throws = false;
};

} // namespace

TEST_F(WinGridCtrl, EditorsEndByKeys)
{
    const std::tuple<ERow, const wchar_t*, std::initializer_list<WORD>, const char*, ERow> cases[] = {
        {Text, L"new", {VK_RETURN}, "new 2", Text},
        {Text, L"other", {VK_ESCAPE}, "new", Text},
        {Text, L"", {VK_F2, VK_RETURN}, "new", Text},
        {Text, L"", {VK_RETURN, VK_RETURN}, "new", Text},
        {Text, L"next", {VK_TAB, VK_ESCAPE}, "next 2", Code},
        {Code, L"B-12", {VK_RETURN}, "B-12 3", Code},
        {Code, L"A-Z00", {VK_RETURN}, "A-00 3", Code}, // no Z is typed
        {Code, L"A-0", {VK_RETURN}, "A-00!", Code},
        {Spin, L"3.25", {VK_RETURN}, "3.25 4", Spin},
        {Spin, L"3", {VK_UP, VK_UP, VK_RETURN}, "4 4", Spin},
        {Spin, L"x", {VK_RETURN}, "4!", Spin},
        {List, L"m", {VK_RETURN}, "mm 5", List},
    };
    for (const auto& [row, text, keys, after, focus] : cases) {
        Select(row);
        Play(text, keys);
        EXPECT_EQ(After(row), after);
        EXPECT_EQ(Grid().GetSelection().GetFocus().row, static_cast<std::size_t>(focus)) << after;
        EXPECT_EQ(GetFocus(), window) << after;
    }
    EXPECT_TRUE(CTestDialog::TakeCommands().empty()) << "no key was the dialog's";
}

TEST_F(WinGridCtrl, EditorsTakeTheTextWhenTheyAreLeft)
{
    Select(Text);
    dialog.Type(L"left");
    EXPECT_EQ(GetFocus(), FindEditor());
    EXPECT_TRUE(Grid().HasFocus()) << "keys go to its editor";
    SetFocus(dialog.GetItem(100));
    EXPECT_EQ(After(Text), "left 2");
    EXPECT_EQ(GetFocus(), dialog.GetItem(100));
    EXPECT_FALSE(Grid().HasFocus());

    SetFocus(window);
    dialog.Type(L"clicked");
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, ArrowOf(Check));
    SendMessageW(window, WM_LBUTTONUP, 0, ArrowOf(Check));
    EXPECT_EQ(After(Text), "clicked 2");
}

TEST_F(WinGridCtrl, ArrowsAndTheWheelStep)
{
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, ArrowOf(Spin));
    SendMessageW(window, WM_LBUTTONUP, 0, ArrowOf(Spin));
    HWND__* const arrows = FindWindowExW(window, nullptr, UPDOWN_CLASSW, nullptr);
    ASSERT_TRUE(arrows && FindEditor());
    for (int i = 0; i < 3; ++i) {
        SendMessageW(arrows, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 2));
        SendMessageW(arrows, WM_LBUTTONUP, 0, MAKELPARAM(3, 2));
    }
    EXPECT_EQ(TextOf(FindEditor()), u"4") << "no more than the maximum";
    SendMessageW(FindEditor(), WM_MOUSEWHEEL, static_cast<WPARAM>(-2 * WHEEL_DELTA * 0x10000 | MK_CONTROL),
                 0);
    EXPECT_EQ(TextOf(FindEditor()), u"2");
    dialog.Press(VK_RETURN);
    EXPECT_EQ(After(Spin), "2 4");
    EXPECT_FALSE(IsWindowVisible(arrows));
}

TEST_F(WinGridCtrl, ListsDropDownAndEndWithTheirChoice)
{
    for (const bool takes : {true, false}) {
        SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, ArrowOf(List));
        HWND__* const list = FindEditor();
        ASSERT_TRUE(list);
        EXPECT_FALSE(SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0)) << "the button is held";
        SendMessageW(window, WM_LBUTTONUP, 0, ArrowOf(List));
        EXPECT_TRUE(SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0));
        EXPECT_GT(SendMessageW(list, CB_GETDROPPEDWIDTH, 0, 0), 200) << "the widest option has room";
        dialog.Press(VK_DOWN);
        dialog.Press(VK_DOWN);
        EXPECT_TRUE(SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0));
        dialog.Press(takes ? VK_RETURN : VK_ESCAPE);
        EXPECT_EQ(After(List), takes ? "mm 5" : "mm");
        EXPECT_EQ(GetFocus(), window);
    }
}

TEST_F(WinGridCtrl, KeysThatNoCellUsesAreTheDialogs)
{
    Select(Button);
    dialog.Press(VK_RETURN);
    EXPECT_EQ(After(Button), "Go button");
    Grid().SelectCell({Text, 0}); // which is read-only
    dialog.Press(VK_RETURN);
    dialog.Press(VK_ESCAPE);
    EXPECT_EQ(CTestDialog::TakeCommands(), (std::vector<int>{IDOK, IDCANCEL}));
    Select(Check);
    dialog.Press(VK_SPACE);
    EXPECT_EQ(std::exchange(changes, {}), " 0");
    dialog.Press(VK_TAB);
    EXPECT_EQ(GetFocus(), dialog.GetItem(100));
}

TEST_F(WinGridCtrl, EditorsShowTheWholeTextAtTheSideOfItsCell)
{
    for (const ERow row : {Text, Spin}) {
        Select(row);
        dialog.Press(VK_F2);
        RECT area{};
        GetClientRect(FindEditor(), &area);
        const auto position = [this](WPARAM at) {
            return static_cast<short>(LOWORD(SendMessageW(FindEditor(), EM_POSFROMCHAR, at, 0)));
        };
        EXPECT_GE(position(0), 0);
        EXPECT_LT(position(2), area.right);
        EXPECT_EQ(position(0) > area.right / 2, row == Spin) << "numbers are at the right";
        dialog.Press(VK_ESCAPE);
    }
}

TEST_F(WinGridCtrl, EditorsStayOverTheirCells)
{
    for (int i = 0; i < 40; ++i)
        Add<CGridItem>(u"more");
    Select(Text);
    dialog.Type(L"x");
    const auto cell = [this] {
        const SRect rect = Grid().GetItemRect(*Grid().GetItem({Text, 1}));
        return rect.top + 2;
    };
    const auto editor = [this] {
        POINT place{};
        MapWindowPoints(FindEditor(), window, &place, 1);
        return place.y;
    };
    const int before = cell();
    EXPECT_EQ(editor(), before);
    SendMessageW(window, WM_VSCROLL, SB_LINEDOWN, 0);
    EXPECT_LT(cell(), before);
    EXPECT_EQ(editor(), cell());
    MoveWindow(window, 0, 0, 200, 120, TRUE);
    EXPECT_EQ(editor(), cell());
}

TEST_F(WinGridCtrl, CallbacksMayThrowAndDestroy)
{
    throws = true;
    Select(Text);
    Play(L"thrown", {VK_RETURN});
    EXPECT_EQ(After(Text), "thrown 2") << "and the dialog stays open";
    throws = false;
    destroys = true;
    for (const WORD end : {WORD{VK_RETURN}, WORD{VK_TAB}}) {
        Select(Text);
        Play(L"destroyed", {end});
        EXPECT_FALSE(grid);
        EXPECT_FALSE(IsWindow(window));
        grid = std::make_unique<CWinGridCtrl>(dialog.Get(), 200, SRect{10, 60, 290, 260});
        window = grid->GetWindow();
        Grid().AddColumn({u"Name", 100});
        Grid().AddColumn({u"Value", 140});
        Grid().SetChangeCallback(*this, &WinGridCtrl::OnChange);
        for (int i = 0; i <= Text; ++i)
            Add<CGridItem>(u"again");
        SetFocus(window);
    }
    Select(Text);
    dialog.Type(L"focus");
    SetFocus(dialog.GetItem(100));
    EXPECT_FALSE(grid) << "by a focus that goes elsewhere";
    EXPECT_TRUE(CTestDialog::TakeCommands().empty());
}

TEST_F(WinGridCtrl, WindowMayGoFirstWithAnEditorOpen)
{
    Select(Text);
    dialog.Type(L"x");
    dialog.Close();
    EXPECT_FALSE(grid->GetWindow());
    grid.reset();
}

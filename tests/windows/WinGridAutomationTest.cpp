#include "tests/windows/AutomationTesting.h"
#include "tests/windows/ControlTesting.h"
#include "windows/grid/WinResultGrid.h"

#include <memory>

using namespace CommonUI;

namespace
{

using CElementOwner = CComOwner<IRawElementProviderFragment>;

class WinGridAutomation : public CAutomationTest
{
protected:
    WinGridAutomation()
    {
        table.SetNameHeader(u"Profile");
        for (const char16_t* const name : {u"Ra", u"Rq"})
            table.AddColumn({name, u"Height"});
        for (const char16_t* const row : {u"1", u"2", u"3"})
            table.AddRow({.name = row, .cells = {CStr(u"a") + row, CStr(u"b") + row}});
        grid->Update();
        root = AskWindow(grid->GetWindow());
    }
    ~WinGridAutomation() override
    {
        if (root)
            root->Release();
    }

    static CStr NameOf(IRawElementProviderFragment* element)
    {
        CComOwner<IRawElementProviderSimple> simple;
        Ask(element, simple);
        return Read(simple.Get(), UIA_NamePropertyId);
    }

    const CWinServices services;
    CTestDialog dialog{1};
    CGridBaseOutputCtrl table{CGridBaseOutputCtrl::SCellInfo::Results};
    std::unique_ptr<CWinResultGrid> grid =
        std::make_unique<CWinResultGrid>(dialog.Get(), 200, SRect{10, 60, 260, 200}, table);
    IRawElementProviderSimple* root = nullptr;
};

} // namespace

TEST_F(WinGridAutomation, TellsOfCellsByRowAndColumn)
{
    CComOwner<IUnknown> pattern;
    ASSERT_EQ(root->GetPatternProvider(UIA_GridPatternId, pattern.Receive()), S_OK);
    CComOwner<IGridProvider> cells;
    Ask(pattern.Get(), cells);
    int rows = 0, columns = 0;
    EXPECT_EQ(cells->get_RowCount(&rows), S_OK);
    EXPECT_EQ(cells->get_ColumnCount(&columns), S_OK);
    EXPECT_EQ(rows, 3);
    EXPECT_EQ(columns, 3);
    CComOwner<IRawElementProviderSimple> cell;
    ASSERT_EQ(cells->GetItem(1, 2, cell.Receive()), S_OK);
    EXPECT_EQ(Read(cell.Get(), UIA_NamePropertyId), u"b2");
    EXPECT_EQ(Read(cell.Get(), UIA_HelpTextPropertyId), grid->GetPane().SpeakHeader(2));
    EXPECT_EQ(Read(cell.Get(), UIA_IsOffscreenPropertyId), u"no");
    for (const auto& [row, column] : {std::pair(3, 0), std::pair(0, 3), std::pair(-1, 0)}) {
        CComOwner<IRawElementProviderSimple> none;
        EXPECT_EQ(cells->GetItem(row, column, none.Receive()), E_INVALIDARG);
        EXPECT_EQ(none.Get(), nullptr);
    }
}

TEST_F(WinGridAutomation, LeadsFromCellToCellAndFindsThemOnTheScreen)
{
    CComOwner<IRawElementProviderFragmentRoot> top;
    Ask(root, top);
    CComOwner<IRawElementProviderFragment> whole;
    Ask(root, whole);
    std::string names;
    auto at = std::make_unique<CElementOwner>();
    ASSERT_EQ(whole->Navigate(NavigateDirection_FirstChild, at->Receive()), S_OK);
    while (at->Get()) {
        names += NameOf(at->Get()).ToUtf8() + ' ';
        UiaRect place{};
        EXPECT_EQ((*at)->get_BoundingRectangle(&place), S_OK);
        CElementOwner found;
        EXPECT_EQ(top->ElementProviderFromPoint(place.left + 2, place.top + 2, found.Receive()), S_OK);
        EXPECT_EQ(NameOf(found.Get()), NameOf(at->Get()));
        auto next = std::make_unique<CElementOwner>();
        EXPECT_EQ((*at)->Navigate(NavigateDirection_NextSibling, next->Receive()), S_OK);
        if (next->Get()) {
            CElementOwner back;
            EXPECT_EQ((*next)->Navigate(NavigateDirection_PreviousSibling, back.Receive()), S_OK);
            EXPECT_EQ(NameOf(back.Get()), NameOf(at->Get()));
        }
        at = std::move(next);
    }
    EXPECT_EQ(names, "1 a1 b1 2 a2 b2 3 a3 b3 ");
}

TEST_F(WinGridAutomation, TellsWhereTheKeyboardGoes)
{
    SetFocus(grid->GetWindow());
    grid->GetPane().SelectCell({0, 1});
    dialog.Press(VK_DOWN);
    EXPECT_EQ(s_focus, (std::vector<CStr>{u"a1", u"a2"}));
    CComOwner<IRawElementProviderFragmentRoot> top;
    Ask(root, top);
    CElementOwner focus;
    EXPECT_EQ(top->GetFocus(focus.Receive()), S_OK);
    EXPECT_EQ(NameOf(focus.Get()), u"a2");
}

TEST_F(WinGridAutomation, WhatIsKeptTellsNothingWhenTheTableIsGone)
{
    CComOwner<IRawElementProviderFragment> whole;
    Ask(root, whole);
    CElementOwner cell;
    ASSERT_EQ(whole->Navigate(NavigateDirection_LastChild, cell.Receive()), S_OK);
    EXPECT_EQ(NameOf(cell.Get()), u"b3");
    table.Clear();
    grid->Update();
    EXPECT_EQ(NameOf(cell.Get()), u"gone") << "the row";
    s_ended = 0;
    grid.reset();
    EXPECT_EQ(s_ended, 1);
    EXPECT_EQ(cell->SetFocus(), c_elementGone);
    CElementOwner none;
    EXPECT_EQ(whole->Navigate(NavigateDirection_FirstChild, none.Receive()), c_elementGone);
}

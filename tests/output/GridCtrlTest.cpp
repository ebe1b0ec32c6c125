#include "output/grid/GridCheckItem.h"
#include "output/grid/GridDblSpinItem.h"
#include "output/grid/GridListItem.h"

#include <gtest/gtest.h>

#include "tests/output/GridHarness.h"
#include "tests/TestData.h"

#include <algorithm>
#include <functional>
#include <random>

using namespace CommonUI;

namespace
{

// A row with two rows below it, and one after it.
void FillTree(CGridHarness& harness)
{
    CGridRow& top = harness.grid->AddRow();
    top.Emplace<CGridItem>(u"top");
    for (const char16_t* name : {u"first", u"second"})
        top.AddSubRow().Emplace<CGridItem>(name);
    harness.grid->AddRow().Emplace<CGridItem>(u"last");
}

std::string ShownNames(const CGridHarness& harness)
{
    std::string names;
    for (const CGridRow* row : harness.grid->GetShownRows())
        names += row->GetItem(0)->FormatItem().ToUtf8() + " ";
    return names;
}

void AddShown(const CGridRowList<std::unique_ptr<CGridRow>>& rows, std::vector<const CGridRow*>& shown)
{
    for (const auto& row : rows) {
        shown.push_back(row.get());
        if (row->IsExpanded())
            AddShown(row->GetSubRows(), shown);
    }
}

// That the rows shown are those of the tree, and lie where they are shown.
void ExpectShown(const CGridCtrl& grid)
{
    std::vector<const CGridRow*> shown;
    AddShown(grid.GetRows(), shown);
    ASSERT_TRUE(std::ranges::equal(grid.GetShownRows(), shown));
    for (std::size_t place = 0; place < shown.size(); ++place)
        ASSERT_EQ(grid.GetShownRows()[place], shown[place]);
}

bool IsWithin(const CGridRow* row, const CGridRow& above)
{
    while (row && row != &above)
        row = row->GetParent();
    return row;
}

} // namespace

TEST(GridCtrl, DrawsRowsBelowRows)
{
    CGridHarness harness;
    FillTree(harness);
    EXPECT_EQ(harness.DrawAll().substr(0, 143), "background 0,20,100,40 plain\n"
                                                "background 20,20,100,40 plain\n"
                                                "text 24,20,96,40 left \"top\"\n"
                                                "expander 2,22,18,38 open\n"
                                                "background 100,20,200,40 plain\n");
    EXPECT_TRUE(Has(harness.DrawAll(), "text 44,40,96,60 left \"first\"")) << "indented";
    EXPECT_TRUE(Has(harness.DrawAll(), "background 0,0,100,20 header\ntext 24,0,96,20 left \"Name\"\n"
                                       "background 100,0,200,20 header\ntext 104,0,196,20 left \"Value\""))
        << "above the texts of the rows at the top";
    harness.Press(50, 10);
    EXPECT_TRUE(Has(harness.DrawAll(), "background 0,0,100,20 marked\n"));
    EXPECT_TRUE(Has(harness.DrawAll(), "background 100,0,200,20 header\n"));
}

TEST(GridCtrl, RowsBelowRowsAreShownAndHidden)
{
    CGridHarness harness;
    FillTree(harness);
    CGridRow& top = *harness.grid->GetRows()[0];
    const auto select = [&](std::size_t row) { harness.grid->SelectCell({row, 0}); };
    const auto pressExpander = [&] { harness.Press(19, 30); };
    // What is done, and the rows that are shown then, with the first and the last that is selected.
    const std::pair<std::function<void()>, const char*> steps[] = {
        {[&] { harness.Press(50, 10); }, "top first second last 0-3"},
        {[&] { harness.Press(20, 30); }, "top first second last 0-0"}, // beside the expander
        {pressExpander, "top last 0-0"},
        {[&] { harness.Key(EGridKey::Right); }, "top first second last 0-0"},
        {[&] { select(0), harness.Key(EGridKey::Right); }, "top first second last 0-0"},
        {[&] { select(0), harness.Key(EGridKey::Left); }, "top last 0-0"},
        {[&] { top.SetExpanded(true), select(3), pressExpander(); }, "top last 1-1"},
        {pressExpander, "top first second last 3-3"},
        {[&] { select(2), pressExpander(); }, "top last 0-0"},
        {pressExpander, "top first second last 0-0"},
        {[&] { top.AddSubRow().Emplace<CGridItem>(u"third"); }, "top first second third last 0-0"},
        {[&] { select(4), top.AddSubRow().Emplace<CGridItem>(u"4th"); },
         "top first second third 4th last 5-5"},
    };
    for (const auto& [act, shown] : steps) {
        act();
        const SGridRange range = harness.grid->GetSelection().GetRange();
        EXPECT_EQ(ShownNames(harness) + std::to_string(range.firstRow) + "-" + std::to_string(range.lastRow),
                  shown);
    }
    select(1);
    harness.grid->RemoveAllRows();
    EXPECT_TRUE(harness.grid->GetSelection().IsEmpty());
    FillTree(harness);
    harness.grid->GetRows()[0]->SetExpanded(false);
    const std::shared_ptr<CGridItem> kept = harness.grid->GetRows()[0]->GetSubRows()[1]->GetItem(0);
    EXPECT_TRUE(harness.grid->GetItemRect(*kept).IsEmpty()) << "not shown";
    harness.grid->GetRows()[0]->SetExpanded(true);
    harness.grid->SelectCell({3, 0});
    harness.grid->RemoveRow(*harness.grid->GetRows()[0]);
    EXPECT_EQ(ShownNames(harness), "last ");
    EXPECT_EQ(harness.grid->GetSelection().GetFocus(), SGridCell{}) << "cut to the rows that are left";
    EXPECT_EQ(kept->GetGrid(), nullptr);
    kept->SetValue(u"still usable");
}

TEST(GridCtrl, RowsComeAndGoAnywhereAmongMany)
{
    CGridCtrl grid;
    grid.AddColumn({u"Name", 10});
    std::mt19937 random(5);
    const auto below = [&random](std::size_t count) { return random() % count; };
    const auto any = [&]() -> CGridRow& { return *grid.GetShownRows()[below(grid.GetShownRows().size())]; };
    for (int i = 0; i < 3000; ++i)
        grid.AddRow();
    for (int i = 0; i < 1500; ++i)
        grid.GetRows()[1500]->AddSubRow();
    for (int step = 0; step < 3000; ++step) {
        const std::size_t focus = below(grid.GetShownRows().size());
        grid.SelectCell({focus, 0});
        CGridRow* const focused = grid.GetShownRows()[focus];
        switch (CGridRow& row = any(); below(4)) {
        case 0:
            row.AddSubRow();
            break;
        case 1:
            row.SetExpanded(!row.IsExpanded());
            break;
        case 2:
            grid.AddRow();
            break;
        default:
            // A row that keeps the focus elsewhere.
            if (!IsWithin(focused, row))
                grid.RemoveRow(row);
        }
        const CGridRow* kept = focused;
        for (const CGridRow* above = focused->GetParent(); above; above = above->GetParent())
            kept = above->IsExpanded() ? kept : above;
        ASSERT_EQ(grid.GetShownRows()[grid.GetSelection().GetFocus().row], kept) << "step " << step;
        if (step % 100 == 0)
            ExpectShown(grid);
    }
    ExpectShown(grid);
    while (!grid.GetRows().empty())
        grid.RemoveRow(*grid.GetRows().front());
    EXPECT_TRUE(grid.GetShownRows().empty());
    EXPECT_EQ(grid.GetExtent().height, grid.GetHeaderHeight());
}

TEST(GridCtrl, EditorsOpenAndEnd)
{
    CGridHarness harness;
    CGridRow& row = harness.grid->AddRow();
    auto& number = row.Emplace<CGridDblSpinItem>(1.5);
    number.EnableSpinControl(true, 0, 10);
    number.SetId(4);
    auto& list = row.Emplace<CGridListItem>();
    list.SetOptions({u"nm", u"µm"});
    list.SetId(5);
    auto& code = harness.grid->AddRow().Emplace<CGridItem>(
        CGridValue(u""), 0, SGridEditRules{.mask = u"a-dd", .initialText = u"A-00"});
    code.SetId(6);

    harness.Press(85, 30);
    ASSERT_TRUE(harness.view.editor) << "by the arrows";
    EXPECT_EQ(harness.view.editor->kind, SGridEdit::EKind::Spin);
    EXPECT_EQ(harness.view.editor->rect, (SRect{0, 20, 100, 40}));
    EXPECT_EQ(harness.view.editor->text, u"1.5");
    EXPECT_EQ(harness.view.editor->maximum, 10);
    EXPECT_TRUE(harness.Key(EGridKey::Escape));
    EXPECT_FALSE(harness.view.editor || harness.grid->EndEdit(u"2")) << "cancelled";

    const std::tuple<SGridCell, const char16_t*, bool, const char*> cases[] = {
        {{0, 0}, u"7", true, "4 "},    {{0, 0}, u"seven", false, ""}, {{0, 0}, u"7.0", true, ""},
        {{0, 0}, u"70", true, "4! "},  {{0, 1}, u"µm", true, "5 "},   {{0, 1}, u"mm", false, ""},
        {{1, 0}, u"B-12", true, "6 "}, {{1, 0}, u"B-1", false, ""},
    };
    for (const auto& [cell, text, taken, changes] : cases) {
        harness.grid->SelectCell(cell);
        EXPECT_TRUE(harness.Key(EGridKey::F2));
        EXPECT_TRUE(harness.grid->IsEditing());
        EXPECT_EQ(harness.grid->EndEdit(text), taken) << CStr(text).ToUtf8();
        EXPECT_FALSE(harness.view.editor);
        EXPECT_EQ(harness.TakeChanges(), changes) << CStr(text).ToUtf8();
    }
    EXPECT_EQ(number.FormatItem(), u"10");
    EXPECT_EQ(code.FormatItem(), u"B-12");
    code.SetValue(u"");
    harness.Press(50, 50, GridMouse::c_leftDoubleClick);
    EXPECT_EQ(harness.view.editor->text, u"A-00");
    harness.grid->RemoveRow(*harness.grid->GetRows()[1]);
    EXPECT_FALSE(harness.view.editor || harness.grid->IsEditing()) << "the row of the editor is gone";
    EXPECT_EQ(harness.grid->OnSetCursor({50, 30}), EGridCursor::Text);
    EXPECT_EQ(harness.grid->OnSetCursor({150, 30}), EGridCursor::Arrow);
    harness.grid->SelectCell({0, 0});
    EXPECT_TRUE(harness.grid->BeginEdit());
    harness.grid->SetReadOnly(true);
    EXPECT_FALSE(harness.view.editor || harness.grid->BeginEdit());
    harness.grid->SetReadOnly(false);
    EXPECT_TRUE(harness.grid->BeginEdit());
    number.SetFlag(CGridItem::ReadOnly);
    EXPECT_FALSE(harness.grid->EndEdit(u"1")) << "read-only by now";
    number.SetFlag(CGridItem::ReadOnly, false);
    EXPECT_TRUE(harness.grid->BeginEdit());
    harness.grid.reset();
    EXPECT_FALSE(harness.view.editor);
}

TEST(GridCtrl, DrawsAndScrollsToWhatIsAskedFor)
{
    CGridHarness harness;
    for (int i = 0; i < 1000; ++i)
        harness.grid->AddRow().Emplace<CGridItem>(i);
    EXPECT_EQ(harness.grid->GetExtent().height, 1001 * 20);
    CTextGridPainter painter;
    harness.grid->Draw(painter, {0, 45, 100, 46});
    EXPECT_EQ(painter.GetLog(), u"background 0,40,100,60 plain\ntext 4,40,96,60 right \"1\"\n");
    harness.grid->ScrollTo(50, 1LL << 60);
    EXPECT_EQ(harness.grid->GetScrollTop(), 19900);
    EXPECT_EQ(harness.grid->GetScrollLeft(), 0) << "all columns fit";
    harness.grid->ScrollTo(0, 30);
    EXPECT_EQ(harness.grid->HitTest({5, 25}).cell, (SGridCell{1, 0}));
    EXPECT_EQ(harness.grid->HitTest({200, 25}).part, SGridHit::EPart::Nothing);
    EXPECT_EQ(harness.grid->GetVisibleRange(), (SGridRange{1, 6, 0, 1}));
    harness.grid->SelectCell({999, 0});
    harness.grid->ScrollTo(0, 0);
    EXPECT_TRUE(harness.grid->BeginEdit());
    EXPECT_EQ(harness.view.editor->rect, (SRect{0, 100, 100, 120})) << "the last row of the view";
    harness.grid->SetViewSize({0, 0});
    painter.Clear();
    harness.grid->Draw(painter, {});
    EXPECT_TRUE(painter.GetLines().empty());
}

TEST(GridCtrl, ItemsMoveBetweenPlaces)
{
    CGridHarness harness;
    CGridRow& row = harness.grid->AddRow();
    const auto item = std::make_shared<CGridCheckItem>(1, 0);
    row.Add(item);
    row.Set(3, item);
    EXPECT_EQ(row.GetItem(0), nullptr);
    EXPECT_EQ(row.GetItem(3), item);
    EXPECT_TRUE(harness.grid->GetItemRect(*item).IsEmpty()) << "a column that does not exist";
    row.Set(1, item);
    row.Set(1, std::make_shared<CGridItem>());
    EXPECT_EQ(item->GetRow(), nullptr);
    row.Set(1, nullptr);
    EXPECT_EQ(row.GetItem(1), nullptr);
    harness.Press(150, 30);
    EXPECT_FALSE(harness.Key(EGridKey::Space)) << "a cell without an item";
}

TEST(GridCtrl, RowsBelowRowsKeepTheirOrder)
{
    CGridHarness harness;
    const auto add = [](CGridRow& row, const char16_t* name) -> CGridRow& {
        row.Emplace<CGridItem>(name);
        return row;
    };
    CGridRow& a = add(harness.grid->AddRow(), u"a");
    CGridRow& b = add(harness.grid->AddRow(), u"b");
    CGridRow& a1 = add(a.AddSubRow(), u"a1");
    add(a1.AddSubRow(), u"a11");
    add(b.AddSubRow(), u"b1");
    CGridRow& a2 = add(a.AddSubRow(), u"a2");
    a1.SetExpanded(false);
    add(a1.AddSubRow(), u"a12");
    add(a.AddSubRow(), u"a3");
    a2.SetExpanded(false);
    add(a2.AddSubRow().AddSubRow(), u"hidden");
    EXPECT_EQ(ShownNames(harness), "a a1 a2 a3 b b1 ");
    a1.SetExpanded(true);
    add(a1.AddSubRow(), u"a13");
    EXPECT_EQ(ShownNames(harness), "a a1 a11 a12 a13 a2 a3 b b1 ");
    harness.grid->SelectCell({7, 0});
    EXPECT_TRUE(harness.grid->IsSelected(*b.GetItem(0)));
}

TEST(GridCtrl, TypingEditsAndTabGoesOn)
{
    CGridHarness harness;
    for (const bool readOnly : {false, true}) {
        CGridRow& row = harness.grid->AddRow();
        row.Emplace<CGridItem>(u"name").SetFlag(CGridItem::ReadOnly, readOnly);
        row.Emplace<CGridItem>(u"value");
    }
    harness.grid->OnFocus(true);
    EXPECT_TRUE(Has(harness.DrawAll(), "focus 0,20,100,40")) << "also before anything is selected";
    EXPECT_TRUE(harness.grid->OnText(u"x"));
    EXPECT_EQ(harness.view.editor->typed, u"x");
    for (const SGridCell cell : {SGridCell{0, 1}, SGridCell{1, 1}}) {
        EXPECT_TRUE(harness.grid->EditNext(false));
        EXPECT_EQ(harness.grid->GetSelection().GetFocus(), cell);
        EXPECT_EQ(harness.view.editor->typed, u"");
    }
    EXPECT_FALSE(harness.grid->EditNext(false));
    EXPECT_TRUE(harness.grid->EditNext(true) && harness.grid->EditNext(true));
    EXPECT_FALSE(harness.grid->EditNext(true));
    EXPECT_TRUE(harness.grid->IsEditing()) << "the last one stays";
    harness.grid->SelectCell({1, 0});
    EXPECT_FALSE(harness.grid->OnText(u"x"));
}

TEST(GridCtrl, ColumnsAreResizedByTheirEdges)
{
    // Where the header is pressed and where it is dragged to; whether the pointer tells of it, what is told
    // in the end, and the widths.
    const std::tuple<int, int, const char*> cases[] = {
        {98, 148, "resize 0:150 150 100"},  {103, 93, "resize 0:90 90 100"}, {105, 150, "100 100"},
        {200, 260, "resize 1:160 100 160"}, {99, -50, "resize 0:4 4 100"},   {95, 20, "100 100"},
        {98, 98, "resize 100 100"},
    };
    for (const auto& [from, to, after] : cases) {
        CGridHarness harness;
        std::string seen = harness.grid->OnSetCursor({from, 10}) == EGridCursor::Resize ? "resize " : "";
        harness.Press(from, 10);
        harness.Press(to / 2, 10, GridMouse::c_move);
        harness.Press(to, 10, GridMouse::c_move);
        EXPECT_EQ(harness.TakeChanges(), "") << "not yet";
        harness.Press(to, 10, GridMouse::c_leftUp);
        harness.Press(5, 50, GridMouse::c_move);
        seen += harness.TakeChanges() + std::to_string(harness.grid->GetColumnWidth(0)) + " ";
        EXPECT_EQ(seen + std::to_string(harness.grid->GetColumnWidth(1)), after) << "released";
    }
}

TEST(GridCtrl, ColumnsAreFittedToTheirTexts)
{
    CGridHarness harness;
    harness.grid->AddRow().Emplace<CGridItem>(u"a long text in the first cell");
    for (const char* const told : {"0:244 ", ""}) {
        harness.Press(harness.grid->GetColumnWidth(0), 10, GridMouse::c_leftDoubleClick);
        EXPECT_EQ(harness.TakeChanges(), told);
    }
    EXPECT_EQ(harness.grid->GetColumnWidth(0), 29 * 8 + 8 + 4);
    harness.grid->SetColumnWidth(1, 50);
    harness.grid->FitColumns();
    harness.grid->SetColumnWidth(0, 50);
    EXPECT_EQ(harness.TakeChanges(), "") << "the program's own";
    harness.grid->OnFitColumns();
    EXPECT_EQ(harness.TakeChanges(), "0:244 ");
}

TEST(GridCtrl, AHiddenColumnIsOpenedBeforeTheOneBesideIt)
{
    CGridHarness harness;
    harness.grid->SetColumnWidth(1, 0);
    harness.Press(101, 10);
    harness.Press(130, 10, GridMouse::c_move);
    EXPECT_EQ(harness.grid->GetColumnWidth(1), 29);
    harness.destroyOnChange = true;
    harness.grid->OnFitColumns();
    EXPECT_EQ(harness.TakeChanges(), "0:44 ") << "destroyed";
}

TEST(GridCtrl, AViewThatGoesLeavesTheGridWithout)
{
    CGridHarness harness;
    harness.grid->AddRow().Emplace<CGridItem>(u"text");
    {
        CMemoryGridView second;
        EXPECT_TRUE(harness.grid->BeginEdit());
        harness.grid->SetView(&second);
        EXPECT_FALSE(harness.grid->IsEditing());
        EXPECT_EQ(harness.view.GetControl(), nullptr);
        EXPECT_TRUE(harness.grid->BeginEdit());
    }
    EXPECT_FALSE(harness.grid->GetView() || harness.grid->IsEditing() || harness.grid->BeginEdit());
    harness.grid->FitColumns();
    EXPECT_EQ(harness.grid->GetColumnWidth(0), 100);
}

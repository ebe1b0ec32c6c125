#include "qt/grid/GridWidget.h"

#include "output/grid/GridButtonItem.h"
#include "output/grid/GridCheckItem.h"
#include "output/grid/GridDblSpinItem.h"
#include "output/grid/GridListItem.h"
#include "output/grid/GridSetupItem.h"
#include "platform/memory/MemoryMessageBoxService.h"
#include "platform/MessageBoxService.h"
#include "platform/MessageLoop.h"
#include "tests/qt/GridHarness.h"

#include <stdexcept>

using namespace CommonUI;

namespace
{

// A grid with a row for every kind of item in its second column.
class GridWidget : public testing::Test
{
public:
    enum ERow { Setup, Check, Button, Text, Masked, Spin, List };

    GridWidget()
    {
        Grid().AddColumn({u"Name", 100});
        Grid().AddColumn({u"Value", 150});
        Grid().SetChangeCallback(*this, &GridWidget::OnChange);
        Grid().SetColumnWidthCallback(*this, &GridWidget::OnWidth);
        Add<CGridSetupItem>(true).SetCallback(*this, &GridWidget::OnSetUp);
        Add<CGridCheckItem>(0, 0);
        Add<CGridButtonItem>(u"Go", 400, ~0U).SetCallback(*this, &GridWidget::OnButton);
        Add<CGridItem>(u"old");
        Add<CGridItem>(CGridValue(u"A-00"), 0,
                       SGridEditRules{.mask = u"a-dd", .validCharacters = u"ABC-0123"});
        Add<CGridDblSpinItem>(2.5).EnableSpinControl(true, 0, 4);
        Add<CGridListItem>().SetOptions({u"nm", u"mm", u"\u00B5m"});
    }

    CGridCtrl& Grid() const { return m_shown.grid->GetGrid(); }
    template<class TItem, class... TArgs>
    TItem& Add(TArgs&&... arguments)
    {
        CGridRow& row = Grid().AddRow();
        row.Emplace<CGridItem>(u"name").SetFlag(CGridItem::ReadOnly);
        TItem& item = row.Emplace<TItem>(std::forward<TArgs>(arguments)...);
        item.SetId(static_cast<int>(Grid().GetRowCount()) - 1);
        return item;
    }
    std::shared_ptr<CGridItem> Item(ERow row) { return Grid().GetItem({static_cast<std::size_t>(row), 1}); }
    QRect RectOf(ERow row)
    {
        const SRect rect = Grid().GetItemRect(*Item(row));
        return {rect.left, rect.top, rect.GetWidth(), rect.GetHeight()};
    }
    void ClickArrow(ERow row) { m_shown.Click(RectOf(row).topRight() + QPoint(-5, 5)); }
    void Select(ERow row) { Grid().SelectCell({static_cast<std::size_t>(row), 1}); }
    std::size_t SelectedRow() { return Grid().GetSelection().GetFocus().row; }
    template<class TEditor>
    TEditor* Editor()
    {
        for (TEditor* const editor : m_shown.View().findChildren<TEditor*>())
            if (editor->isVisible() && editor->parentWidget() == &m_shown.View())
                return editor;
        return nullptr;
    }
    // The text of an item after what was done, the changes that were told, and whether it beeped.
    std::string After(ERow row)
    {
        QCoreApplication::processEvents();
        EXPECT_FALSE(Grid().IsEditing());
        const bool beeped = m_boxes.GetBeeps().size() > std::exchange(m_beeps, m_boxes.GetBeeps().size());
        return Item(row)->FormatItem().ToUtf8() + std::exchange(m_changes, {}) + (beeped ? "!" : "");
    }

    void OnChange(CGridItem&, int id) { Call(" " + std::to_string(id)); }
    void OnWidth(std::size_t column, int) { Call(" width " + std::to_string(column)); }
    void OnSetUp(CGridSetupItem&) { Call(" set-up"); }
    void OnButton(CGridButtonItem&) { Call(" button"); }
    void Call(const std::string& what)
    {
        m_changes += what;
        if (m_deletes)
            delete m_shown.grid;
        if (m_throws)
            throw std::runtime_error("callback");
    }

    CMemoryMessageBoxService m_boxes;
    CServiceScope<CMessageBoxService> m_boxesScope{m_boxes};
    SShownGrid<CGridCtrlWidget> m_shown;
    std::string m_changes;
    std::size_t m_beeps = 0;
    bool m_deletes = false;
    bool m_throws = false;
};

} // namespace

TEST_F(GridWidget, MouseAndKeysReachTheItems)
{
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
        m_shown.Click(RectOf(Setup).topLeft() + QPoint(2, 2), button);
    m_shown.Click(RectOf(Button).center());
    Type("Return");
    ClickArrow(Setup);
    Select(Check);
    Type("Space");
    EXPECT_EQ(m_changes, " 0 0 button button set-up 1") << "the middle button does nothing";
    const std::pair<QPoint, Qt::CursorShape> pointers[] = {{RectOf(Button).center(), Qt::PointingHandCursor},
                                                           {{100, 5}, Qt::SplitHCursor}};
    for (const auto& [point, shape] : pointers) {
        m_shown.Move(point, Qt::NoButton);
        EXPECT_EQ(m_shown.View().cursor().shape(), shape);
    }
}

TEST_F(GridWidget, EditorsEndByKeys)
{
    const std::tuple<ERow, const char*, const char*> cases[] = {
        {Text, "new Return", "new 3"},   {Text, "other Esc", "new"},     {Text, "next Tab Esc", "next 3"},
        {Masked, "B12 Enter", "B-12 4"}, {Masked, "Z99 Return", "B-12"}, {Spin, "3.25 Return", "3.25 5"},
        {Spin, "x Return", "3.25!"},
    };
    for (const auto& [row, keys, after] : cases) {
        Select(row);
        Type(keys);
        EXPECT_EQ(After(row), after);
        EXPECT_EQ(SelectedRow(), row + (std::string(keys).find("Tab") == std::string::npos ? 0U : 1U))
            << keys;
        EXPECT_TRUE(m_shown.grid->hasFocus());
    }
}

TEST_F(GridWidget, EditorsTakeTheTextWhenTheyAreLeft)
{
    QLineEdit other(&m_shown.window);
    other.show();
    const std::pair<FAct, const char*> leaves[] = {
        {[&] { other.setFocus(); }, "1 3"},
        {[&] { m_shown.Click(RectOf(Setup).center()); }, "2 3"},
        {[&] { m_shown.grid->verticalScrollBar()->setValue(7); }, "3 3"},
    };
    m_shown.grid->resize(400, 100);
    for (const auto& [leave, after] : leaves) {
        Select(Text);
        m_shown.grid->setFocus();
        Type("F2");
        Type(std::string(after, 1).c_str());
        leave();
        EXPECT_EQ(After(Text), after);
    }
    EXPECT_EQ(Grid().GetScrollTop(), 7);
}

TEST_F(GridWidget, EditorsStayWithTheirCells)
{
    Select(Text);
    Type("F2 Down");
    EXPECT_EQ(SelectedRow(), std::size_t{Text}) << "the editor's key, not the grid's";
    QLineEdit* const editor = Editor<QLineEdit>();
    Send(*editor, QFocusEvent(QEvent::FocusOut, Qt::PopupFocusReason));
    EXPECT_TRUE(Grid().IsEditing()) << "the context menu of the editor";
    Grid().SetColumnWidth(0, 130);
    EXPECT_EQ(editor->x(), RectOf(Text).x() + 2);
    Grid().RemoveAllRows();
    EXPECT_FALSE(editor->isVisible());
}

TEST_F(GridWidget, ArrowsOfNumbersStep)
{
    ClickArrow(Spin);
    auto* const editor = Editor<QLineEdit>();
    ASSERT_TRUE(editor);
    const auto arrows = editor->findChildren<QToolButton*>();
    ASSERT_EQ(arrows.size(), 2);
    std::string texts;
    const auto step = [&](const FAct& act) {
        act();
        texts += editor->text().toStdString() + ' ';
    };
    for (QToolButton* const arrow : arrows) {
        EXPECT_GE(arrow->height(), editor->height()) << "not one above the other";
        step([&] { QTest::mouseClick(arrow, Qt::LeftButton); });
        step([] { Type("Down"); });
    }
    EXPECT_EQ(texts, "3.5 2.5 1.5 0.5 ");
    Type("Down Return");
    EXPECT_EQ(After(Spin), "0 5");
}

TEST_F(GridWidget, ListsDropDown)
{
    const std::tuple<FAct, Qt::Key, Qt::Key, const char*> cases[] = {
        {[] { Type("Return"); }, Qt::Key_End, Qt::Key_Return, "\u00B5m 6"},
        {[] { Type("Space"); }, Qt::Key_Up, Qt::Key_Return, "mm 6"},
        {[&] { ClickArrow(List); }, Qt::Key_Up, Qt::Key_Escape, "mm"},
        {[] { Type("n"); }, Qt::Key_F5, Qt::Key_Return, "nm 6"},
    };
    for (const auto& [open, key, end, after] : cases) {
        Select(List);
        open();
        auto* const box = Editor<QComboBox>();
        ASSERT_TRUE(box && box->view()->isVisible()) << after << key;
        QTest::keyClick(box->view(), key);
        QTest::keyClick(box->view(), end);
        EXPECT_EQ(After(List), after);
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_shown.grid->hasFocus(); }));
    }
}

TEST_F(GridWidget, CallbacksMayDestroyTheWidget)
{
    using FActOn = std::function<void(GridWidget&)>;
    const FActOn press = [](auto& test) {
        QAccessibleInterface* const check = Reader(*test.m_shown.grid).child(2 * Check + 1);
        check->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    };
    const FActOn choose = [](auto& test) {
        test.Select(List);
        Type("n");
        QTest::keyClick(test.template Editor<QComboBox>()->view(), Qt::Key_Return);
    };
    const std::pair<bool, FActOn> acts[] = {
        {false, [](auto& test) { test.m_shown.Press(test.RectOf(Button).center()); }},
        {false, press},
        {true, press},
        {false,
         [](auto& test) {
             test.m_shown.Drag({99, 5}, {120, 5});
         }},
        {false, [](auto& test) { test.m_shown.grid->GetFitColumnsAction().trigger(); }},
        {false, [](auto& test) { test.m_shown.grid->GetColumnActions().back()->trigger(); }},
        {true, [](auto&) { Type("Return"); }},
        {true, [](auto& test) { test.m_shown.window.setFocus(); }},
        {true, [](auto& test) { test.m_shown.grid->setFocus(); }},
        {true, [](auto& test) { test.m_shown.grid->verticalScrollBar()->setValue(7); }},
        {false, choose},
    };
    for (const auto& [typed, act] : acts) {
        struct STest : GridWidget {
            void TestBody() override {}
        } test;
        test.m_deletes = true;
        test.m_shown.grid->resize(400, 100);
        if (typed)
            test.Select(Text), Type("x");
        act(test);
        QCoreApplication::processEvents();
        EXPECT_FALSE(test.m_shown.grid) << &act - &acts[0].second;
    }
}

TEST_F(GridWidget, AnExceptionOfACallbackReachesTheLoop)
{
    m_throws = true;
    GetMessageLoop().Post([this] { m_shown.Click(RectOf(Button).center()); });
    EXPECT_THROW(GetMessageLoop().RunUntil([] { return false; }), std::runtime_error);
}

TEST_F(GridWidget, ViewAndGridGoInEitherOrder)
{
    auto grid = std::make_unique<CGridCtrl>();
    grid->AddColumn({u"Value", 100});
    grid->AddRow().Emplace<CGridItem>(u"text");
    CGridWidget widget;
    widget.Attach(*grid);
    EXPECT_TRUE(grid->BeginEdit());
    grid.reset();
    EXPECT_EQ(widget.GetControl(), nullptr);
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, {}, {10, 30});
    QTest::keyClick(&widget, Qt::Key_Down);
    widget.grab();
}

TEST_F(GridWidget, ColumnsFollowTheirEdgesAndTheFont)
{
    m_shown.Drag({99, 5}, {149, 5});
    EXPECT_EQ(Grid().GetColumnWidth(0), 150);
    QTest::mouseDClick(&m_shown.View(), Qt::LeftButton, {}, {149, 5});
    const int fitted = Grid().GetColumnWidth(0);
    EXPECT_LT(fitted, 100);
    QAction zoom; // of the window, with the same key
    zoom.setShortcut(Qt::CTRL | Qt::Key_Plus);
    m_shown.grid->window()->addAction(&zoom);
    Type("Ctrl++");
    EXPECT_EQ(m_changes, " width 0 width 0 width 1");
    Grid().SetColumnWidth(1, 600);
    Grid().ScrollTo(600, 0);
    const int edge = m_shown.View().width();
    m_shown.Press({edge - 1, 5});
    for (const int to : {2, 3, 4, 5})
        m_shown.Move({edge - to, 5});
    EXPECT_NEAR(Grid().GetColumnWidth(1), 595, 1) << "the edge does not run away from the pointer";
    m_shown.Move({0, 5});
    EXPECT_FALSE(m_shown.grid->horizontalScrollBar()->maximum());
    QFont font = m_shown.grid->font();
    font.setPointSizeF(font.pointSizeF() * 2);
    const int height = Grid().GetRowHeight();
    m_shown.grid->setFont(font);
    EXPECT_GT(Grid().GetRowHeight(), height * 3 / 2);
    EXPECT_GT(Grid().GetColumnWidth(0), fitted * 3 / 2);
}

TEST_F(GridWidget, ADialogThatComesUpHasThePressForgotten)
{
    m_shown.Press({99, 5});
    m_shown.Move({98, 5});
    QDialog modal;
    modal.setModal(true);
    modal.show();
    modal.hide();
    m_shown.Move({149, 5});
    EXPECT_EQ(Grid().GetColumnWidth(0), 99) << "the dialog got the release, and the edge follows no more";
    QCoreApplication::processEvents();
    EXPECT_EQ(m_changes, " width 0");
}

TEST_F(GridWidget, ScreenReadersFindATable)
{
    QLabel label(QStringLiteral("&Items:"), &m_shown.window);
    label.setBuddy(m_shown.grid);
    Grid().GetRows()[Setup]->AddSubRow();
    QAccessibleInterface& reader = Reader(*m_shown.grid);
    QAccessibleTableInterface& table = *reader.tableInterface();
    EXPECT_EQ(reader.role(), QAccessible::Table);
    EXPECT_EQ(reader.text(QAccessible::Name), QStringLiteral("Items:"));
    EXPECT_EQ(table.rowCount(), 8);
    EXPECT_EQ(table.columnDescription(1), QStringLiteral("Value"));
    EXPECT_EQ(table.cellAt(9, 0), nullptr);
    Grid().SelectCell({6, 1});
    QAccessibleInterface* const cell = reader.focusChild();
    ASSERT_TRUE(cell);
    EXPECT_EQ(cell->tableCellInterface()->rowIndex(), 6);
    EXPECT_EQ(reader.indexOfChild(cell), 13);
    EXPECT_EQ(reader.child(13), cell);
    EXPECT_EQ(reader.childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
    QAccessibleInterface* const check = reader.child(5);
    std::string said = Speak(*cell) + ", " + Speak(*table.cellAt(0, 0)) + ", " + Speak(*check);
    check->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    said += ", " + Speak(*check);
    Grid().RemoveAllRows();
    EXPECT_EQ(said + Speak(*cell), "2.5 (focused selected editable), name (readOnly expanded), "
                                   "not checked (editable), checked (focused selected editable)");
    EXPECT_FALSE(cell->isValid());
}

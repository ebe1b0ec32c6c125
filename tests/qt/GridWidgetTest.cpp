#include "qt/grid/GridWidget.h"

#include "output/grid/GridButtonItem.h"
#include "output/grid/GridCheckItem.h"
#include "output/grid/GridDblSpinItem.h"
#include "output/grid/GridListItem.h"
#include "output/grid/GridSetupItem.h"
#include "platform/MemoryMessageBoxService.h"
#include "platform/MessageBoxService.h"
#include "platform/MessageLoop.h"
#include "qt/QtText.h"

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
    void Select(ERow row) { Grid().SelectCell({static_cast<std::size_t>(row), 1}); }
    template<class TEditor>
    TEditor* Editor()
    {
        for (TEditor* const editor : m_shown.View().findChildren<TEditor*>())
            if (editor->isVisible() && editor->parentWidget() == &m_shown.View())
                return editor;
        return nullptr;
    }
    // The text of an item after what was done, with the changes that were told.
    std::string After(ERow row)
    {
        std::string text = Item(row)->FormatItem().ToUtf8() + std::exchange(m_changes, {});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return text;
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
    bool m_deletes = false;
    bool m_throws = false;
};

} // namespace

TEST_F(GridWidget, CheckBoxesHearOfBothButtonsAndTheSpaceBar)
{
    const QPoint box = RectOf(Setup).topLeft() + QPoint(2, 2);
    for (const auto& [button, toggles] :
         {std::pair(Qt::LeftButton, true), {Qt::RightButton, true}, {Qt::MiddleButton, false}}) {
        m_shown.Click(box, button);
        EXPECT_EQ(std::exchange(m_changes, {}), toggles ? " 0" : "") << button;
    }
    Select(Check);
    m_shown.Key(Qt::Key_Space);
    EXPECT_EQ(m_changes, " 1");
}

TEST_F(GridWidget, ButtonsCallAndShowAHand)
{
    m_shown.Click(RectOf(Button).center());
    m_shown.Key(Qt::Key_Return);
    m_shown.Click(RectOf(Setup).topRight() + QPoint(-5, 5));
    EXPECT_EQ(m_changes, " button button set-up");
    EXPECT_TRUE(m_shown.grid->hasFocus());
    m_shown.Move(RectOf(Button).center(), Qt::NoButton);
    EXPECT_EQ(m_shown.View().cursor().shape(), Qt::PointingHandCursor);
    m_shown.Move({100, 5}, Qt::NoButton);
    EXPECT_EQ(m_shown.View().cursor().shape(), Qt::SplitHCursor);
}

TEST_F(GridWidget, EditorsEndByKeys)
{
    const std::tuple<ERow, const char*, Qt::Key, const char*, unsigned int> cases[] = {
        {Text, "new", Qt::Key_Return, "new 3", 0},  {Text, "other", Qt::Key_Escape, "new", 0},
        {Text, "tab", Qt::Key_Tab, "tab 3", 0},     {Masked, "B12", Qt::Key_Enter, "B-12 4", 0},
        {Masked, "Z99", Qt::Key_Return, "B-12", 0}, {Spin, "3.25", Qt::Key_Return, "3.25 5", 0},
        {Spin, "x", Qt::Key_Return, "3.25", 1},
    };
    // `after`: the text, and the changes that were told.
    for (const auto& [row, typed, end, after, beeps] : cases) {
        const std::size_t beepsBefore = m_boxes.GetBeeps().size();
        Select(row);
        QTest::keyClick(m_shown.grid, typed[0]);
        auto* const editor = Editor<QLineEdit>();
        ASSERT_TRUE(editor && editor->hasFocus()) << typed;
        QTest::keyClicks(editor, QString::fromUtf8(typed + 1));
        QTest::keyClick(editor, end);
        const bool next = Editor<QLineEdit>() != nullptr && Grid().GetSelection().GetFocus().row == row + 1U;
        EXPECT_EQ(next, end == Qt::Key_Tab);
        if (next)
            QTest::keyClick(Editor<QLineEdit>(), Qt::Key_Escape);
        EXPECT_EQ(After(row), after) << typed;
        EXPECT_EQ(m_boxes.GetBeeps().size() - beepsBefore, beeps) << typed;
        EXPECT_TRUE(m_shown.grid->hasFocus());
    }
}

TEST_F(GridWidget, EditorsTakeTheTextWhenTheyAreLeft)
{
    QLineEdit other(&m_shown.window);
    other.show();
    const std::function<void()> leaves[] = {
        [&] { other.setFocus(); },
        [&] { m_shown.Click(RectOf(Setup).center()); },
        [&] { m_shown.grid->verticalScrollBar()->setValue(7); },
    };
    m_shown.grid->resize(400, 100);
    int count = 0;
    for (const auto& leave : leaves) {
        Select(Text);
        m_shown.grid->setFocus();
        m_shown.Key(Qt::Key_F2);
        const QString text = QString::number(++count);
        QTest::keyClicks(Editor<QLineEdit>(), text);
        leave();
        QCoreApplication::processEvents();
        EXPECT_EQ(After(Text), text.toStdString() + " 3");
        EXPECT_FALSE(Grid().IsEditing());
    }
    EXPECT_EQ(Grid().GetScrollTop(), 7);

    Select(Text);
    m_shown.Key(Qt::Key_F2);
    QLineEdit* const editor = Editor<QLineEdit>();
    QTest::keyClick(editor, Qt::Key_Down);
    EXPECT_EQ(Grid().GetSelection().GetFocus().row, std::size_t{Text}) << "the editor's key, not the grid's";
    QFocusEvent popup(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(editor, &popup);
    EXPECT_TRUE(Grid().IsEditing()) << "the context menu of the editor";
    Grid().SetColumnWidth(0, 130);
    EXPECT_EQ(editor->x(), RectOf(Text).x() + 2) << "follows its cell";
    Grid().RemoveAllRows();
    EXPECT_FALSE(editor->isVisible());
}

TEST_F(GridWidget, ArrowsOfNumbersStep)
{
    m_shown.Click(RectOf(Spin).topRight() + QPoint(-5, 5));
    auto* const editor = Editor<QLineEdit>();
    ASSERT_TRUE(editor);
    const auto arrows = editor->findChildren<QToolButton*>();
    ASSERT_EQ(arrows.size(), 2);
    for (const QToolButton* const arrow : arrows)
        EXPECT_GE(arrow->height(), editor->height()) << "not one above the other";
    QTest::mouseClick(arrows[0], Qt::LeftButton);
    EXPECT_EQ(editor->text(), QStringLiteral("3.5"));
    QTest::keyClick(editor, Qt::Key_Down);
    QTest::mouseClick(arrows[1], Qt::LeftButton);
    QTest::keyClick(editor, Qt::Key_Down);
    EXPECT_EQ(editor->text(), QStringLiteral("0.5"));
    QTest::keyClick(editor, Qt::Key_Down);
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_EQ(After(Spin), "0 5");
}

TEST_F(GridWidget, ListsDropDown)
{
    const std::tuple<std::function<void()>, Qt::Key, Qt::Key, const char*> cases[] = {
        {[&] { m_shown.Key(Qt::Key_Return); }, Qt::Key_End, Qt::Key_Return, "\u00B5m 6"},
        {[&] { m_shown.Key(Qt::Key_Space); }, Qt::Key_Up, Qt::Key_Return, "mm 6"},
        {[&] { m_shown.Click(RectOf(List).topRight() + QPoint(-5, 5)); }, Qt::Key_Up, Qt::Key_Escape, "mm"},
        {[&] { QTest::keyClick(m_shown.grid, 'n'); }, Qt::Key_F5, Qt::Key_Return, "nm 6"},
    };
    for (const auto& [open, key, end, after] : cases) {
        Select(List);
        open();
        auto* const box = Editor<QComboBox>();
        ASSERT_TRUE(box && box->view()->isVisible()) << after << key;
        QTest::keyClick(box->view(), key);
        QTest::keyClick(box->view(), end);
        QCoreApplication::processEvents();
        EXPECT_EQ(After(List), after);
        EXPECT_FALSE(Grid().IsEditing());
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_shown.grid->hasFocus(); }));
    }
}

TEST_F(GridWidget, CallbacksMayDestroyTheWidget)
{
    const auto press = [](GridWidget& test) {
        QAccessibleInterface* const table = QAccessible::queryAccessibleInterface(test.m_shown.grid);
        table->child(2 * Check + 1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    };
    const std::pair<bool, std::function<void(GridWidget&)>> acts[] = {
        {false, [](GridWidget& test) { test.m_shown.Press(test.RectOf(Button).center()); }},
        {false, press},
        {true, press},
        {false,
         [](GridWidget& test) {
             test.m_shown.Drag({99, 5}, {120, 5});
         }},
        {false, [](GridWidget& test) { test.m_shown.grid->GetFitColumnsAction().trigger(); }},
        {true, [](GridWidget& test) { QTest::keyClick(test.Editor<QLineEdit>(), Qt::Key_Return); }},
        {true, [](GridWidget& test) { test.m_shown.window.setFocus(); }},
        {true, [](GridWidget& test) { test.m_shown.grid->setFocus(); }},
        {true, [](GridWidget& test) { test.m_shown.grid->verticalScrollBar()->setValue(7); }},
        {false,
         [](GridWidget& test) {
             test.Select(List), QTest::keyClick(test.m_shown.grid, 'n');
             QTest::keyClick(test.Editor<QComboBox>()->view(), Qt::Key_Return);
         }},
    };
    for (const auto& [typed, act] : acts) {
        struct STest : GridWidget {
            void TestBody() override {}
        } test;
        test.m_deletes = true;
        test.m_shown.grid->resize(400, 100);
        if (typed)
            test.Select(Text), QTest::keyClick(test.m_shown.grid, 'x');
        act(test);
        QCoreApplication::processEvents();
        EXPECT_FALSE(test.m_shown.grid);
    }
}

TEST_F(GridWidget, AWindowThatIsDestroyedWhileTheUserTypesIsNotCalled)
{
    // Its part of the object is gone when Qt takes the focus away.
    struct SWindow : QWidget {
        void OnChange(CGridItem&, int) { *changes += "called"; }
        CGridCtrlWidget* grid = new CGridCtrlWidget(this);
        std::string* changes = nullptr;
    };
    auto window = std::make_unique<SWindow>();
    window->changes = &m_changes;
    CGridCtrl& grid = window->grid->GetGrid();
    grid.SetChangeCallback(*window, &SWindow::OnChange);
    grid.AddColumn({u"Value", 100});
    grid.AddRow().Emplace<CGridItem>(u"old");
    window->show();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    window->grid->setFocus();
    QTest::keyClick(window->grid, 'x');
    ASSERT_TRUE(grid.IsEditing());
    window.reset();
    EXPECT_EQ(m_changes, "");
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
    m_shown.Key(Qt::Key_Plus, Qt::ControlModifier);
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
    QAccessibleInterface* const table = QAccessible::queryAccessibleInterface(m_shown.grid);
    EXPECT_EQ(table->role(), QAccessible::Table);
    EXPECT_EQ(table->text(QAccessible::Name), QStringLiteral("Items:"));
    EXPECT_EQ(table->tableInterface()->rowCount(), 8);
    EXPECT_EQ(table->tableInterface()->columnDescription(1), QStringLiteral("Value"));
    Grid().SelectCell({6, 1});
    QAccessibleInterface* const cell = table->focusChild();
    ASSERT_TRUE(cell);
    EXPECT_EQ(cell->text(QAccessible::Name), QStringLiteral("2.5"));
    EXPECT_EQ(cell->tableCellInterface()->rowIndex(), 6);
    EXPECT_EQ(table->indexOfChild(cell), 13);
    EXPECT_EQ(table->child(13), cell);
    EXPECT_TRUE(cell->state().focused && cell->state().selected && cell->state().editable);
    EXPECT_EQ(table->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
    const QAccessible::State name = table->tableInterface()->cellAt(0, 0)->state();
    EXPECT_TRUE(name.expanded && name.readOnly && !name.focused);
    QAccessibleInterface* const check = table->child(5);
    EXPECT_EQ(check->text(QAccessible::Name), QStringLiteral("not checked"));
    check->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(check->text(QAccessible::Name), QStringLiteral("checked"));
    EXPECT_EQ(table->focusChild(), check);
    EXPECT_EQ(table->tableInterface()->cellAt(9, 0), nullptr);
    Grid().RemoveAllRows();
    EXPECT_FALSE(cell->isValid());
    EXPECT_EQ(cell->text(QAccessible::Name), QString());
}

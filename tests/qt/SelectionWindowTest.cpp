#include "qt/selection/SelectionWindow.h"

#include "dialogs/selection/InputsDlg.h"
#include "platform/memory/MemoryHelpService.h"
#include "qt/dialogs/FormatSpecifierWindow.h"
#include "qt/edits/NumericEditWidget.h"
#include "qt/QtText.h"
#include "qt/selection/OptionsWindow.h"
#include "qt/selection/QtSelectionDlg.h"
#include "tests/qt/WidgetTesting.h"

#include <memory>

using namespace CommonUI;

namespace
{

using ETab = ESelectionTab;

// The dialog of an analysis over a window of the application, open.
class SelectionWindow : public testing::Test
{
public:
    CSelectionWindow& Window() { return *m_dialog->GetWindow(); }
    QTreeView& Tree() { return *Window().GetTree(m_dialog->GetCurrentTab()); }
    void Open(EAnalysis analysis)
    {
        m_dialog = std::make_unique<CQtSelectionDlg>(m_manager, analysis, m_parent.get());
        m_dialog->SetGrainSettings({});
        m_dialog->Create();
        Activate(Window());
    }
    QLabel& Remark() { return *Window().findChildren<QLabel*>().last(); }
    // The row of the current tab that begins with a text.
    QModelIndex Find(const QString& text, int column = 0)
    {
        const auto found = Tree().model()->match(Tree().model()->index(0, 0), Qt::DisplayRole, text, 1,
                                                 Qt::MatchStartsWith | Qt::MatchRecursive);
        return found.isEmpty() ? QModelIndex() : found[0].siblingAtColumn(column);
    }
    CAnalysisPreferencesManager m_manager;
    std::unique_ptr<QWidget> m_parent = std::make_unique<QWidget>();
    std::unique_ptr<CQtSelectionDlg> m_dialog;
};

} // namespace

TEST_F(SelectionWindow, IsUsedByKeyboardAlone)
{
    Open(EAnalysis::Roughness);
    Type("sq Down Down Down Space"); // found: a group, one in it, and Sq
    EXPECT_FALSE(Find("Sq").data(Qt::CheckStateRole).toBool());
    EXPECT_EQ(Tree().currentIndex(), Find("Sq"));
    Type("F2");
    QTest::qWait(0);
    auto* const units = Tree().findChild<QComboBox*>();
    ASSERT_NE(units, nullptr);
    EXPECT_EQ(units->currentText(), "nm");
    QTest::keyClick(units->view(), Qt::Key_Down);
    QTest::keyClick(units->view(), Qt::Key_Return);
    EXPECT_EQ(Find("Sq", 1).data(), QStringLiteral("µm"));
    Activate(Window()); // as a window manager does when one above it closes
    WhenShown<CFormatSpecifierWindow>([](CFormatSpecifierWindow& window) {
        Activate(window);
        Type("Alt+C 3 Alt+F Return"); // presses OK a little later
    });
    Type("Alt+F");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Find("Sq", 2).data().toString() == "3 Digits"; }));
    Activate(Window());
    WhenShown<COptionsWindow>([](COptionsWindow& window) {
        Activate(window);
        Type("Alt+T");
        auto* const list = qobject_cast<QComboBox*>(window.focusWidget());
        QTest::keyClicks(list, "Sch");
        Type("Tab 1 2 0");
        window.accept();
        EXPECT_TRUE(window.isVisible()) << "no percentage";
        Type("1 2 Return"); // in place of what is wrong, which is selected
    });
    Type("Alt+A");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Find("Sch(12").isValid(); }));
    EXPECT_EQ(Window().GetSearchField().text().toStdString(), "") << "what was made is shown";
    EXPECT_EQ(Tree().currentIndex(), Find("Sch(12"));
    Activate(Window());
    Type("Del");
    EXPECT_FALSE(Find("Sch(12").isValid());
    Type("Ctrl+Tab Ctrl+Tab");
    EXPECT_EQ(m_dialog->GetTabs()[m_dialog->GetCurrentTab()].kind, ETab::Statistics);
    Type("Return");
    EXPECT_FALSE(m_dialog->IsOpen());
    const CParameter sq = m_manager.GetData(EAnalysis::Roughness).GetParameter(1);
    EXPECT_FALSE(sq.IsOn());
    EXPECT_EQ(sq.GetUnitFactor(), CUnit::EUnitFactor::Micro);
    EXPECT_EQ(sq.GetFloatFormat().count, 3);
}

TEST_F(SelectionWindow, TellsScreenReadersWhatIsThere)
{
    Open(EAnalysis::Roughness);
    EXPECT_EQ(Speak(Reader(Tree())), "Parameters");
    EXPECT_EQ(Reader(Tree()).role(), QAccessible::Tree);
    EXPECT_EQ(Reader(Window().GetSearchField()).relations(QAccessible::Label).size(), 1);
    QAccessibleInterface* sa = nullptr;
    QAccessibleInterface* height = nullptr;
    for (int i = 0; i < Reader(Tree()).childCount(); ++i) {
        QAccessibleInterface* const cell = Reader(Tree()).child(i);
        const QString name = cell ? cell->text(QAccessible::Name) : QString();
        if (name.startsWith("Sa,"))
            sa = cell;
        if (name.startsWith("Height"))
            height = cell;
    }
    ASSERT_TRUE(sa && height);
    EXPECT_EQ(sa->role(), QAccessible::TreeItem);
    EXPECT_TRUE(sa->state().checkable && sa->state().checked);
    EXPECT_TRUE(height->state().checkable && height->state().expandable);
    EXPECT_EQ(sa->text(QAccessible::Description),
              "Sa, Arithmetical Mean Height\nStandard: VORN Classic\nUnit: nm");
    Window().GetTabWidget().setCurrentIndex(5);
    for (QWidget* const field : Window().GetTabWidget().currentWidget()->findChildren<QWidget*>())
        if (qobject_cast<QLineEdit*>(field) || qobject_cast<QComboBox*>(field)) {
            EXPECT_EQ(Reader(*field).relations(QAccessible::Label).size(), 1);
        }
}

TEST_F(SelectionWindow, ShowsWhatAnotherWindowChangesAndKeepsTheUsersPlace)
{
    Open(EAnalysis::Roughness);
    const QModelIndex group = Find("Height Parameters");
    Tree().collapse(group);
    Tree().setCurrentIndex(Find("Sal"));
    m_manager.SetDataParameterOn(EAnalysis::Roughness, 1, false);
    EXPECT_EQ(Remark().text(), "Changed by another window: 1 taken over, 0 left as you have changed them.");
    EXPECT_FALSE(Find("Sq").data(Qt::CheckStateRole).toBool());
    EXPECT_TRUE(Find("Sq").data(Qt::FontRole).value<QFont>().italic());
    EXPECT_FALSE(Tree().isExpanded(Find("Height Parameters")));
    EXPECT_TRUE(Tree().isExpanded(Find("Spatial Parameters")));
    EXPECT_EQ(Tree().currentIndex(), Find("Sal"));
    EXPECT_EQ(Tree().selectionModel()->selectedRows().size(), 1);
}

TEST_F(SelectionWindow, LeadsToWhatIsWrong)
{
    Open(EAnalysis::Roughness);
    Window().GetTabWidget().setCurrentIndex(5);
    auto* const count = Window().GetTabWidget().currentWidget()->findChild<QLineEdit*>();
    count->selectAll();
    QTest::keyClicks(count, "0");
    Window().GetTabWidget().setCurrentIndex(0);
    Window().accept();
    EXPECT_TRUE(m_dialog->IsOpen());
    EXPECT_EQ(Window().focusWidget(), count);
    EXPECT_EQ(count->accessibleDescription(), "It is from 1 to 1000.");
}

TEST_F(SelectionWindow, OutlivesItsDialog)
{
    CSelectionWindow window;
    {
        CSelectionDlg dialog(m_manager, EAnalysis::Roughness);
        dialog.SetView(&window);
        dialog.Create();
        EXPECT_TRUE(window.isVisible());
    }
    EXPECT_FALSE(window.isVisible());
    window.grab();
    window.GetTree(0)->selectAll();
}

TEST_F(SelectionWindow, IsCancelledWithItsParentAndOpensHelp)
{
    CMemoryHelpService help;
    const CServiceScope<CHelpService> scope(help);
    Open(EAnalysis::Tip);
    Type("F1");
    Window().findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Help)->click();
    EXPECT_EQ(help.GetOpened(), (std::vector<unsigned int>{11159, 11159}));
    m_parent.reset();
    EXPECT_EQ(m_dialog->GetWindow(), nullptr);
    EXPECT_FALSE(m_dialog->IsOpen());
}

// "Abfall auf 20 %" has its sign at its end where everything else runs from right to left.
TEST_F(SelectionWindow, NamesRunAsTheyBegin)
{
    struct SDelegate : QStyledItemDelegate {
        using QStyledItemDelegate::initStyleOption;
    };
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QApplication::setLayoutDirection(direction);
        Open(EAnalysis::Roughness);
        QStyleOptionViewItem option;
        option.widget = &Tree();
        const auto& delegate = dynamic_cast<const QStyledItemDelegate&>(*Tree().itemDelegate());
        (delegate.*&SDelegate::initStyleOption)(&option, Find("Scl20"));
        const bool isIsolated = option.text.front() == QChar(0x2068) && option.text.back() == QChar(0x2069);
        EXPECT_EQ(isIsolated, direction == Qt::RightToLeft) << option.text.toStdString();
        m_dialog.reset();
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

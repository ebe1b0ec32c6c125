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

// A window over another one counts as active when that one is.
void ActivateOver(QWidget& window)
{
    Activate(window);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
}

// The lines of the first text that are not where they are in the other.
std::string Differences(const QString& one, const QString& other)
{
    const QStringList lines = one.split(u'\n');
    const QStringList others = other.split(u'\n');
    std::string different;
    for (qsizetype i = 0; i < std::max(lines.size(), others.size()); ++i)
        if (lines.value(i) != others.value(i))
            different += lines.value(i).toStdString() + " for " + others.value(i).toStdString() + "; ";
    return different;
}

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
    // What a reader sees of all tabs: rows with their check boxes, and the fields.
    QString Read()
    {
        QString text;
        for (int tab = 0; tab < Window().GetTabWidget().count(); ++tab) {
            Window().GetTabWidget().setCurrentIndex(tab);
            if (Window().GetTree(static_cast<std::size_t>(tab)))
                ReadRows({}, text);
            for (QWidget* const field : Window().GetTabWidget().currentWidget()->findChildren<QWidget*>())
                if (qobject_cast<QLineEdit*>(field) || qobject_cast<QComboBox*>(field) ||
                    qobject_cast<QCheckBox*>(field))
                    text += field->property("text").toString() + field->property("currentText").toString() +
                            field->property("checked").toString() + u'\n';
        }
        return text;
    }
    // Changes everything that can be changed in the current tab, as the views do for the user.
    void ChangeAll()
    {
        QWidget& page = *Window().GetTabWidget().currentWidget();
        if (Window().GetTree(m_dialog->GetCurrentTab()))
            ChangeRows({});
        for (const auto* const box : page.findChildren<QCheckBox*>())
            const_cast<QCheckBox*>(box)->click();
        for (auto* const list : page.findChildren<QComboBox*>())
            list->setCurrentIndex((list->currentIndex() + 1) % list->count());
        for (auto* const edit : page.findChildren<QLineEdit*>())
            if (edit->isEnabled() && !qobject_cast<QComboBox*>(edit->parent())) {
                edit->setFocus();
                edit->selectAll();
                QTest::keyClicks(edit, edit->text() == "7" ? "8" : "7");
            }
    }

    CAnalysisPreferencesManager m_manager;
    std::unique_ptr<QWidget> m_parent = std::make_unique<QWidget>();
    std::unique_ptr<CQtSelectionDlg> m_dialog;

private:
    void ReadRows(const QModelIndex& parent, QString& text)
    {
        for (int row = 0; row < Tree().model()->rowCount(parent); ++row) {
            const QModelIndex index = Tree().model()->index(row, 0, parent);
            text += index.data(Qt::CheckStateRole).toString();
            for (int column = 0; column < Tree().model()->columnCount(); ++column)
                text += u'|' + index.siblingAtColumn(column).data().toString();
            text += u'\n';
            ReadRows(index, text);
        }
    }
    void ChangeRows(const QModelIndex& parent)
    {
        QAbstractItemModel& model = *Tree().model();
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex index = model.index(row, 0, parent);
            const int unit = static_cast<int>(CUnit::EUnitFactor::Milli);
            if (model.rowCount(index) > 0)
                ChangeRows(index);
            else if (index.flags() & Qt::ItemIsUserCheckable)
                model.setData(index, index.data(Qt::CheckStateRole).toInt() ? Qt::Unchecked : Qt::Checked,
                              Qt::CheckStateRole);
            if (index.siblingAtColumn(1).flags() & Qt::ItemIsEditable)
                model.setData(index.siblingAtColumn(1), unit, Qt::EditRole);
        }
    }
};

} // namespace

// A walk through the windows of all analyses: what is stored is what was shown.
TEST_F(SelectionWindow, StoresWhatItShowsForEveryAnalysis)
{
    for (int analysis = 0; analysis <= static_cast<int>(EAnalysis::Measure); ++analysis) {
        Open(EAnalysis{analysis});
        const QString before = Read();
        for (int tab = 0; tab < Window().GetTabWidget().count(); ++tab) {
            Window().GetTabWidget().setCurrentIndex(tab);
            ChangeAll();
        }
        const QString changed = Read();
        EXPECT_NE(changed, before) << analysis;
        Window().accept();
        ASSERT_FALSE(m_dialog->IsOpen()) << analysis << Remark().text().toStdString();
        const SGrainThresholdSettings grains = *m_dialog->GetGrainSettings();
        Open(EAnalysis{analysis});
        m_dialog->EndDialog(CBaseDialog::c_cancel);
        m_dialog->SetGrainSettings(grains);
        m_dialog->Create();
        EXPECT_EQ(Differences(Read(), changed), "") << analysis;
    }
}

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
    ActivateOver(Window()); // as a window manager does when one above it closes
    WhenShown<CFormatSpecifierWindow>([](CFormatSpecifierWindow& window) {
        ActivateOver(window);
        Type("Alt+C 3 Alt+F Return"); // presses OK a little later
    });
    Type("Alt+F");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Find("Sq", 2).data().toString() == "3 Digits"; }));
    ActivateOver(Window());
    WhenShown<COptionsWindow>([](COptionsWindow& window) {
        ActivateOver(window);
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
    ActivateOver(Window());
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

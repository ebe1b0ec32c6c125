// A walk through the selection dialogs of all analyses, by keys and mouse: what is stored is what was shown.
#include "model/selection/SelectionOption.h"
#include "qt/dialogs/FormatSpecifierWindow.h"
#include "qt/selection/OptionsWindow.h"
#include "qt/selection/QtSelectionDlg.h"
#include "tests/qt/WidgetTesting.h"
#include "tests/TemporaryFolder.h"

#include <algorithm>
#include <memory>
#include <set>

using namespace CommonUI;

namespace
{

using ETab = ESelectionTab;
using EFormat = CParameter::EFormatSpecifier;

const QString c_entry = QStringLiteral(": "); // in the lines of entries

class SelectionWalk : public testing::TestWithParam<int>
{
protected:
    CSelectionWindow& Window() { return *m_dialog->GetWindow(); }
    const CSelectionDlg::STab& Tab() { return m_dialog->GetTabs()[m_dialog->GetCurrentTab()]; }
    QWidget& Page() { return *Window().GetTabWidget().currentWidget(); }
    QTreeView* Tree() { return Window().GetTree(m_dialog->GetCurrentTab()); }
    EAnalysis Analysis() const { return EAnalysis{GetParam()}; }

    void Open(CAnalysisPreferencesManager& manager)
    {
        m_dialog = std::make_unique<CQtSelectionDlg>(manager, Analysis());
        m_dialog->SetGrainSettings(m_grains);
        m_dialog->Create();
        Activate(Window());
    }
    template<class FAct>
    void ForEachTab(FAct act)
    {
        for (std::size_t tab = 0; tab < m_dialog->GetTabs().size(); ++tab) {
            EXPECT_EQ(m_dialog->GetCurrentTab(), tab);
            act();
            Type("Ctrl+Tab");
        }
    }

    // The rows that are open, from the top.
    std::vector<QModelIndex> Rows()
    {
        std::vector<QModelIndex> rows;
        for (QModelIndex row = Tree()->model()->index(0, 0); row.isValid(); row = Tree()->indexBelow(row))
            rows.push_back(row);
        return rows;
    }
    static bool IsEntry(const QModelIndex& row) { return row.model()->rowCount(row) == 0; }
    const CParameter& EntryOf(const QModelIndex& row)
    {
        return *Tab().rows.Get(static_cast<int>(row.internalId())).entry;
    }
    std::vector<QWidget*> Fields()
    {
        std::vector<QWidget*> fields;
        for (QWidget* const field : Page().findChildren<QWidget*>())
            if (field->isVisible() && (qobject_cast<QCheckBox*>(field) || qobject_cast<QComboBox*>(field) ||
                                       qobject_cast<QLineEdit*>(field)))
                fields.push_back(field);
        return fields;
    }
    static QString Read(const QWidget& field)
    {
        return field.property("text").toString() + u' ' + field.property("currentText").toString() + u' ' +
               field.property("checked").toString();
    }

    // What a reader sees of all tabs, line by line, with the tab in front.
    QStringList ReadAll()
    {
        QStringList lines;
        ForEachTab([&] {
            const QString name = Window().GetTabWidget().tabText(Window().GetTabWidget().currentIndex());
            for (const QModelIndex& row : Tree() ? Rows() : std::vector<QModelIndex>()) {
                QString line =
                    name + (IsEntry(row) ? c_entry : QString()) + row.data(Qt::CheckStateRole).toString();
                for (int column = 0; column < row.model()->columnCount(); ++column)
                    line += u'|' + row.siblingAtColumn(column).data().toString();
                lines += line;
            }
            for (const QWidget* const field : Fields())
                lines += name + u' ' + Read(*field);
        });
        return lines;
    }

    void ChangeRows()
    {
        Tree()->setFocus();
        for (const QModelIndex& row : Rows()) {
            if (!IsEntry(row))
                continue;
            QTest::mouseClick(Tree()->viewport(), Qt::LeftButton, {}, Middle(row));
            const QVariant before = row.data(Qt::CheckStateRole);
            Type("Space");
            EXPECT_EQ(row.data(Qt::CheckStateRole) != before, before.isValid());
            if (row.model()->columnCount() > 1 && (row.siblingAtColumn(1).flags() & Qt::ItemIsEditable))
                ChangeUnit(row.siblingAtColumn(1));
        }
    }
    QPoint Middle(const QModelIndex& cell)
    {
        Tree()->scrollTo(cell);
        return Tree()->visualRect(cell).center();
    }
    void DoubleClick(const QModelIndex& cell)
    {
        const QPoint place = Middle(cell);
        QTest::mouseClick(Tree()->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(Tree()->viewport(), Qt::LeftButton, {}, place);
    }
    void ChangeUnit(const QModelIndex& cell)
    {
        const QString before = cell.data().toString();
        Type("F2");
        QCoreApplication::processEvents();
        auto* const list = Tree()->findChild<QComboBox*>();
        ASSERT_TRUE(list && list->view()->isVisible());
        const bool isLast = list->currentIndex() == list->count() - 1;
        QTest::keyClick(list->view(), isLast ? Qt::Key_Up : Qt::Key_Down);
        QTest::keyClick(list->view(), Qt::Key_Return);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Tree()->setFocus();
        EXPECT_NE(cell.data().toString(), before);
    }
    // All rows at once by the button, then some by a double click.
    void ChangeFormats()
    {
        Tree()->selectAll();
        TakeFormat("Alt+F Down Alt+C 9", [] { Type("Alt+F"); });
        int number = 0;
        for (const QModelIndex& row : Rows())
            if (IsEntry(row) && ++number % 20 == 1)
                TakeFormat("Alt+C 1 1", [&] { DoubleClick(row.siblingAtColumn(2)); });
    }
    void TakeFormat(const char* keys, const FAct& open)
    {
        bool isDone = false;
        WhenShown<CFormatSpecifierWindow>([&](CFormatSpecifierWindow& window) {
            Activate(window);
            EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
            Type(keys);
            Type("Return");
            isDone = true;
        });
        open();
        EXPECT_TRUE(QTest::qWaitFor([&] { return isDone && !QApplication::activeModalWidget(); }));
        Activate(Window());
    }
    // One parameter of each template, whose inputs rise.
    void AddInstances()
    {
        int count = 1;
        for (int i = 0; i < count; ++i)
            TakeOptions([&] { Type("Alt+A"); },
                        [&](COptionsWindow& window) {
                            auto* const list = window.findChild<QComboBox*>();
                            count = list->count();
                            list->setFocus();
                            Type("Home");
                            for (int step = 0; step < i; ++step)
                                Type("Down");
                            int value = 10;
                            for (QLineEdit* const field : window.findChildren<QLineEdit*>())
                                Replace(*field, QString::number(value += 7));
                        });
    }
    void TakeOptions(const FAct& open, const std::function<void(COptionsWindow&)>& act)
    {
        bool isDone = false;
        WhenShown<COptionsWindow>([&](COptionsWindow& window) {
            Activate(window);
            EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
            act(window);
            Type("Return");
            EXPECT_FALSE(window.isVisible()) << window.windowTitle().toStdString();
            window.reject();
            isDone = true;
        });
        open();
        EXPECT_TRUE(QTest::qWaitFor([&] { return isDone && !QApplication::activeModalWidget(); }));
        Activate(Window());
    }
    static void Replace(QLineEdit& field, const QString& text)
    {
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, text);
    }
    // The number of a percentile, the classes and bounds of all histograms.
    void ChangeSettings()
    {
        for (const QModelIndex& row : Rows()) {
            const QModelIndex cell = row.siblingAtColumn(1);
            if (!IsEntry(row) || cell.data().toString().isEmpty())
                continue;
            const QString before = cell.data().toString();
            TakeOptions([&] { DoubleClick(cell); }, [&](COptionsWindow& window) { ChangeSetting(window); });
            EXPECT_NE(cell.data().toString(), before);
        }
    }
    static void ChangeSetting(COptionsWindow& window)
    {
        auto* const list = window.findChild<QComboBox*>();
        for (int i = 0; i < (list ? list->count() : 1); ++i) {
            if (list && i > 0)
                window.findChild<QComboBox*>()->setFocus(), Type("Down");
            for (QCheckBox* const box : window.findChildren<QCheckBox*>())
                box->setFocus(), Type("Space");
            int value = 20 + i;
            for (QLineEdit* const field : window.findChildren<QLineEdit*>())
                if (field->isVisible())
                    Replace(*field, QString::number(value += 5));
        }
    }
    // What is not enabled at first may be when others have been changed.
    void ChangeFields()
    {
        std::set<std::size_t> changed;
        for (std::size_t i = 0; i < Fields().size();) {
            QWidget& field = *Fields()[i];
            if (!field.isEnabled() || !changed.insert(i).second) {
                ++i;
                continue;
            }
            ChangeField(field, static_cast<int>(i));
            i = 0;
        }
        EXPECT_EQ(changed.size(), Fields().size());
    }
    void ChangeField(QWidget& field, int number)
    {
        const QPointer<QWidget> before = &field;
        const QString text = Read(field);
        const auto* const list = qobject_cast<const QComboBox*>(&field);
        if (list && list->count() == 1)
            return;
        field.setFocus();
        if (auto* const edit = qobject_cast<QLineEdit*>(&field))
            Replace(*edit, QString::number(30 + number));
        else if (list)
            Type(list->currentIndex() == list->count() - 1 ? "Up" : "Down");
        else
            Type("Space");
        EXPECT_TRUE(!before || Read(field) != text) << text.toStdString();
    }
    void ChangeTab()
    {
        if (Tree())
            ChangeRows();
        if (Tab().kind == ETab::Parameters) {
            ChangeFormats();
            if (m_dialog->HasCommand(0, CSelectionDlg::c_add))
                AddInstances();
        } else if (m_dialog->HasCommand(m_dialog->GetCurrentTab(), CSelectionDlg::c_change)) {
            ChangeSettings();
        }
        ChangeFields();
    }

    // Compares the dialog with the preferences, entry by entry and option by option.
    void ExpectShows(const CAnalysisPreferencesData& data)
    {
        ForEachTab([&] {
            for (const QModelIndex& row : Tree() ? Rows() : std::vector<QModelIndex>())
                if (IsEntry(row))
                    ExpectShows(data, row);
            const std::vector<QWidget*> fields = Fields();
            const std::vector<SDialogOption>& options = Tab().options;
            for (std::size_t i = 0; i < options.size() && Tab().kind != ETab::Grains; ++i)
                ExpectShows(GetSelectionOption(data, static_cast<ESelectionOption>(options[i].id)),
                            options[i], *fields.at(i));
        });
    }
    void ExpectShows(const CAnalysisPreferencesData& data, const QModelIndex& row)
    {
        const int id = EntryOf(row).GetValue();
        const CParameter stored = Tab().kind == ETab::Parameters   ? data.GetParameter(id)
                                  : Tab().kind == ETab::Statistics ? data.GetStatistic(id)
                                                                   : data.GetOutput(id);
        EXPECT_EQ(row.data().toString().toStdString(), ToUtf8(stored.GetFriendlyString()));
        EXPECT_EQ(row.data(Qt::CheckStateRole).toInt() == Qt::Checked, stored.IsOn());
        if (Tab().kind != ETab::Parameters)
            return;
        const CUnit metre(CUnit::EUnitFactor::Unity);
        EXPECT_EQ(row.siblingAtColumn(1).data().toString().toStdString(),
                  ToUtf8(stored.GetScaledUnitStr({metre, metre, metre})));
        const int count = stored.GetFloatFormat().count;
        if (stored.GetFloatFormat().type == EFormat::FormatInteger)
            return; // whole numbers stay whole, among others
        EXPECT_TRUE(count == 9 || count == 11) << count;
        EXPECT_EQ(row.siblingAtColumn(2).data().toString().section(u' ', 0, 0).toInt(), count);
    }
    static void ExpectShows(double stored, const SDialogOption& option, const QWidget& field)
    {
        if (const auto* const list = qobject_cast<const QComboBox*>(&field))
            EXPECT_EQ(option.numbers.at(static_cast<std::size_t>(list->currentIndex())), stored);
        else if (const auto* const edit = qobject_cast<const QLineEdit*>(&field))
            EXPECT_NEAR(edit->text().toDouble() * option.factor, stored, 1e-9 * std::abs(stored));
        else
            EXPECT_EQ(field.property("checked").toBool(), stored != 0);
    }

    std::unique_ptr<CQtSelectionDlg> m_dialog;
    SGrainThresholdSettings m_grains;
};

} // namespace

TEST_P(SelectionWalk, WhatIsStoredIsWhatWasShown)
{
    CAnalysisPreferencesManager manager;
    Open(manager);
    const QStringList before = ReadAll();
    ForEachTab([&] { ChangeTab(); });
    const QStringList shown = ReadAll();
    for (const QString& line : before)
        EXPECT_FALSE(line.contains(c_entry) && shown.contains(line)) << "unchanged: " << line.toStdString();
    Type("Return");
    ASSERT_FALSE(m_dialog->IsOpen());
    m_grains = *m_dialog->GetGrainSettings();

    Open(manager);
    ExpectShows(manager.GetData(Analysis()));
    EXPECT_EQ(ReadAll().join(u'\n').toStdString(), shown.join(u'\n').toStdString());
    m_dialog->EndDialog(CBaseDialog::c_cancel);

    const CTemporaryFolder folder;
    const CStr path = (folder.GetPath() / "preferences.ini").u16string();
    CInifile file;
    file.Load(path); // there is none yet
    file.SelectSection(u"Analysis");
    manager.Save(file);
    ASSERT_TRUE(file.Save());
    CInifile loaded;
    ASSERT_TRUE(loaded.Load(path));
    loaded.SelectSection(u"Analysis");
    CAnalysisPreferencesManager other;
    ASSERT_TRUE(other.Load(loaded));
    Open(other);
    ExpectShows(other.GetData(Analysis()));
    EXPECT_EQ(ReadAll().join(u'\n').toStdString(), shown.join(u'\n').toStdString());
}

INSTANTIATE_TEST_SUITE_P(OfEachAnalysis, SelectionWalk, testing::Range(0, 10));

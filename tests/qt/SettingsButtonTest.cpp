#include "qt/settings/SettingsButton.h"

#include "qt/QtText.h"
#include "qt/settings/SettingsChooserWindow.h"
#include "qt/settings/SettingsDifferenceWindow.h"
#include "qt/settings/SettingsImportWindow.h"
#include "qt/settings/SettingsManageWindow.h"
#include "settings/catalogue/BuiltInSettingText.h"
#include "tests/dialogs/SettingsMenuTesting.h"
#include "tests/qt/WidgetTesting.h"

#include <memory>

using namespace CommonUI;
using enum ESettingType;

namespace
{

// A menu as "text Group{text (disabled) *checked}".
std::string Tell(const QMenu& menu)
{
    QStringList told;
    for (const QAction* const action : menu.actions()) {
        QString text = action->text();
        if (action->menu())
            text += u'{' + QString::fromStdString(Tell(*action->menu())) + u'}';
        if (!action->isEnabled())
            text = u'(' + text + u')';
        told += QString::fromUtf8(action->isChecked() ? "*" : "") + text;
    }
    return told.join(u' ').toStdString();
}

// A table or tree of two levels, row by row.
std::string Tell(const QAbstractItemModel& model, const QModelIndex& parent = {})
{
    std::string told;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        for (int column = 0; column < model.columnCount(parent); ++column)
            told += model.index(row, column, parent).data().toString().toStdString() + ' ';
        told += '|' + Tell(model, model.index(row, 0, parent));
    }
    return told;
}

class SettingsWindows : public CSettingsMenuServices
{
protected:
    void Make(ESettingType type) { Take(std::make_unique<CSettingsMenu>(type)); }
    void Take(std::unique_ptr<CSettingsMenu> menu)
    {
        m_button = new CSettingsButton(std::move(menu), &m_window);
        m_button->GetMenu().GetChosen().Subscribe(*this, &SettingsWindows::OnChosen, m_connection);
        Activate(m_window);
        m_button->setFocus();
    }
    void OnChosen(CSettings& settings)
    {
        m_chosen += settings.GetEntryInfo().m_Name + u"|";
        if (m_destroys)
            delete m_button;
    }
    QMenu& OpenPopup()
    {
        Type("Down");
        EXPECT_TRUE(m_button->GetPopup().isVisible());
        return m_button->GetPopup();
    }
    QMenu& GetCustom()
    {
        for (QAction* const action : m_button->GetPopup().actions())
            if (action->text() == QStringLiteral("Custom Settings"))
                return *action->menu();
        throw std::runtime_error("no own sets");
    }
    // Runs a command, and does something with its window when it is there and all sets are in it.
    template<class TWindow>
    void Run(ESettingsCommand command, const std::function<void(TWindow&)>& act)
    {
        WhenShown<TWindow>([&](TWindow& window) {
            Activate(window);
            GetMessageLoop().RunUntil([&] { return QApplication::activeWindow() == &window; });
            WaitFor(m_button->GetMenu().GetScan());
            act(window);
            window.close();
        });
        m_button->Run(command);
    }

    QWidget m_window;
    QPointer<CSettingsButton> m_button;
    CStr m_chosen;
    bool m_destroys = false;
    int m_imports = 0;
    CClosureConnection m_connection;
};

QTreeView& ListOf(QWidget& window)
{
    return *window.findChild<QTreeView*>();
}

} // namespace

TEST_F(SettingsWindows, TheMenuOpensAtOnceAndFillsWhileItIsOpen)
{
    CSlowDrive drive;
    Take(std::make_unique<CSettingsMenu>(Filter, true, drive.MakeFind()));
    OpenPopup();
    QMenu& custom = GetCustom();
    EXPECT_EQ(Tell(custom), "(Looking through the folder...)");
    drive.Answer(1);
    GetMessageLoop().RunUntil([&] { return custom.actions().size() == 2; });
    EXPECT_EQ(Tell(custom), "a{1.flt} (Looking through the folder...)");
    const QPointer<QMenu> folder = custom.actions().first()->menu();
    drive.Answer(1);
    WaitFor(m_button->GetMenu().GetScan());
    EXPECT_EQ(Tell(custom), "a{1.flt} 2.flt");
    EXPECT_EQ(custom.actions().first()->menu(), folder) << "the user may be in it";
    m_button->GetPopup().close();
    OpenPopup();
    EXPECT_EQ(Tell(GetCustom()), "a{1.flt} 2.flt (Looking through the folder...)") << "what is known stays";
    drive.Answer(2);
    WaitFor(m_button->GetMenu().GetScan());
}

TEST_F(SettingsWindows, TheMenuIsUsedByKeys)
{
    WriteCustom("A & B.pnps", "");
    Make(PnP);
    OpenPopup();
    WaitFor(m_button->GetMenu().GetScan());
    EXPECT_EQ(Tell(GetCustom()), "A && B.pnps");
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Return})
        QTest::keyClick(QApplication::activePopupWidget(), key);
    EXPECT_EQ(m_chosen, u"") << "when the menu has closed";
    QCoreApplication::processEvents();
    EXPECT_EQ(m_chosen, u"A & B.pnps|");
    EXPECT_EQ(Speak(Reader(*m_button)), "A & B.pnps (focused)");
    QMenu& popup = OpenPopup();
    EXPECT_EQ(Tell(popup).substr(0, 20), "Recent *A && B.pnps ");
    m_dialogs.Prepare(Custom("A & B.pnps"));
    QTest::keyClick(&popup, Qt::Key_L);
    m_destroys = true;
    QCoreApplication::processEvents();
    EXPECT_EQ(m_chosen, u"A & B.pnps|A & B.pnps|");
    EXPECT_FALSE(m_button) << "a callback may destroy the button";
}

TEST_F(SettingsWindows, ColorScalesHavePicturesOfAnySize)
{
    WriteCustom("red.col", GetBuiltInSettingText(EBuiltInSetting::CSQuickLaunchRed).ToUtf8());
    Make(ColorScale);
    OpenPopup();
    WaitFor(m_button->GetMenu().GetScan());
    const QIcon icon = GetCustom().actions().first()->icon();
    for (const double ratio : {1.0, 2.0}) {
        const QImage picture = icon.pixmap(QSize(32, 16), ratio).toImage();
        EXPECT_EQ(picture.size(), QSize(32, 16) * ratio);
        const QColor low = picture.pixelColor(2, picture.height() / 2);
        const QColor high = picture.pixelColor(picture.width() - 4, picture.height() / 2);
        EXPECT_GT(high.red(), low.red() + 100);
    }
    EXPECT_TRUE(m_button->GetPopup().actions().last()->icon().isNull());
}

TEST_F(SettingsWindows, TheChooserSearchesAndChoosesByKeys)
{
    for (int i = 0; i < 300; ++i)
        WriteCustom("many/" + std::to_string(i) + ".flt", "");
    Make(Filter);
    m_button->GetMenu().SetCurrent({Custom("many/250.flt"), Filter});
    Run<CSettingsChooserWindow>(ESettingsCommand::AllSets, [&](CSettingsChooserWindow& window) {
        EXPECT_EQ(ListOf(window).currentIndex().data().toString(), QStringLiteral("250.flt"));
        EXPECT_EQ(ListOf(window).model()->rowCount(), 395);
        Type("many");
        QTest::keyClick(&window.GetSearch(), Qt::Key_Space);
        Type("99 Down");
        EXPECT_EQ(Tell(*ListOf(window).model()), "99.flt Custom Settings / many |199.flt Custom Settings / "
                                                 "many |299.flt Custom Settings / many |");
        std::filesystem::remove(m_folder.GetPath() / "Custom Settings/many/199.flt");
        Type("Return");
        EXPECT_EQ(TakeBoxes().size(), 1U) << "it has vanished";
        EXPECT_TRUE(window.isVisible());
        WaitFor(m_button->GetMenu().GetScan());
        EXPECT_EQ(ListOf(window).model()->rowCount(), 2);
        Type("Return");
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(m_chosen, u"299.flt|") << "what stands where the other one was";
}

TEST_F(SettingsWindows, OwnSetsAreManagedByKeys)
{
    for (const char* const name : {"a.flt", "b.flt", "c.flt"})
        WriteCustom(name, "");
    Make(Filter);
    Run<CSettingsManageWindow>(ESettingsCommand::Manage, [&](CSettingsManageWindow& window) {
        const QAbstractItemModel& model = *ListOf(window).model();
        ListOf(window).setFocus();
        Type("Down");
        WhenShown<QInputDialog>([](QInputDialog& dialog) {
            EXPECT_EQ(dialog.textValue(), QStringLiteral("b.flt"));
            dialog.setTextValue(QStringLiteral("z"));
            dialog.accept();
        });
        Type("F2");
        WaitFor(m_button->GetMenu().GetScan());
        EXPECT_EQ(Tell(model), "a.flt Custom Settings |c.flt Custom Settings |z.flt Custom Settings |");
        EXPECT_EQ(ListOf(window).currentIndex().row(), 2);
        m_boxes.Prepare(EMessageBoxAnswer::Yes);
        Type("Del");
        WaitFor(m_button->GetMenu().GetScan());
        EXPECT_EQ(Tell(model), "a.flt Custom Settings |c.flt Custom Settings |");
        EXPECT_EQ(ListOf(window).currentIndex().row(), 1);
        EXPECT_TRUE(std::filesystem::exists(m_folder.GetPath() / "trash/z.flt"));
        Type("Alt+O");
        GetMessageLoop().RunUntil([&] { return m_manager.GetOpened().size() == 1; });
        window.findChild<QLineEdit*>()->setFocus();
        Type("Return nothing");
        EXPECT_TRUE(window.isVisible());
        EXPECT_FALSE(window.findChildren<QPushButton*>()[0]->isEnabled()) << "nothing is selected";
        ListOf(window).setFocus();
        Type("Ctrl+Ins"); // copies nothing
    });
}

TEST_F(SettingsWindows, TwoSetsStandSideBySide)
{
    WriteCustom("l.flt", "[F]\na=1E-6\nb=2\nc=1\n");
    WriteCustom("r.flt", "[F]\na=0.000001\nb=3\n[G]\nd=4");
    Make(Filter);
    m_button->GetMenu().SetCurrent({Custom("l.flt"), Filter});
    Run<CSettingsDifferenceWindow>(ESettingsCommand::Compare, [&](CSettingsDifferenceWindow& window) {
        const QAbstractItemModel& model = *ListOf(window).model();
        EXPECT_EQ(Tell(model), "") << "one is not to be compared";
        window.SetRight({Custom("r.flt"), Filter});
        EXPECT_EQ(Tell(model), "F    |b 2 \u2260 3 |c 1 \u2212  |G    |d  + 4 |");
        EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("l.flt"));
        Type("Alt+O");
        GetMessageLoop().RunUntil([&] { return !window.findChild<QCheckBox*>()->isChecked(); });
        EXPECT_EQ(Tell(model), "F    |a 1E-6 = 0.000001 |b 2 \u2260 3 |c 1 \u2212  |G    |d  + 4 |");
        QTimer::singleShot(0, &window, [] { QApplication::activePopupWidget()->close(); });
        Type("Alt+R");
        EXPECT_EQ(Speak(Reader(*window.focusWidget())), "r.flt (focused)") << "its menu was open";
    });
    EXPECT_EQ(m_chosen, u"") << "the tool has nothing to do with it";
    EXPECT_EQ(Recent(Filter), u"");
}

TEST_F(SettingsWindows, AnImportShowsWhatWouldChangeBeforeItDoes)
{
    m_folder.Write("stick/x.cpz", "[Z]\nFactor=2\n");
    WriteCustom("x.cpz", "[Z]\nFactor=1\n");
    Make(ZCalibration);
    const std::tuple<const char*, CStr, const char*> cases[] = {
        {"Esc", u"", "[Z]\nFactor=1\n"},
        {"Alt+I", u"", "[Z]\nFactor=2\n"},
        {"Alt+I", u"x.cpz|", "[Z]\nFactor=2\n"},
    };
    for (const auto& [keys, chosen, bytes] : cases) {
        m_dialogs.Prepare(Path("stick/x.cpz"));
        Run<CSettingsImportWindow>(
            ESettingsCommand::Import, [&, &typed = keys](CSettingsImportWindow& window) {
                EXPECT_EQ(m_folder.Read("stick/x.cpz") != m_folder.Read("Custom Settings/x.cpz"),
                          Tell(*ListOf(window).model()) == "Z    |Factor 1 \u2260 2 |");
                // The second one is not to be used.
                window.findChildren<QCheckBox*>()[1]->setChecked(m_imports++ != 1);
                Type(typed);
                GetMessageLoop().RunUntil([&] { return !window.isVisible(); });
            });
        EXPECT_EQ(m_chosen, chosen);
        EXPECT_EQ(m_folder.Read("Custom Settings/x.cpz"), bytes);
    }
}

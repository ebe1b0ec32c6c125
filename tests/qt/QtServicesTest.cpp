#include "qt/services/QtServices.h"

#include "controls/Timer.h"
#include "platform/Folders.h"
#include "platform/HelpService.h"
#include "platform/memory/MemoryHelpService.h"
#include "qt/QtText.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/qt/WidgetTesting.h"

#include <memory>
#include <stdexcept>

using namespace CommonUI;

namespace
{

class CTicks
{
public:
    CTicks() { m_timer.SetCallback(*this, &CTicks::OnTick); }

    void OnTick(CBaseTimer& timer)
    {
        if (++count == 3)
            timer.SetRunning(false);
        if (fails)
            throw std::runtime_error("tick");
    }

    int count = 0;
    bool fails = false;
    CWinTimer m_timer{1};
};

} // namespace

TEST(QtText, KeepsEveryCodeUnit)
{
    const std::u16string units{u'\xFFFE', u'a', u'\0', u'\xD800', u'\x00B5'};
    EXPECT_EQ(FromQString(ToQString(units)), units);
    EXPECT_EQ(ToQString(u"\u00B1 0.1"), QStringLiteral("\u00B1 0.1"));
}

TEST(QtServices, AreInUseAsLongAsTheyLive)
{
    const auto inUse = [] {
        return std::tuple(&GetTimerService(), &GetMessageLoop(), &GetMessageBoxService(),
                          &GetFileDialogService(), &GetClipboard(), &GetFolders());
    };
    const auto before = inUse();
    {
        CQtServices inner;
        EXPECT_NE(&GetTimerService(), std::get<0>(before));
        EXPECT_EQ(&GetFileDialogService(), &inner.GetFileDialogs());
    }
    EXPECT_EQ(inUse(), before);
}

TEST(QtServices, TimersTickInALoopUntilTheyAreStopped)
{
    CTicks ticks;
    EXPECT_TRUE(ticks.m_timer.SetRunning(true));
    GetMessageLoop().RunUntil([&] { return ticks.count == 3; });
    EXPECT_FALSE(ticks.m_timer.IsRunning() || GetTimerService().Kill(0));

    ticks.count = 0;
    ticks.fails = true;
    ticks.m_timer.SetRunning(true);
    EXPECT_THROW(GetMessageLoop().RunUntil([] { return false; }), std::runtime_error);
}

TEST(QtServices, LoopsAreNestedAndEndByTheirOwnConditionOrAnException)
{
    CMessageLoop& loop = GetMessageLoop();
    std::string log;
    const auto has = [&log](const char* what) { return log.find(what) != std::string::npos; };
    loop.Post([&] {
        loop.Post([&] { log += "outer, "; });
        loop.Post([&] { log += "inner, "; });
        loop.RunUntil([&] { return has("inner"); });
        log += "inner ended";
        loop.Post([] { throw std::runtime_error("message"); });
        EXPECT_THROW(loop.RunUntil([] { return false; }), std::runtime_error);
    });
    loop.RunUntil([&] { return has("outer"); });
    EXPECT_EQ(log, "outer, inner, inner ended");
}

TEST(QtServices, MessagesThatPostMessagesKeepNobodyWaiting)
{
    CTicks ticks;
    bool ended = false;
    std::function<void()> chain = [&] {
        if (!ended)
            GetMessageLoop().Post(chain);
    };
    ticks.m_timer.SetRunning(true);
    chain();
    EXPECT_TRUE(GetMessageLoop().RunUntil([&] { return ticks.count == 2; }));
    ended = true;
    EXPECT_EQ(GetMessageLoop().Pump(), 1U);
}

TEST(QtServices, PumpingHandlesWhatWaitsUntilAMessageThrows)
{
    int handled = 0;
    for (const bool throws : {false, true, false})
        GetMessageLoop().Post(
            [&handled, throws] { throws ? throw std::runtime_error("message") : ++handled; });
    EXPECT_THROW(GetMessageLoop().Pump(), std::runtime_error);
    EXPECT_EQ(handled, 1);
    EXPECT_EQ(GetMessageLoop().Pump(), 1U);
    EXPECT_EQ(handled, 2);
    EXPECT_EQ(GetMessageLoop().Pump(), 0U);
}

TEST(QtServices, ALoopTellsThatTheProgramIsToEnd)
{
    bool ended = true;
    GetMessageLoop().Post([&] {
        GetMessageLoop().Post([] { QCoreApplication::exit(); });
        ended = GetMessageLoop().RunUntil([] { return false; });
    });
    QApplication::exec();
    EXPECT_FALSE(ended);
}

TEST(QtServices, AnExceptionThatNobodyWaitsForIsInTheDiagnostics)
{
    CDiagnosticsCapture lines;
    GetMessageLoop().Post([] { throw std::runtime_error("lost"); });
    QCoreApplication::processEvents();
    EXPECT_EQ(lines.Take(), std::vector<CStr>{u"Qt: an exception left a callback: lost"});
}

TEST(QtServices, MessageBoxesHaveACheckBoxForWhatIsNotToBeAskedAgain)
{
    const SMessageBox box{u"Remove?", MessageBoxStyle::c_yesNo};
    for (const bool checks : {true, false}) {
        WhenShown<QMessageBox>([checks](QMessageBox& window) {
            EXPECT_EQ(window.checkBox()->text(), QStringLiteral("&Do not ask again"));
            if (checks)
                window.checkBox()->click();
            QTest::mouseClick(window.button(QMessageBox::Yes), Qt::LeftButton);
        });
        bool isChecked = !checks;
        EXPECT_EQ(GetMessageBoxService().ShowWithCheck(box, u"&Do not ask again", isChecked),
                  EMessageBoxAnswer::Yes);
        EXPECT_EQ(isChecked, checks);
    }
}

TEST(QtServices, MessageBoxesAreAnsweredInEachWay)
{
    using namespace MessageBoxStyle;
    using FAnswer = std::function<void(QMessageBox&)>;
    const auto press = [](QMessageBox::StandardButton button) -> FAnswer {
        return [button](QMessageBox& box) { QTest::mouseClick(box.button(button), Qt::LeftButton); };
    };
    const auto type = [](Qt::Key key) -> FAnswer {
        return [key](QMessageBox& box) { QTest::keyClick(&box, key); };
    };
    const FAnswer askForHelp = [&](QMessageBox& box) {
        press(QMessageBox::Help)(box);
        EXPECT_TRUE(box.isVisible());
        press(QMessageBox::Yes)(box);
    };
    auto parent = std::make_unique<QWidget>();
    const FAnswer destroyParent = [&](QMessageBox&) { parent.reset(); };
    const std::tuple<unsigned int, QMessageBox::Icon, FAnswer, EMessageBoxAnswer> cases[] = {
        {c_ok | c_error, QMessageBox::Critical, press(QMessageBox::Ok), EMessageBoxAnswer::Ok},
        {c_ok, QMessageBox::NoIcon, type(Qt::Key_Escape), EMessageBoxAnswer::Ok},
        {c_okCancel, QMessageBox::NoIcon, press(QMessageBox::Ok), EMessageBoxAnswer::Ok},
        {c_okCancel | c_warning, QMessageBox::Warning, type(Qt::Key_Escape), EMessageBoxAnswer::Cancel},
        {c_yesNo | c_warning, QMessageBox::Warning, type(Qt::Key_Return), EMessageBoxAnswer::No},
        {c_yesNo | c_question, QMessageBox::Question, press(QMessageBox::Yes), EMessageBoxAnswer::Yes},
        {c_yesNo | c_question, QMessageBox::Question, press(QMessageBox::No), EMessageBoxAnswer::No},
        {c_yesNo | c_help, QMessageBox::NoIcon, type(Qt::Key_Escape), EMessageBoxAnswer::No},
        {c_yesNo | c_help, QMessageBox::NoIcon, askForHelp, EMessageBoxAnswer::Yes},
        {c_yesNo, QMessageBox::NoIcon, destroyParent, EMessageBoxAnswer::No},
    };
    CMemoryHelpService help;
    const CServiceScope<CHelpService> scope(help);
    parent->show();
    for (const auto& [style, icon, act, answer] : cases) {
        WhenShown<QMessageBox>([icon = icon, &act = act](QMessageBox& box) {
            EXPECT_EQ(box.text(), QStringLiteral("Remove <b>all</b>?"));
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), icon);
            act(box);
        });
        EXPECT_EQ(GetMessageBoxService().Show({u"Remove <b>all</b>?", style, 21000}), answer) << style;
    }
    EXPECT_EQ(help.GetOpened(), std::vector<unsigned int>{21000});
}

TEST(QtServices, FileDialogsOfferFiltersAndRememberTheChoice)
{
    QTemporaryDir folder;
    const QString chosen = folder.filePath(QStringLiteral("mine.flt"));
    WhenShown<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.nameFilters(),
                  QStringList({QStringLiteral("Filters (*.flt *.filter)"), QStringLiteral("All files (*)")}));
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        dialog.selectFile(folder.filePath(QStringLiteral("mine")));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    const SFileDialog save{.forOpen = false,
                           .filter = u"Filters (*.flt)|*.flt;*.filter|All files (*.*)|*.*||",
                           .extension = u"flt",
                           .memoryKey = u"Filter"};
    CStr path;
    ASSERT_TRUE(GetFileDialogService().Choose(save, path));
    EXPECT_EQ(path, FromQString(QDir::toNativeSeparators(chosen)));

    QFile(chosen).open(QIODevice::WriteOnly);
    WhenShown<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory(), QDir(folder.path()));
        EXPECT_EQ(dialog.selectedFiles(), QStringList(chosen));
        EXPECT_EQ(dialog.defaultSuffix(), QString());
        dialog.reject();
    });
    EXPECT_FALSE(GetFileDialogService().Choose({.extension = u"flt", .memoryKey = u"Filter"}, path));
}

TEST(QtServices, TheFileManagerHasATrash)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("mine.flt"));
    QFile(path).open(QIODevice::WriteOnly);
    // A trash of the test's own instead of the user's.
    QStandardPaths::setTestModeEnabled(false);
    qputenv("XDG_DATA_HOME", folder.path().toUtf8());
    EXPECT_TRUE(GetFileManager().MoveToTrash(FromQString(path)));
    EXPECT_FALSE(GetFileManager().MoveToTrash(FromQString(path)));
    qunsetenv("XDG_DATA_HOME");
    QStandardPaths::setTestModeEnabled(true);
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("Trash/files/mine.flt"))));
}

#include "qt/services/QtServices.h"

#include "common/Diagnostics.h"
#include "controls/Timer.h"
#include "platform/Folders.h"
#include "platform/HelpService.h"
#include "platform/MemoryHelpService.h"
#include "qt/QtText.h"
#include "tests/qt/WhenShown.h"

#include <gtest/gtest.h>
#include <QTest>
#include <QtWidgets>

#include <functional>
#include <memory>
#include <stdexcept>
#include <thread>

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
    const std::u16string units{u'a', u'\0', u'\xD800', u'\x00B5'};
    EXPECT_EQ(FromQString(ToQString(units)), units);
    EXPECT_EQ(ToQString(u"\u00B1 0.1"), QStringLiteral("\u00B1 0.1"));
}

TEST(QtServices, AreInUseAsLongAsTheyLive)
{
    CTimerService& timers = GetTimerService();
    CMessageLoop& loop = GetMessageLoop();
    CMessageBoxService& boxes = GetMessageBoxService();
    CFileDialogService& dialogs = GetFileDialogService();
    CClipboard& clipboard = GetClipboard();
    const CFolders& folders = GetFolders();
    {
        CQtServices inner;
        EXPECT_NE(&GetTimerService(), &timers);
        EXPECT_EQ(&GetFileDialogService(), &inner.GetFileDialogs());
    }
    EXPECT_EQ(std::tuple(&GetTimerService(), &GetMessageLoop()), std::tuple(&timers, &loop));
    EXPECT_EQ(std::tuple(&GetMessageBoxService(), &GetFileDialogService()), std::tuple(&boxes, &dialogs));
    EXPECT_EQ(std::tuple(&GetClipboard(), &GetFolders()), std::tuple(&clipboard, &folders));
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

TEST(QtServices, MessagesOfAThreadComeInTheirOrder)
{
    constexpr int c_count = 1000;
    std::vector<int> received;
    std::thread worker([&] {
        for (int i = 0; i < c_count; ++i)
            GetMessageLoop().Post([&received, i] { received.push_back(i); });
    });
    GetMessageLoop().RunUntil([&] { return received.size() == c_count; });
    worker.join();
    EXPECT_TRUE(std::is_sorted(received.begin(), received.end()));
}

TEST(QtServices, LoopsAreNestedAndEndByTheirOwnConditionOrAnException)
{
    std::vector<std::string> log;
    bool inner = false;
    bool outer = false;
    GetMessageLoop().Post([&] {
        GetMessageLoop().Post([&] {
            outer = true;
            log.emplace_back("outer is true");
        });
        GetMessageLoop().Post([&] { inner = true; });
        GetMessageLoop().RunUntil([&] { return inner; });
        log.emplace_back("inner has ended");
        GetMessageLoop().Post([] { throw std::runtime_error("message"); });
        EXPECT_THROW(GetMessageLoop().RunUntil([] { return false; }), std::runtime_error);
    });
    GetMessageLoop().RunUntil([&] { return outer; });
    EXPECT_EQ(log, (std::vector<std::string>{"outer is true", "inner has ended"}));
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
    const auto count = [&handled] { ++handled; };
    GetMessageLoop().Post(count);
    GetMessageLoop().Post([] { throw std::runtime_error("message"); });
    GetMessageLoop().Post(count);
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
    std::vector<CStr> lines;
    auto sink = GetDiagnostics().SetSink([&](const SDiagnosticLine& line) { lines.emplace_back(line.text); });
    GetMessageLoop().Post([] { throw std::runtime_error("lost"); });
    QCoreApplication::processEvents();
    GetDiagnostics().SetSink(std::move(sink));
    EXPECT_EQ(lines, std::vector<CStr>{u"an exception left a callback: lost"});
}

TEST(QtServices, MessageBoxesAreAnsweredByTheirButtons)
{
    using namespace MessageBoxStyle;
    struct SCase {
        unsigned int style;
        QMessageBox::Icon icon;
        QMessageBox::StandardButton button; // NoButton closes the box
        EMessageBoxAnswer answer;
    };
    constexpr SCase c_cases[] = {
        {c_ok | c_error, QMessageBox::Critical, QMessageBox::Ok, EMessageBoxAnswer::Ok},
        {c_ok, QMessageBox::NoIcon, QMessageBox::NoButton, EMessageBoxAnswer::Ok},
        {c_okCancel, QMessageBox::NoIcon, QMessageBox::Ok, EMessageBoxAnswer::Ok},
        {c_okCancel | c_warning, QMessageBox::Warning, QMessageBox::NoButton, EMessageBoxAnswer::Cancel},
        {c_yesNo | c_question, QMessageBox::Question, QMessageBox::Yes, EMessageBoxAnswer::Yes},
        {c_yesNo | c_question, QMessageBox::Question, QMessageBox::No, EMessageBoxAnswer::No},
        {c_yesNo | c_help, QMessageBox::NoIcon, QMessageBox::NoButton, EMessageBoxAnswer::No},
    };
    for (const SCase& row : c_cases) {
        WhenShown<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.text(), QStringLiteral("Remove <b>all</b>?"));
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), row.icon);
            if (row.button == QMessageBox::NoButton)
                QTest::keyClick(&box, Qt::Key_Escape);
            else
                QTest::mouseClick(box.button(row.button), Qt::LeftButton);
        });
        EXPECT_EQ(GetMessageBoxService().Show({u"Remove <b>all</b>?", row.style}), row.answer);
    }
}

TEST(QtServices, EnterDoesNoHarmInAWarning)
{
    WhenShown<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    EXPECT_EQ(
        GetMessageBoxService().Show({u"Remove?", MessageBoxStyle::c_yesNo | MessageBoxStyle::c_warning}),
        EMessageBoxAnswer::No);
}

TEST(QtServices, AMessageBoxThatGoesWithItsParentCountsAsClosed)
{
    auto parent = std::make_unique<QWidget>();
    parent->show();
    WhenShown<QMessageBox>([&](QMessageBox&) { parent.reset(); });
    EXPECT_EQ(GetMessageBoxService().Show({u"Replace?", MessageBoxStyle::c_yesNo}), EMessageBoxAnswer::No);
}

TEST(QtServices, HelpOfAMessageBoxOpensTheTopicAndLeavesTheBoxOpen)
{
    CMemoryHelpService help;
    const CServiceScope<CHelpService> scope(help);
    WhenShown<QMessageBox>([](QMessageBox& box) {
        QTest::mouseClick(box.button(QMessageBox::Help), Qt::LeftButton);
        EXPECT_TRUE(box.isVisible());
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    });
    const SMessageBox box{u"Replace?", MessageBoxStyle::c_yesNo | MessageBoxStyle::c_help, 21000};
    EXPECT_EQ(GetMessageBoxService().Show(box), EMessageBoxAnswer::Yes);
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

TEST(QtServices, ClipboardHasBothForms)
{
    EXPECT_TRUE(GetClipboard().Put(u"<table><tr><td>1 \u00B5m</td></tr></table>", u"1 \u00B5m\r\n"));
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(data->html(), QStringLiteral("<table><tr><td>1 \u00B5m</td></tr></table>"));
    EXPECT_EQ(data->text(), QStringLiteral("1 \u00B5m\r\n"));
}

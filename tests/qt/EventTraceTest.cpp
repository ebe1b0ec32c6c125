#include "qt/framework/EventTrace.h"

#include "platform/memory/MemoryHelpService.h"
#include "qt/services/QtHelpService.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/qt/WidgetTesting.h"

#include <fstream>
#include <memory>

using namespace CommonUI;

TEST(EventTrace, WritesEventsByNameAsLongAsItLives)
{
    EXPECT_EQ(GetEventName(QEvent::User), u"User");
    EXPECT_EQ(GetEventName(static_cast<QEvent::Type>(QEvent::User + 3)), u"User+3");
    EXPECT_EQ(GetEventName(static_cast<QEvent::Type>(987)), u"event 987");
    QPushButton button;
    button.setObjectName(QStringLiteral("Apply"));
    CDiagnosticsCapture capture;
    auto trace = std::make_unique<CEventTrace>();
    Send(button, QEvent(QEvent::WindowActivate));
    EXPECT_EQ(capture.Take(), std::vector<CStr>{u"Events: WindowActivate to QPushButton \"Apply\""});
    trace.reset();
    Send(button, QEvent(QEvent::WindowDeactivate));
    EXPECT_EQ(capture.GetCount(), 0);
    EXPECT_FALSE(GetDiagnostics().IsEnabled(CEventTrace::c_category));
}

TEST(QtHelpService, OpensTheChapterInTheDesktopsProgram)
{
    struct SOpener : CQtHelpService {
        using CQtHelpService::CQtHelpService;
        bool OpenUrl(const QUrl& url) override
        {
            opened = url;
            return true;
        }
        QUrl opened;
    };
    const QTemporaryDir folder(QDir::tempPath() + QStringLiteral("/a #b \u00B5"));
    const QString page = folder.filePath(QStringLiteral("dialogs.md"));
    QFile file(page);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    SOpener help(std::filesystem::path(folder.path().toStdU16String()));
    EXPECT_TRUE(help.Open(7821));
    EXPECT_EQ(help.opened.toLocalFile(), page);
    EXPECT_EQ(help.opened.fragment(), QStringLiteral("texts-to-edit"));
}

#include "qt/start_pane/StartPaneWidget.h"

#include "platform/MessageLoop.h"
#include "platform/network/MemoryHttpService.h"
#include "qt/QtText.h"
#include "tests/qt/WebServer.h"
#include "tests/qt/WidgetTesting.h"
#include "tests/TemporaryFolder.h"

using namespace CommonUI;

namespace
{

constexpr const char16_t* c_feed = u"https://a.example/feed";

std::string MakeFeed(int entries)
{
    std::string feed = "<feed>";
    for (int i = 1; i <= entries; ++i)
        feed +=
            CStr::Format(u"<entry><title>Title %d</title><link href='/%d?a&amp;b'/></entry>", i, i).ToUtf8();
    return feed + "</feed>";
}

// Has a slot for addresses, and takes whatever they name.
class CDesktop : public QTextBrowser
{
protected:
    QVariant loadResource(int, const QUrl&) override { return QByteArray("x"); }
};

// A pane on a web in memory, and what would open links on the desktop.
class StartPaneWidget : public testing::Test
{
protected:
    StartPaneWidget()
    {
        for (const char* const scheme : {"http", "https", "file"})
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), &desktop, "setSource");
        const SFeedSource source{EFeedKind::News, c_feed};
        pane.GetPane().SetSources({&source, 1});
        pane.resize(300, 200);
        Activate(pane);
    }
    ~StartPaneWidget() override
    {
        for (const char* const scheme : {"http", "https", "file"})
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }
    void Serve(int entries)
    {
        web.SetAnswer(c_feed, {.status = 200, .body = MakeFeed(entries)});
        GetMessageLoop().Pump();
    }
    std::string Opened()
    {
        const std::string opened = desktop.source().toString().toStdString();
        desktop.setSource(QUrl(QStringLiteral("none:")));
        return opened == "none:" ? std::string() : opened;
    }
    // In the middle of the first place where a text stands.
    QPoint PlaceOf(const char* text)
    {
        const QTextCursor found = pane.GetPage().document()->find(QString::fromUtf8(text));
        EXPECT_FALSE(found.isNull()) << text;
        return pane.GetPage().cursorRect(found).center() - QPoint(5, 0);
    }

    CMemoryHttpService web;
    CServiceScope<CHttpService> scope{web};
    CDesktop desktop;
    CStartPaneWidget pane;
};

} // namespace

TEST_F(StartPaneWidget, IsUsedByTheKeyboard)
{
    EXPECT_TRUE(pane.GetPage().hasFocus());
    Type("F5");
    EXPECT_TRUE(pane.GetPane().IsLoading());
    EXPECT_EQ(pane.GetButton().text(), QStringLiteral("&Stop"));
    Type("Esc");
    EXPECT_FALSE(pane.GetPane().IsLoading());
    Type("Alt+R");
    EXPECT_TRUE(GetMessageLoop().RunUntil([&] { return pane.GetPane().IsLoading(); }));
    Serve(2);
    EXPECT_EQ(pane.GetButton().text(), QStringLiteral("&Refresh"));
    Type("Tab Return");
    EXPECT_EQ(Opened(), "https://a.example/1?a&b");
    Type("Tab Return Tab");
    EXPECT_EQ(Opened(), "https://a.example/2?a&b");
    EXPECT_TRUE(pane.GetButton().hasFocus());
    Type("Space");
    EXPECT_EQ(web.GetRequests().size(), 3U) << "F5, Alt+R and Space";
}

TEST_F(StartPaneWidget, OpensLinksByAClickOnly)
{
    pane.GetPane().Refresh();
    Serve(1);
    EXPECT_EQ(Opened(), "");
    QTest::mouseClick(pane.GetPage().viewport(), Qt::LeftButton, {}, PlaceOf("News"));
    EXPECT_EQ(Opened(), "");
    const QPoint link = PlaceOf("Title 1");
    QHelpEvent help(QEvent::ToolTip, link, pane.GetPage().viewport()->mapToGlobal(link));
    QApplication::sendEvent(pane.GetPage().viewport(), &help);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("https://a.example/1?a&amp;b")) << "where it leads";
    QTest::mouseClick(pane.GetPage().viewport(), Qt::LeftButton, {}, link);
    EXPECT_EQ(Opened(), "https://a.example/1?a&b");
    // Whatever the logic lets through.
    pane.ShowPage(u"<a href=\"file:///etc/passwd\">Title 1</a>");
    QTest::mouseClick(pane.GetPage().viewport(), Qt::LeftButton, {}, PlaceOf("Title 1"));
    EXPECT_EQ(Opened(), "");
}

TEST_F(StartPaneWidget, KeepsItsPlaceWhenThePageChanges)
{
    pane.GetPane().Refresh();
    Serve(10);
    QScrollBar& bar = *pane.GetPage().verticalScrollBar();
    ASSERT_GT(bar.maximum(), 100);
    bar.setValue(90);
    Type("Tab");
    const int place = bar.value();
    pane.GetPane().Refresh();
    EXPECT_EQ(bar.value(), place);
    Serve(10);
    EXPECT_EQ(bar.value(), place);
    Type("Return");
    EXPECT_EQ(Opened(), "https://a.example/1?a&b") << "the link that had the focus";
}

TEST_F(StartPaneWidget, LoadsNothingThatAPageNames)
{
    const CTemporaryFolder folder;
    folder.Write("a.css", "p { color: red; }");
    const QString file =
        QUrl::fromLocalFile(QString::fromStdString((folder.GetPath() / "a.css").string())).toString();
    pane.ShowPage(u"<link rel=stylesheet href=\"" + FromQString(file) + u"\"><p>x</p>");
    const QTextDocument& page = *pane.GetPage().document();
    EXPECT_TRUE(page.resource(QTextDocument::StyleSheetResource, QUrl(file)).toByteArray().isEmpty());
    EXPECT_TRUE(page.resource(QTextDocument::ImageResource, QUrl(file)).toByteArray().isEmpty());
}

TEST_F(StartPaneWidget, IsRead)
{
    pane.GetPane().Refresh();
    Serve(1);
    EXPECT_EQ(Speak(Reader(pane.GetPage())), "Start (focused readOnly)");
    EXPECT_EQ(Speak(Reader(pane.GetButton())), "Refresh");
    EXPECT_TRUE(Speak(Reader(pane.GetStatus())).starts_with("Updated "));
    const int width = pane.GetButton().width();
    pane.GetPane().Refresh();
    EXPECT_EQ(pane.GetButton().width(), width);
}

// From the server to the page, by the services of Qt.
TEST(StartPane, ShowsWhatAServerSays)
{
    CWebServer server;
    const QByteArray body = "<rss><channel><item><title>A</title><description>&lt;img src='" +
                            server.GetAddress("/image").toUtf8() +
                            "'>&lt;b>bold&lt;/b></description></item></channel></rss>";
    server.Serve("/feed",
                 "HTTP/1.1 200 OK\r\nETag: \"1\"\r\nContent-Length: " + QByteArray::number(body.size()) +
                     "\r\n\r\n" + body,
                 true);
    const CTemporaryFolder folder;
    CStartPaneWidget widget;
    CStartPane& pane = widget.GetPane();
    const SFeedSource source{EFeedKind::Tutorials, FromQString(server.GetAddress("/feed"))};
    pane.SetCacheFolder(FromQString(QString::fromStdString(folder.GetPath().string())));
    pane.SetSources({&source, 1});
    Activate(widget);
    const auto refresh = [&] {
        pane.Refresh();
        GetMessageLoop().RunUntil([&] { return !pane.IsLoading(); });
        return static_cast<int>(pane.GetSections()[0].state);
    };
    EXPECT_TRUE(server.GetAsked().isEmpty()) << "nobody has asked";
    EXPECT_EQ(refresh(), static_cast<int>(EFeedState::Current));
    EXPECT_TRUE(widget.GetPage().toPlainText().contains(QStringLiteral("bold")));
    server.Serve("/feed", "HTTP/1.1 304 Not Modified\r\n\r\n", true);
    EXPECT_EQ(refresh(), static_cast<int>(EFeedState::Current));
    EXPECT_TRUE(server.GetAsked().contains("If-None-Match: \"1\"\r\n"));
    EXPECT_FALSE(server.GetAsked().contains("/image"));
    server.Close();
    EXPECT_EQ(refresh(), static_cast<int>(EFeedState::Offline));
    EXPECT_TRUE(widget.GetPage().toPlainText().contains(QStringLiteral("Offline since ")));
}

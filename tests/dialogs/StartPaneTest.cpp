#include "dialogs/start_pane/StartPane.h"

#include "common/PathText.h"
#include "dialogs/start_pane/MemoryStartPaneView.h"
#include "platform/memory/MemoryMessageLoop.h"
#include "platform/network/MemoryHttpService.h"
#include "tests/Script.h"
#include "tests/TemporaryFolder.h"

#include <map>
#include <memory>

using namespace CommonUI;

namespace
{

constexpr const char* c_states[] = {"not fetched", "kept", "loading", "current", "offline", "failed"};

const std::map<std::string, EHttpOutcome> c_outcomes = {
    {"answered", EHttpOutcome::Answered},  {"no-server", EHttpOutcome::NoServer},
    {"timed-out", EHttpOutcome::TimedOut}, {"untrusted", EHttpOutcome::Untrusted},
    {"failed", EHttpOutcome::Failed},
};

std::string MakeFeed(const std::string& titles)
{
    std::string items;
    for (const std::string& title : SplitText(titles, ','))
        items += "<item><title>" + title + "</title><link>/" + title + "</link></item>";
    return "<rss><channel><link>/all</link>" + items + "</channel></rss>";
}

// A pane with a web, a cache and a clock; "a" is the address https://a.example/feed.
class CStage
{
public:
    CStage()
    {
        CStr text;
        ToText(m_folder.GetPath(), text);
        m_cacheFolder = text;
        Restart();
    }

    void Act(const SCommand& command)
    {
        const std::string& verb = command.verb;
        if (verb == "sources")
            SetSources(command.words);
        else if (verb == "serve")
            Serve(command);
        else if (verb == "hold")
            m_web.Hold(Address(command.text));
        else if (verb == "progress")
            m_web.Advance(Address(command.words[0]), command.Get<std::size_t>(1), 0);
        else if (verb == "refresh")
            m_pane->Refresh();
        else if (verb == "older")
            m_pane->RefreshOlderThan(std::chrono::hours(command.Get()));
        else if (verb == "button")
            m_pane->OnButton();
        else if (verb == "link")
            m_pane->OnLink(CStr::FromUtf8(command.text));
        else if (verb == "hours")
            m_now += std::chrono::hours(command.Get());
        else if (verb == "restart")
            Restart();
        else if (verb == "without-cache")
            m_pane->SetCacheFolder({});
        m_loop.Pump();
    }

    std::string Tell()
    {
        std::string told;
        for (const SFeedSection& section : m_pane->GetSections()) {
            told += std::string(told.empty() ? "" : "; ") + c_states[static_cast<int>(section.state)];
            for (const SFeedEntry& entry : section.feed.entries)
                told += " " + entry.title.ToUtf8();
            if (section.fetched)
                told += " of " + m_view.FormatTime(*section.fetched).Mid(11).ToUtf8();
            if (!section.reason.IsEmpty())
                told += ", " + section.reason.ToUtf8();
        }
        told += " | " + m_view.GetStatus().ToUtf8() + " | " +
                (m_view.IsLoading()    ? "Stop"
                 : m_view.CanRefresh() ? "Refresh"
                                       : "no button");
        for (; m_asked < m_web.GetRequests().size(); ++m_asked)
            told += " | asked" + TellRequest(m_web.GetRequests()[m_asked]);
        for (; m_opened < m_view.GetOpened().size(); ++m_opened)
            told += " | opened " + m_view.GetOpened()[m_opened].ToUtf8();
        return told;
    }

private:
    static CStr Address(const std::string& name)
    {
        return CStr::FromUtf8(name.size() == 1 ? "https://" + name + ".example/feed" : name);
    }
    static std::string TellRequest(const SHttpRequest& request)
    {
        std::string told = " " + request.address.ToUtf8().substr(8, 1);
        for (const SHttpHeader& header : request.headers)
            if (header.name != "Accept")
                told += " " + header.name + "=" + header.value;
        return told;
    }

    void Restart()
    {
        m_pane = std::make_unique<CStartPane>();
        m_pane->SetClock([this] { return m_now; });
        m_pane->SetCacheFolder(m_cacheFolder);
        m_pane->SetView(&m_view);
    }
    void SetSources(const std::vector<std::string>& names)
    {
        std::vector<SFeedSource> sources;
        for (const std::string& name : names)
            sources.push_back({.kind = EFeedKind::Tutorials, .address = Address(name)});
        m_pane->SetSources(sources);
    }
    // Address, status or outcome, titles of the feed or another body, validator.
    void Serve(const SCommand& command)
    {
        const std::vector<std::string>& words = command.words;
        const bool isStatus = command.Get(1) != 0;
        SHttpAnswer answer{.outcome = isStatus ? EHttpOutcome::Answered : c_outcomes.at(words[1])};
        answer.status = command.Get(1);
        if (!isStatus && words.size() > 2)
            answer.detail = CStr::FromUtf8(words[2]);
        if (isStatus && words.size() > 2)
            answer.body = words[2][0] == '<' ? words[2] : MakeFeed(words[2]);
        if (words.size() > 3)
            answer.headers = {{"Etag", words[3]}, {"Last-Modified", words[3] + "!"}};
        m_web.SetAnswer(Address(words[0]), answer);
    }

    CTemporaryFolder m_folder;
    CStr m_cacheFolder;
    CMemoryMessageLoop m_loop;
    CServiceScope<CMessageLoop> m_loopScope{m_loop};
    CMemoryHttpService m_web;
    CServiceScope<CHttpService> m_webScope{m_web};
    CMemoryStartPaneView m_view;
    std::chrono::sys_seconds m_now = std::chrono::sys_days(std::chrono::year(2026) / 3 / 1);
    std::unique_ptr<CStartPane> m_pane;
    std::size_t m_asked = 0;
    std::size_t m_opened = 0;
};

} // namespace

TEST(StartPane, Script)
{
    ExpectScriptOf<CStage>("start-pane.txt");
}

TEST(StartPane, Page)
{
    CMemoryMessageLoop loop;
    const CServiceScope<CMessageLoop> loopScope(loop);
    CMemoryHttpService web;
    const CServiceScope<CHttpService> webScope(web);
    CMemoryStartPaneView view;
    CStartPane pane;
    pane.SetClock([] { return std::chrono::sys_seconds(std::chrono::hours(10)); });
    pane.SetView(&view);
    EXPECT_EQ(view.GetPage(), u"<p class=\"state\">No addresses of news or tutorials are configured.</p>");

    std::string body = "<feed><link href='https://a.example/'/><entry><title>&lt;One&gt;</title>"
                       "<link href='/1?a&amp;b'/><updated>2026-03-01</updated><summary>S</summary></entry>";
    for (int i = 0; i < 11; ++i)
        body += "<entry><summary>x</summary></entry>";
    web.SetAnswer(u"https://a.example/f", {.status = 200, .body = body + "</feed>"});
    web.SetAnswer(u"https://b.example/f", {.status = 200, .body = "<feed/>"});
    web.SetAnswer(u"https://c.example/f", {.outcome = EHttpOutcome::Untrusted, .detail = u"<self-signed>"});
    const SFeedSource sources[] = {{EFeedKind::News, u"https://a.example/f"},
                                   {EFeedKind::Modules, u"https://b.example/f", u"A & B"},
                                   {EFeedKind::Revisions, u"https://c.example/f"}};
    pane.SetSources(sources);
    EXPECT_TRUE(
        view.GetPage().StartsWith(u"<h2>News</h2><p class=\"state\">Not fetched yet from a.example.</p>"));
    pane.Refresh();
    loop.Pump();
    std::string untitled;
    for (int i = 0; i < 9; ++i)
        untitled += "<p class=\"entry\">(no title)</p><div class=\"summary\">x</div>";
    EXPECT_EQ(view.GetPage().ToUtf8(),
              "<h2>News</h2><p class=\"state\">Updated 1970-01-01 10:00.</p>"
              "<p class=\"entry\"><a href=\"https://a.example/1?a&amp;b\">&lt;One&gt;</a><br/>"
              "<span class=\"date\">2026-03-01</span></p><div class=\"summary\">S</div>" +
                  untitled +
                  "<p class=\"entry\"><a href=\"https://a.example/\">2 more</a></p>"
                  "<h2>A &amp; B</h2><p class=\"state\">Updated 1970-01-01 10:00.</p>"
                  "<p class=\"state\">There are no entries.</p>"
                  "<h2>Revisions</h2><p class=\"fault\">Not available: the server does not prove who it is "
                  "(&lt;self-signed&gt;).</p>");
}

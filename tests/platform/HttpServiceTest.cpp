#include "platform/network/MemoryHttpService.h"

#include "platform/memory/MemoryMessageLoop.h"
#include "platform/network/WebAddress.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <thread>

using namespace CommonUI;

namespace
{

// Answers from a thread of its own, a byte of progress after the other.
class CThreadedHttpService final : public CHttpService
{
public:
    ~CThreadedHttpService() override { Wait(); }
    void Wait()
    {
        for (std::thread& thread : m_threads)
            if (thread.joinable())
                thread.join();
    }

protected:
    void Start(TIdentifier identifier, const SHttpRequest& /*request*/) override
    {
        m_threads.emplace_back([this, identifier] {
            for (std::size_t received = 1; received <= 1000; ++received)
                Report(identifier, received, 1000);
            Finish(identifier, {.status = 200});
        });
    }
    void Stop(TIdentifier /*identifier*/) override {}

private:
    std::vector<std::thread> m_threads;
};

// A loop of messages, and what a request has told.
class HttpService : public testing::Test
{
protected:
    CHttpService::TIdentifier Get(CHttpService& service, const char16_t* address = u"https://a.example/feed")
    {
        return service.Get(
            {.address = address},
            [this](const SHttpAnswer& answer) {
                told += "answer " + std::to_string(static_cast<int>(answer.outcome)) + " " +
                        std::to_string(answer.status) + ";";
            },
            [this](std::size_t received, std::size_t) { told += std::to_string(received) + ";"; });
    }

    CMemoryMessageLoop loop;
    CServiceScope<CMessageLoop> scope{loop};
    std::string told;
};

} // namespace

TEST_F(HttpService, TellsOfARequestByMessages)
{
    CMemoryHttpService web;
    Get(web);
    web.Advance(u"https://a.example/feed", 5, 9);
    web.Advance(u"https://a.example/feed", 7, 9);
    web.SetAnswer(u"https://a.example/feed", {.status = 200, .body = "123"});
    EXPECT_EQ(told, "");
    loop.Pump();
    EXPECT_EQ(told, "7;answer 0 200;") << "progress that waits is overwritten";
    EXPECT_EQ(web.GetWaitingCount(), 0U);
}

TEST_F(HttpService, IsSilentAfterCancelAndAfterItsEnd)
{
    std::optional<CMemoryHttpService> web(std::in_place);
    web->SetAnswer(u"https://a.example/feed", {.status = 200});
    web->Cancel(Get(*web));
    Get(*web);
    web.reset();
    EXPECT_EQ(loop.Pump(), 2U);
    EXPECT_EQ(told, "");
}

TEST_F(HttpService, AnswersWhatCannotBeFetched)
{
    Get(GetHttpService());
    CMemoryHttpService web;
    Get(web, u"file:///etc/passwd");
    web.SetAnswer(u"https://a.example/feed", {.status = 200, .body = std::string((1 << 20) + 1, 'x')});
    Get(web);
    loop.Pump();
    EXPECT_EQ(told, "answer 9 0;answer 1 0;answer 5 0;");
    EXPECT_EQ(web.GetRequests().size(), 1U);
}

TEST_F(HttpService, TakesAnswersFromOtherThreads)
{
    CThreadedHttpService service;
    for (int i = 0; i < 4; ++i)
        service.Cancel(Get(service));
    Get(service);
    EXPECT_TRUE(loop.RunUntil([this] { return told.ends_with("answer 0 200;"); }));
    EXPECT_EQ(told.find("answer"), told.rfind("answer"));
}

TEST_F(HttpService, FindsHeadersInWhateverCase)
{
    const SHttpAnswer answer{.headers = {{"ETag", "1"}, {"etag", "2"}, {"ETags", "3"}}};
    EXPECT_EQ(answer.GetHeader("eTAG"), "1");
    EXPECT_EQ(answer.GetHeader("eta"), "");
}

TEST(WebAddress, WhereLinksLead)
{
    const struct {
        const char16_t* reference;
        const char16_t* address; // empty where it is none of the web
    } rows[] = {
        {u"https://b.example", u"https://b.example"},
        {u"HTTP://b.example:80/x?y#z", u"HTTP://b.example:80/x?y#z"},
        {u"http://[::1]:8080/", u"http://[::1]:8080/"},
        {u" \n/x y\tz ", u"https://a.example/x%20yz"},
        {u"//b.example/x", u"https://b.example/x"},
        {u"/x", u"https://a.example/x"},
        {u"x", u"https://a.example/p/x"},
        {u"x:y/z", u""},
        {u"./x:y", u"https://a.example/p/x:y"},
        {u"../../x/./y/..?a=..", u"https://a.example/x/?a=.."},
        {u"?x", u"https://a.example/p/q?x"},
        {u"#x", u"https://a.example/p/q?r#x"},
        {u"", u""},
        {u"javascript:alert(1)", u""},
        {u"java\nscript:alert(1)", u""},
        {u"data:text/html,x", u""},
        {u"file:///etc/passwd", u""},
        {u"ftp://b.example/x", u""},
        {u"https:x", u""},
        {u"https:///x", u""},
        {u"https://:80/", u""},
        {u"https://a.example@b.example/", u""},
        {u"https://b.example\\@a.example/", u""},
        {u"/\\b.example/", u""},
        {u"https://b.example/\"onclick=", u""},
        {u"https://b.example/<b>", u""},
        {u"https://b.example/\u202Egpj", u""},
        {u"https://b%2Eexample/", u""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ResolveWebAddress(row.reference, u"https://a.example/p/q?r#s").ToUtf8(),
                  CStr(row.address).ToUtf8())
            << CStr(row.reference).ToUtf8();
    EXPECT_EQ(ResolveWebAddress(u"x?y", u"https://a.example?z"), u"https://a.example/x?y");
    EXPECT_EQ(ResolveWebAddress(u"/x", u"file:///etc/"), u"");
    EXPECT_FALSE(IsWebAddress(u"https://a.example/" + CStr(2000, u'x')));
    EXPECT_EQ(GetWebServer(u"https://a.example:8080/x"), u"a.example:8080");
}

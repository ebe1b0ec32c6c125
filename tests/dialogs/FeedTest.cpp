#include "dialogs/start_pane/Feed.h"

#include "dialogs/start_pane/FeedDate.h"
#include "dialogs/start_pane/MemoryStartPaneView.h"
#include "tests/TestData.h"

using namespace CommonUI;

namespace
{

constexpr const char16_t* c_address = u"https://a.example/feeds/news";

std::string Tell(const SFeed& feed)
{
    const CMemoryStartPaneView view;
    std::string told = (feed.title + u" | " + feed.link + u"\n").ToUtf8();
    for (const SFeedEntry& entry : feed.entries)
        told += CStr::Format(u"%s | %s | %s | %s\n", entry.title, entry.link,
                             entry.date ? view.FormatTime(*entry.date) : CStr(u"-"), entry.summary)
                    .ToUtf8();
    return told;
}

std::string Read(const std::string& bytes)
{
    SFeed feed;
    CStr reason;
    return ReadFeed(bytes, c_address, feed, reason) ? Tell(feed) : "refused: " + reason.ToUtf8();
}

std::string Repeated(const std::string& piece, int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += piece;
    return text;
}

} // namespace

TEST(Feed, ReadsAtom)
{
    EXPECT_EQ(Read("<?xml version='1.0'?><feed xmlns='http://www.w3.org/2005/Atom'>"
                   "<title>Surface &amp;lt; news</title><link rel='self' href='x'/><link href='/site'/>"
                   "<entry><title type='html'>A &lt;b>bold&lt;/b> step</title><link href='e/1'/>"
                   "<updated>2026-03-02T00:30:00+01:00</updated>"
                   "<summary type='html'>&lt;p>One&lt;script>x&lt;/script></summary></entry>"
                   "<entry><title>Plain &lt;b></title><link rel='enclosure' href='https://b.example/z.zip'/>"
                   "<published>2026-01-01T00:00:00Z</published><updated>2026-02-01T00:00:00Z</updated>"
                   "<content type='xhtml'><div>In <b>a</b> box</div></content></entry>"
                   "<entry><id>1</id></entry></feed>"),
              "Surface &lt; news | https://a.example/site\n"
              "A bold step | https://a.example/feeds/e/1 | 2026-03-01 23:30 | <p>One</p>\n"
              "Plain <b> | https://b.example/z.zip | 2026-01-01 00:00 | In a box\n");
}

TEST(Feed, ReadsRss)
{
    EXPECT_EQ(
        Read("<rss version='2.0'><channel><title>News</title><link>https://a.example/</link>"
             "<item><title>Tom &amp;amp; co</title><link> https://a.example/1 </link>"
             "<pubDate>Sun, 01 Mar 2026 12:00:00 +0100</pubDate>"
             "<description><![CDATA[<p onclick='f()'>See <a href='/2'>this</a>]]></description></item>"
             "<item><guid>https://a.example/3</guid><content:encoded>x</content:encoded></item>"
             "<item><title>T</title><guid isPermaLink='false'>4</guid><link>javascript:f()</link></item>"
             "</channel></rss>"),
        "News | https://a.example/\n"
        "Tom & co | https://a.example/1 | 2026-03-01 11:00 | "
        "<p>See <a href=\"https://a.example/2\">this</a></p>\n"
        " | https://a.example/3 | - | x\n"
        "T |  | - | \n");
}

TEST(Feed, RefusesWhatIsNone)
{
    const struct {
        std::string bytes;
        const char* reason; // a part of it
    } rows[] = {
        {"", "at byte 0"},
        {"<html><body>Log in first</body></html>", "there is no element \"rss\""},
        {"<feed><entry>", "at byte"},
        {"<!DOCTYPE x [<!ENTITY a 'aa'>]><feed>&a;</feed>", "declarations of its own"},
        {"<feed>" + Repeated("<a>", 300) + Repeated("</a>", 300) + "</feed>", "nested"},
        {"<rss><channel>" + Repeated("<item/>", 100'000) + "</channel></rss>", "more than 20000 elements"},
        {"\x1F\x8B\x08\x00\x00\x00\x00\x00", "at byte"},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(Has(Read(row.bytes), "refused: ")) << row.reason;
        EXPECT_TRUE(Has(Read(row.bytes), row.reason)) << Read(row.bytes);
    }
}

TEST(Feed, ReadsTheFirstEntries)
{
    SFeed feed;
    CStr reason;
    const std::string entries = Repeated("<entry><title>" + std::string(500, 'x') + "</title></entry>", 15);
    ASSERT_TRUE(ReadFeed("<feed>" + entries + "</feed>", c_address, feed, reason));
    EXPECT_EQ(feed.entries.size(), c_mostFeedEntries);
    EXPECT_EQ(feed.leftOut, 5U);
    EXPECT_EQ(feed.entries[0].title.GetLength(), c_mostFeedTitleCharacters + 1);
}

TEST(FeedDate, Forms)
{
    const struct {
        const char16_t* text;
        const char16_t* time; // empty where it is none
    } rows[] = {
        {u"2026-03-01T12:34:56Z", u"2026-03-01 12:34"},
        {u"2024-02-29t23:59:59.123-00:30", u"2024-03-01 00:29"},
        {u" 2026-03-01 ", u"2026-03-01 00:00"},
        {u"Sun, 1 Mar 2026 12:34 EST", u"2026-03-01 17:34"},
        {u"01 Dec 99 12:34:60 GMT", u"1999-12-01 12:35"},
        {u"Sun, 01 Mar 2026 00:10:00 +0530", u"2026-02-28 18:40"},
        {u"2026-02-29", u""},
        {u"2026-03-01T24:00:00Z", u""},
        {u"2026-03-01T12:00:00", u""},
        {u"2026-03-01T12:00:00Zx", u""},
        {u"01 Mrz 2026 12:00 GMT", u""},
        {u"01 anF 2026 12:00 GMT", u""},
        {u"yesterday", u""},
        {u"", u""},
    };
    const CMemoryStartPaneView view;
    for (const auto& row : rows) {
        const auto time = ReadFeedDate(row.text);
        EXPECT_EQ(time ? view.FormatTime(*time) : CStr(), row.time) << CStr(row.text).ToUtf8();
    }
}

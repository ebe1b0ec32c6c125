#include "dialogs/start_pane/FeedCache.h"

#include "common/PathText.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/TemporaryFolder.h"
#include "tests/TestData.h"

using namespace CommonUI;

namespace
{

class FeedCache : public testing::Test
{
protected:
    static SCachedFeed MakeFeed(int number, std::size_t size = 100)
    {
        return {.address = CStr::Format(u"https://a.example/%d", number),
                .source = u"https://b.example/\u00E4",
                .fetched = std::chrono::sys_seconds(std::chrono::seconds(1'000'000 + number)),
                .entityTag = "\"x\"",
                .lastModified = "Sun, 01 Mar 2026 12:00:00 GMT",
                .body = std::string(size, '\n')};
    }
    bool Has(const CFeedCache& cache, int number) const
    {
        SCachedFeed feed;
        return cache.Load(MakeFeed(number).address, feed);
    }
    CStr Folder() const
    {
        CStr text;
        ToText(folder.GetPath() / "feeds", text);
        return text;
    }
    std::vector<std::filesystem::path> Files() const
    {
        return {std::filesystem::directory_iterator(folder.GetPath() / "feeds"), {}};
    }

    CTemporaryFolder folder;
    CDiagnosticsCapture lines;
};

} // namespace

TEST_F(FeedCache, GivesBackWhatItKeeps)
{
    const CFeedCache cache(Folder());
    SCachedFeed read;
    EXPECT_FALSE(cache.Load(MakeFeed(1).address, read));
    SCachedFeed feed = MakeFeed(1);
    ASSERT_TRUE(cache.Store(feed) && cache.Load(feed.address, read));
    EXPECT_EQ(read, feed);
    feed.body = "x";
    feed.entityTag = "a\nb";
    ASSERT_TRUE(cache.Store(feed) && cache.Load(feed.address, read));
    EXPECT_EQ(read.body, "x");
    EXPECT_EQ(read.entityTag, "") << "what is no line";
    EXPECT_EQ(Files().size(), 1U);
    EXPECT_EQ(lines.GetCount(), 0);
}

TEST_F(FeedCache, DropsWhatIsDamaged)
{
    const CFeedCache cache(Folder());
    ASSERT_TRUE(cache.Store(MakeFeed(1)));
    const std::filesystem::path file = Files().at(0);
    const std::string whole = folder.Read(file);
    std::string changed = whole;
    changed.back() = ' ';
    const std::string cases[] = {"",      whole.substr(0, whole.size() - 1),    whole + "x",
                                 changed, "CommonUI feed 2" + whole.substr(15), std::string(10 << 20, 'x')};
    for (const std::string& bytes : cases) {
        folder.Write(file, bytes);
        EXPECT_FALSE(Has(cache, 1));
        EXPECT_FALSE(std::filesystem::exists(file));
        const auto told = lines.Take();
        EXPECT_EQ(told.size(), 1U);
        EXPECT_TRUE(!told.empty() && told[0].StartsWith(u"StartPane: The kept feed \""));
    }
    folder.Write(file, whole);
    EXPECT_TRUE(Has(cache, 1));
    ASSERT_TRUE(cache.Store(MakeFeed(2)));
    for (const auto& other : Files())
        folder.Write(other, whole);
    EXPECT_FALSE(Has(cache, 2)) << "of another address";
}

TEST_F(FeedCache, MakesRoom)
{
    const CFeedCache cache(Folder(), 3000);
    folder.Write("feeds/notes.feed", std::string(5000, 'x'));
    for (int number = 1; number <= 3; ++number) {
        ASSERT_TRUE(cache.Store(MakeFeed(number, 1000)));
        // Files that are written within a tick of the clock have one time.
        for (const auto& file : Files())
            std::filesystem::last_write_time(file,
                                             std::filesystem::last_write_time(file) - std::chrono::hours(1));
    }
    EXPECT_FALSE(Has(cache, 1));
    EXPECT_TRUE(Has(cache, 2) && Has(cache, 3));
    EXPECT_FALSE(cache.Store(MakeFeed(3, 3000))) << "too large for all";
    EXPECT_TRUE(Has(cache, 2) && Has(cache, 3));
    EXPECT_EQ(Files().size(), 3U) << "what is no feed stays";
    EXPECT_EQ(lines.GetCount(), 1);
}

TEST_F(FeedCache, SaysWhyItCannotKeep)
{
    folder.Write("feeds", "a file");
    EXPECT_FALSE(CFeedCache(Folder()).Store(MakeFeed(1)));
    const auto told = lines.Take();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].StartsWith(u"StartPane: The feed of \"https://a.example/1\" is not kept: "));
}

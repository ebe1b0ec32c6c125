#include "windows/services/WinClipboard.h"

#include "tests/windows/ClipboardTesting.h"
#include "tests/windows/ReplacedCall.h"

#include <future>
#include <thread>

using namespace CommonUI;

namespace
{

// Another program that has the clipboard open for a while, or until it is told.
class CHolder
{
public:
    explicit CHolder(std::chrono::milliseconds time)
    {
        std::promise<void> held;
        std::future<void> isHeld = held.get_future();
        m_thread = std::thread([this, time, held = std::move(held)]() mutable {
            const HWND window =
                CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
            EXPECT_TRUE(OpenClipboard(window));
            held.set_value();
            m_release.get_future().wait_for(time);
            CloseClipboard();
            DestroyWindow(window);
        });
        isHeld.wait();
    }
    ~CHolder()
    {
        m_release.set_value();
        m_thread.join();
    }
    CHolder(const CHolder&) = delete;
    CHolder& operator=(const CHolder&) = delete;

private:
    std::promise<void> m_release;
    std::thread m_thread;
};

} // namespace

TEST(WinClipboard, WaitsForWhoHoldsItAndGivesUpWithoutLoss)
{
    CWinClipboard clipboard;
    ASSERT_TRUE(clipboard.Put(u"<p>first</p>", u"first"));
    {
        const CHolder forLong(std::chrono::minutes(1));
        EXPECT_FALSE(clipboard.Put(u"<p>second</p>", u"second"));
    }
    EXPECT_EQ(ReadClipboardText(), u"first");
    EXPECT_EQ(ReadClipboardHtml(), u"<p>first</p>");
    const CHolder forAMoment(std::chrono::milliseconds(60));
    EXPECT_TRUE(clipboard.Put(u"<p>third</p>", u"third"));
    EXPECT_EQ(ReadClipboardText(), u"third");
}

TEST(WinClipboard, IsLeftWithoutHalfOfTheContent)
{
    using FSet = HANDLE(WINAPI*)(UINT, HANDLE);
    using FLock = LPVOID(WINAPI*)(HGLOBAL);
    CWinClipboard clipboard;
    ASSERT_TRUE(clipboard.Put(u"<p>first</p>", u"first"));
    {
        const CReplacedCall<FLock> failing("GlobalLock", [](HGLOBAL) WINAPI -> LPVOID { return nullptr; });
        EXPECT_FALSE(clipboard.Put(u"<p>second</p>", u"second"));
    }
    EXPECT_EQ(ReadClipboardText(), u"first");
    EXPECT_EQ(ReadClipboardHtml(), u"<p>first</p>");
    {
        const CReplacedCall<FSet> failing("SetClipboardData", [](UINT format, HANDLE data) WINAPI -> HANDLE {
            return format == CF_UNICODETEXT ? nullptr : SetClipboardData(format, data);
        });
        EXPECT_FALSE(clipboard.Put(u"<p>third</p>", u"third"));
    }
    EXPECT_EQ(CountClipboardFormats(), 0);
}

TEST(WinClipboard, LinesEndAsWindowsHasThem)
{
    CWinClipboard clipboard;
    ASSERT_TRUE(clipboard.Put(u"", u"\na\r\nb\n\nc"));
    EXPECT_EQ(ReadClipboardText(), u"\r\na\r\nb\r\n\r\nc");
}

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

// Handles of the events for the other program, which inherits them: it has the clipboard, and may let it go.
constexpr const wchar_t* c_heldBy = L"COMMONUI_CLIPBOARD_HELD";
constexpr const wchar_t* c_releasedBy = L"COMMONUI_CLIPBOARD_RELEASED";

HANDLE MakeEvent(const wchar_t* name)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const HANDLE event = CreateEventW(&inherited, TRUE, FALSE, nullptr);
    SetEnvironmentVariableW(name, std::to_wstring(reinterpret_cast<UINT_PTR>(event)).c_str());
    return event;
}

HANDLE GetEvent(const wchar_t* name)
{
    wchar_t number[32] = {};
    GetEnvironmentVariableW(name, number, 32);
    return reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(std::stoull(number)));
}

// This program once more, which runs the one test that holds the clipboard.
class CHoldingProgram
{
public:
    CHoldingProgram()
    {
        wchar_t file[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, file, MAX_PATH);
        std::wstring line = L"holder --gtest_also_run_disabled_tests --gtest_brief=1 "
                            L"--gtest_filter=WinClipboard.DISABLED_IsHeldForAnotherProgram";
        STARTUPINFOW start{};
        start.cb = sizeof start;
        const BOOL isStarted = CreateProcessW(file, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                              &start, &m_process);
        EXPECT_TRUE(isStarted);
        const HANDLE either[] = {m_held, m_process.hProcess};
        EXPECT_EQ(WaitForMultipleObjects(2, either, FALSE, INFINITE), WAIT_OBJECT_0) << "it ended too early";
    }
    ~CHoldingProgram()
    {
        SetEvent(m_released);
        WaitForSingleObject(m_process.hProcess, INFINITE);
        for (const HANDLE handle : {m_process.hProcess, m_process.hThread, m_held, m_released})
            CloseHandle(handle);
    }
    CHoldingProgram(const CHoldingProgram&) = delete;
    CHoldingProgram& operator=(const CHoldingProgram&) = delete;

private:
    HANDLE m_held = MakeEvent(c_heldBy);
    HANDLE m_released = MakeEvent(c_releasedBy);
    PROCESS_INFORMATION m_process{};
};

} // namespace

// What CHoldingProgram runs.
TEST(WinClipboard, DISABLED_IsHeldForAnotherProgram)
{
    ASSERT_TRUE(OpenClipboard(nullptr));
    SetEvent(GetEvent(c_heldBy));
    WaitForSingleObject(GetEvent(c_releasedBy), INFINITE);
    CloseClipboard();
}

TEST(WinClipboard, GivesUpWithoutLossWhileAnotherProgramHoldsIt)
{
    CWinClipboard clipboard;
    ASSERT_TRUE(clipboard.Put(u"<p>first</p>", u"first"));
    {
        const CHoldingProgram other;
        EXPECT_FALSE(clipboard.Put(u"<p>second</p>", u"second"));
    }
    EXPECT_EQ(ReadClipboardText(), u"first");
    EXPECT_EQ(ReadClipboardHtml(), u"<p>first</p>");
    EXPECT_TRUE(clipboard.Put(u"<p>third</p>", u"third"));
    EXPECT_EQ(ReadClipboardText(), u"third");
}

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

#include "windows/services/WinMessageLoop.h"

#include "tests/contract/LoopContract.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/windows/ReplacedCall.h"
#include "tests/windows/WindowTesting.h"
#include "windows/services/WinTimerService.h"

using namespace CommonUI;

namespace
{

int s_keys = 0;

LRESULT CALLBACK CountKeys(HWND window, UINT message, WPARAM wide, LPARAM longer)
{
    s_keys += message == WM_KEYDOWN ? 1 : 0;
    return DefWindowProcW(window, message, wide, longer);
}

// A window with the keyboard.
class CKeyWindow
{
public:
    CKeyWindow()
        : m_window(CreateWindowExW(0, L"STATIC", L"Keys", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100,
                                   nullptr, nullptr, nullptr, nullptr))
    {
        SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountKeys));
        SetForegroundWindow(m_window);
        SetFocus(m_window);
        s_keys = 0;
    }
    ~CKeyWindow() { DestroyWindow(m_window); }
    CKeyWindow(const CKeyWindow&) = delete;
    CKeyWindow& operator=(const CKeyWindow&) = delete;

    HWND Get() const { return m_window; }

    static void Press(WORD key)
    {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        SendInput(1, &input, sizeof input);
    }

private:
    HWND m_window;
};

// RunUntil, for three seconds at most.
bool RunFor(CWinMessageLoop& loop, const CMessageLoop::FCondition& isDone)
{
    bool late = false;
    static bool* s_late = nullptr;
    s_late = &late;
    const UINT_PTR timer =
        SetTimer(nullptr, 0, 3000, [](HWND, UINT, UINT_PTR, DWORD) CALLBACK { *s_late = true; });
    loop.RunUntil([&] { return late || isDone(); });
    KillTimer(nullptr, timer);
    return !late;
}

} // namespace

TEST(WinMessageLoop, KeysComeThroughAFloodOfMessages)
{
    CWinMessageLoop loop;
    const CKeyWindow window;
    int messages = 0;
    bool ended = false;
    CMessageLoop::FMessage flood = [&] {
        if (messages++ % 100 == 0 && messages < 1000)
            CKeyWindow::Press('A');
        if (!ended)
            loop.Post(flood);
    };
    loop.Post(flood);
    EXPECT_TRUE(loop.RunUntil([&] { return s_keys == 10; }));
    ended = true;
    loop.Pump();
}

TEST(WinMessageLoop, RunsInsideTheLoopOfABox)
{
    CWinTimerService timers;
    CWinMessageLoop loop;
    int messages = 0;
    int ticks = 0;
    s_onTick = [&](auto) { ++ticks; };
    const auto timer = timers.Create(1, OnContractTick);
    CMessageLoop::FMessage chain = [&] {
        ++messages;
        const HWND box = FindDialog();
        if (box && messages >= 100 && ticks >= 3)
            PostMessageW(box, WM_COMMAND, IDOK, 0);
        else
            loop.Post(chain);
    };
    loop.Post(chain);
    EXPECT_EQ(MessageBoxW(nullptr, L"Text", L"Title", MB_OK), IDOK);
    timers.Kill(timer);
}

TEST(WinMessageLoop, AnExceptionInsideABoxReachesTheCallerBehindIt)
{
    CWinMessageLoop loop;
    bool closed = false;
    loop.Post([&] {
        loop.Post([] { throw std::runtime_error("first"); });
        loop.Post([] { throw std::logic_error("second"); });
        const CWhenShown answer([](HWND box) { PostMessageW(box, WM_COMMAND, IDOK, 0); }, 5);
        MessageBoxW(nullptr, L"Text", L"Title", MB_OK);
        closed = true;
    });
    EXPECT_THROW(loop.RunUntil([] { return false; }), std::runtime_error);
    EXPECT_TRUE(closed);
}

TEST(WinMessageLoop, AnExceptionThatNobodyWaitsForIsInTheDiagnostics)
{
    CDiagnosticsCapture lines;
    CWinMessageLoop loop;
    loop.Post([] { throw std::runtime_error("lost"); });
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
    EXPECT_EQ(lines.Take(), std::vector<CStr>{u"Windows: an exception left a callback: lost"});
}

TEST(WinMessageLoop, GoesOnWhereTheSystemTakesNoPostedMessages)
{
    using FPost = BOOL(WINAPI*)(HWND, UINT, WPARAM, LPARAM);
    CWinMessageLoop loop;
    int handled = 0;
    const auto post = [&] { loop.Post([&] { ++handled; }); };
    const CKeyWindow window;
    CKeyWindow::Press('A');
    post();
    for (MSG message; PeekMessageW(&message, nullptr, 0xC000, 0xFFFF, PM_REMOVE);)
        DispatchMessageW(&message); // which sets a timer, as a key waits
    EXPECT_EQ(handled, 0);
    {
        const CReplacedCall<FPost> full("PostMessageW",
                                        [](HWND, UINT, WPARAM, LPARAM) WINAPI -> BOOL { return FALSE; });
        loop.Pump();
        for (int wanted = 2; wanted < 4; ++wanted) {
            post();
            EXPECT_TRUE(RunFor(loop, [&] { return handled == wanted; })) << handled;
        }
        std::thread(post).join();
        EXPECT_TRUE(RunFor(loop, [&] { return handled == 4; })) << handled;
    }
    post();
    EXPECT_TRUE(RunFor(loop, [&] { return handled == 5; })) << handled;
}

TEST(WinMessageLoop, SaysThatTheSystemGivesNoMessages)
{
    using FGet = BOOL(WINAPI*)(MSG*, HWND, UINT, UINT);
    CWinMessageLoop loop;
    const CReplacedCall<FGet> failing("GetMessageW",
                                      [](MSG*, HWND, UINT, UINT) WINAPI -> BOOL { return -1; });
    EXPECT_THROW(loop.RunUntil([] { return false; }), std::system_error);
}

TEST(WinMessageLoop, ATickThatEndsTheLoopLeavesItsMessages)
{
    static std::unique_ptr<CWinMessageLoop> s_loop;
    static bool s_handled = false;
    s_loop = std::make_unique<CWinMessageLoop>();
    const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM,
                                    [](HWND, UINT, UINT_PTR, DWORD) CALLBACK { s_loop.reset(); });
    s_loop->Post([] { s_handled = true; });
    Sleep(2 * USER_TIMER_MINIMUM); // the tick is due when the message comes
    for (MSG message; s_loop && GetMessageW(&message, nullptr, 0, 0) > 0;)
        DispatchMessageW(&message);
    KillTimer(nullptr, timer);
    EXPECT_FALSE(s_handled);
}

TEST(WinMessageLoop, AFilterTakesWhatIsItsOwn)
{
    CWinMessageLoop loop;
    const CKeyWindow window;
    loop.SetFilter([](MSG& message) { return message.message == WM_KEYDOWN && message.wParam == 'B'; });
    for (const WPARAM key : {'A', 'B', 'C'})
        PostMessageW(window.Get(), WM_KEYDOWN, key, 0);
    loop.Pump();
    EXPECT_EQ(s_keys, 2);
}

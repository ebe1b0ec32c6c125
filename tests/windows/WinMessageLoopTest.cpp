#include "windows/services/WinMessageLoop.h"

#include "tests/contract/LoopContract.h"
#include "tests/DiagnosticsCapture.h"
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

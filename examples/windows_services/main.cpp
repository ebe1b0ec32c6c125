#include <CommonUI/controls/Timer.h>
#include <CommonUI/windows/services/WinServices.h>

#include <cstdio>
#include <thread>

using namespace CommonUI;

// Looks from time to time at what a worker has found.
class CWatch
{
public:
    CWatch() { m_timer.SetCallback(*this, &CWatch::OnTick); }

    void Start() { m_timer.SetRunning(true); }
    void Take(int number) { m_sum += number; }
    int GetSum() const { return m_sum; }

private:
    void OnTick(CBaseTimer&) { std::printf("%d so far\n", m_sum); }

    CWinTimer m_timer{20};
    int m_sum = 0;
};

int main()
{
    const CWinServices services(u"Sum"); // the title of message boxes
    CWatch watch;
    watch.Start();

    bool done = false;
    std::thread worker([&] {
        CMessageLoop& loop = GetMessageLoop();
        for (int number = 1; number <= 1000; ++number)
            loop.Post([&watch, number] { watch.Take(number); }); // runs on the first thread
        loop.Post([&done] { done = true; });
    });
    GetMessageLoop().RunUntil([&] { return done; });
    worker.join();

    const CStr sum = CStr::Format(u"%d", watch.GetSum());
    if (!GetClipboard().Put(u"<b>" + sum + u"</b>", sum)) {
        GetMessageBoxService().Show({u"Another program holds the clipboard.", MessageBoxStyle::c_warning});
        return 1;
    }
    std::printf("Copied %s.\n", sum.ToUtf8().c_str());
    return 0;
}

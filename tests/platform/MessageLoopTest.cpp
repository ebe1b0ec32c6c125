#include "platform/MessageLoop.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>
#include <vector>

using namespace CommonUI;

namespace
{

/// A service whose timers are always overdue.
class CHastyService : public CConsoleTimerService
{
protected:
    CTimerSchedule::TTime GetNow() const override { return std::chrono::seconds(++m_seconds); }

private:
    mutable int m_seconds = 0;
};

int s_ticks = 0;

} // namespace

TEST(ConsoleMessageLoop, HandlesMessagesAndTimers)
{
    CHastyService timers;
    CConsoleMessageLoop loop(timers);
    std::vector<int> handled;
    std::thread([&] {
        for (const int i : {1, 2, 3})
            loop.Post([&handled, i] { handled.push_back(i); });
    }).join();
    loop.Post([&] {
        loop.Post([&] { handled.push_back(4); });
        loop.RunUntil([&] { return handled.size() == 4; });
        throw std::runtime_error("message");
    });
    EXPECT_THROW(loop.RunUntil([] { return false; }), std::runtime_error);
    EXPECT_EQ(handled, (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(loop.GetCount(), 0U);

    const auto timer = timers.Create(10, [](CTimerService::TIdentifier) { ++s_ticks; });
    loop.RunUntil([] { return s_ticks == 3; });
    timers.Kill(timer);
}

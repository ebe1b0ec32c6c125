#include "platform/ConsoleTimerService.h"
#include "platform/ManualTimerService.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <utility>
#include <vector>

using namespace CommonUI;
using std::chrono::milliseconds;

namespace
{

// The console service on a clock that jumps to the end of each wait.
class CJumpingService : public CConsoleTimerService
{
public:
    milliseconds time{0};

protected:
    CTimerSchedule::TTime GetNow() const override { return time; }
    void WaitUntil(CTimerSchedule::TTime end) override
    {
        time = std::chrono::duration_cast<milliseconds>(end);
    }
};

using CTicks = std::vector<std::pair<CTimerService::TIdentifier, std::int64_t>>;
std::function<void(CTimerService::TIdentifier)> s_action;

void OnTick(CTimerService::TIdentifier identifier)
{
    s_action(identifier);
}

} // namespace

TEST(ManualTimerService, TicksInOrderOfTimeAndAge)
{
    CManualTimerService service;
    const auto a = service.Create(20, OnTick);
    const auto b = service.Create(10, OnTick);
    const auto c = service.Create(20, OnTick);
    CTimerService::TIdentifier d = 0;
    CTicks ticks;
    s_action = [&](auto identifier) {
        ticks.emplace_back(identifier, service.GetTime());
        if (identifier == a && d == 0)
            d = service.Create(5, OnTick);
        if (identifier == c || identifier == d)
            service.Kill(identifier == c ? b : d);
    };
    service.Advance(40);
    EXPECT_EQ(ticks, (CTicks{{b, 10}, {a, 20}, {b, 20}, {c, 20}, {d, 25}, {a, 40}, {c, 40}}));
    EXPECT_EQ(service.GetTime(), 40U);
    EXPECT_FALSE(service.Kill(d));
}

TEST(ManualTimerService, TickMayAdvanceTheClockOrThrow)
{
    CManualTimerService service;
    CTicks ticks;
    const auto slow = service.Create(10, OnTick);
    const auto fast = service.Create(4, OnTick);
    s_action = [&](auto identifier) {
        ticks.emplace_back(identifier, service.GetTime());
        if (identifier == slow && service.GetTime() == 10)
            service.Advance(7);
        if (service.GetTime() == 20)
            throw std::runtime_error("tick");
    };
    service.Advance(12);
    EXPECT_EQ(ticks, (CTicks{{fast, 4}, {fast, 8}, {slow, 10}, {fast, 12}, {fast, 16}}));
    EXPECT_EQ(service.GetTime(), 17U);
    ticks.clear();
    EXPECT_THROW(service.Advance(9), std::runtime_error);
    EXPECT_THROW(service.Advance(0), std::runtime_error);
    service.Advance(4);
    EXPECT_EQ(ticks, (CTicks{{slow, 20}, {fast, 20}, {fast, 24}}));
}

TEST(ConsoleTimerService, MakesUpForMissedTicksWithOne)
{
    CJumpingService service;
    CTicks ticks;
    s_action = [&](auto identifier) { ticks.emplace_back(identifier, service.time.count()); };
    const auto a = service.Create(10, OnTick);
    const auto b = service.Create(25, OnTick);
    service.time = milliseconds(9);
    EXPECT_EQ(service.ProcessDue(), 0U);
    service.time = milliseconds(34);
    EXPECT_EQ(service.ProcessDue(), 2U);
    EXPECT_EQ(service.ProcessDue(), 0U);
    service.RunFor(18);
    EXPECT_EQ(ticks, (CTicks{{a, 34}, {b, 34}, {a, 40}, {a, 50}, {b, 50}}));
    EXPECT_EQ(service.time, milliseconds(52));
}

TEST(ConsoleTimerService, RunsUntilNoTimerIsLeft)
{
    EXPECT_EQ(&GetTimerService(), &GetConsoleTimerService());
    int count = 0;
    s_action = [&](auto identifier) {
        if (++count == 3)
            GetTimerService().Kill(identifier);
    };
    GetTimerService().Create(0, OnTick);
    GetConsoleTimerService().RunUntilIdle();
    EXPECT_EQ(count, 3);
}

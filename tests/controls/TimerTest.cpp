#include "controls/Timer.h"

#include "tests/CountedTimers.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/Script.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

using namespace CommonUI;

namespace
{

// A manual service that can be out of timers, repeat an identifier, and shows what it was asked.
class CTestService : public CCountedTimers
{
public:
    TIdentifier Create(unsigned int interval, FProcedure given) override
    {
        procedure = given;
        return forced ? *forced : CCountedTimers::Create(interval, given);
    }
    bool Kill(TIdentifier identifier) override
    {
        killed = identifier;
        return CCountedTimers::Kill(identifier);
    }

    std::optional<TIdentifier> forced;
    FProcedure procedure = nullptr;
    TIdentifier killed = 0;
};

class Timer : public testing::Test
{
public:
    Timer() { timer->SetCallback(*this, &Timer::OnTick); }
    void OnTick(CBaseTimer&)
    {
        ++ticks;
        if (action)
            action(*this);
    }
    void OnOtherTick(CBaseTimer&) { ++otherTicks; }

    CTestService service;
    CServiceScope<CTimerService> scope{service};
    std::unique_ptr<CWinTimer> timer = std::make_unique<CWinTimer>(30U);
    void (*action)(Timer&) = nullptr;
    int ticks = 0;
    int otherTicks = 0;
};

} // namespace

TEST_F(Timer, RunsFromStartToStop)
{
    EXPECT_FALSE(timer->IsRunning());
    EXPECT_TRUE(timer->SetRunning(true) && timer->SetRunning(true));
    EXPECT_EQ(service.GetTimerCount(), 1);
    service.Advance(20);
    timer->SetInterval(20);
    service.Advance(19);
    EXPECT_EQ(ticks, 0);
    service.Advance(21);
    EXPECT_EQ(ticks, 2);
    EXPECT_TRUE(timer->SetRunning(false));
    EXPECT_EQ(service.GetTimerCount(), 0);
    EXPECT_TRUE(timer->SetRunning(true));
    timer.reset();
    EXPECT_EQ(service.GetTimerCount(), 0);
    // A tick that was on its way.
    service.killed = 0;
    service.procedure(1);
    EXPECT_EQ(std::tuple(ticks, service.killed), std::tuple(2, 1U));
}

TEST_F(Timer, FrequencyGivesTheInterval)
{
    ExpectScript("timer-frequencies.txt", [this](const SCommand& hertz) {
        const CDiagnosticsCapture warnings;
        timer->SetInterval(30);
        timer->SetFrequency(hertz.Get<double>());
        return std::to_string(timer->GetInterval()) + (warnings.GetCount() == 1 ? " warning" : "");
    });
}

TEST_F(Timer, StaysStoppedWithoutAnIdentifierOfItsOwn)
{
    timer->SetRunning(true);
    CWinTimer second(10);
    for (const CTimerService::TIdentifier identifier : {0u, 1u}) {
        service.forced = identifier;
        EXPECT_FALSE(second.SetRunning(true) || second.IsRunning());
    }
    service.Advance(30);
    EXPECT_EQ(ticks, 1);
    service.forced = 0;
    timer->SetInterval(20);
    EXPECT_FALSE(timer->IsRunning());
}

TEST_F(Timer, TickMayChangeItsTimer)
{
    const std::tuple<const char*, void (*)(Timer&), int, int> cases[] = {
        {"stop", [](Timer& t) { t.timer->SetRunning(false); }, 1, 0},
        {"change the interval", [](Timer& t) { t.timer->SetInterval(20); }, 4, 0},
        {"destroy", [](Timer& t) { t.timer.reset(); }, 1, 0},
        {"change the callback", [](Timer& t) { t.timer->SetCallback(t, &Timer::OnOtherTick); }, 1, 2},
        {"run a loop", [](Timer& t) { t.ticks < 2 ? t.service.Advance(30) : void(); }, 3, 0},
    };
    for (const auto& [what, change, expectedTicks, expectedOtherTicks] : cases) {
        timer = std::make_unique<CWinTimer>(30U);
        timer->SetCallback(*this, &Timer::OnTick);
        timer->SetRunning(true);
        ticks = otherTicks = 0;
        action = change;
        service.Advance(90);
        EXPECT_EQ(std::tuple(ticks, otherTicks), std::tuple(expectedTicks, expectedOtherTicks)) << what;
    }
}

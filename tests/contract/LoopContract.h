#pragma once

#include "platform/MessageLoop.h"
#include "platform/TimerService.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace CommonUI
{

/// @file
/// What every message loop promises, together with the timers that tick in it. A host has a member `loop`, a
/// member `timers`, RunProgram, which runs the application's own loop until its end, and EndProgram, which
/// asks for that.

/// What a tick of OnContractTick does.
inline std::function<void(CTimerService::TIdentifier)> s_onTick;

inline void OnContractTick(CTimerService::TIdentifier identifier)
{
    // It may set another one.
    const auto onTick = s_onTick;
    onTick(identifier);
}

template<class THost>
class LoopContract : public testing::Test
{
protected:
    CMessageLoop& GetLoop() { return host.loop; }
    CTimerService& GetTimers() { return host.timers; }

    THost host;
};

TYPED_TEST_SUITE_P(LoopContract);

TYPED_TEST_P(LoopContract, HandlesMessagesOfAllThreadsInTheirOrder)
{
    constexpr int c_count = 1000;
    CMessageLoop& loop = this->GetLoop();
    std::vector<int> handled[2];
    const auto post = [&loop](std::vector<int>& list) {
        for (int i = 0; i < c_count; ++i)
            loop.Post([&list, i] { list.push_back(i); });
    };
    std::thread first([&] { post(handled[0]); });
    std::thread second([&] { post(handled[1]); });
    EXPECT_TRUE(loop.RunUntil([&] { return handled[0].size() + handled[1].size() == 2U * c_count; }));
    first.join();
    second.join();
    for (const auto& list : handled)
        EXPECT_TRUE(list.size() == c_count && std::is_sorted(list.begin(), list.end()));
}

TYPED_TEST_P(LoopContract, NestedLoopsEndByTheirOwnConditionOrAnException)
{
    CMessageLoop& loop = this->GetLoop();
    std::string log;
    const auto has = [&log](const char* what) { return log.find(what) != std::string::npos; };
    loop.Post([&] {
        loop.Post([&] { log += "outer, "; });
        loop.Post([&] { log += "inner, "; });
        loop.RunUntil([&] { return has("inner"); });
        log += "inner ended";
        loop.Post([] { throw std::runtime_error("message"); });
        EXPECT_THROW(loop.RunUntil([] { return false; }), std::runtime_error);
    });
    EXPECT_TRUE(loop.RunUntil([&] { return has("outer"); }));
    EXPECT_EQ(log, "outer, inner, inner ended");
}

TYPED_TEST_P(LoopContract, AnExceptionLeavesTheMessagesBehindIt)
{
    CMessageLoop& loop = this->GetLoop();
    int handled = 0;
    loop.Post([] { throw std::runtime_error("message"); });
    loop.Post([&] { ++handled; });
    EXPECT_THROW(loop.RunUntil([] { return false; }), std::runtime_error);
    EXPECT_EQ(handled, 0);
    EXPECT_TRUE(loop.RunUntil([&] { return handled == 1; }));
}

TYPED_TEST_P(LoopContract, PumpHandlesWhatWaitsUntilAMessageThrows)
{
    CMessageLoop& loop = this->GetLoop();
    int handled = 0;
    for (const bool throws : {false, true, false})
        loop.Post([&handled, throws] { throws ? throw std::runtime_error("message") : ++handled; });
    EXPECT_THROW(loop.Pump(), std::runtime_error);
    EXPECT_EQ(handled, 1);
    EXPECT_EQ(loop.Pump(), 1U);
    EXPECT_EQ(handled, 2);
    EXPECT_EQ(loop.Pump(), 0U);
}

TYPED_TEST_P(LoopContract, MessagesThatPostMessagesDoNotKeepPump)
{
    CMessageLoop& loop = this->GetLoop();
    bool ended = false;
    CMessageLoop::FMessage again = [&] {
        if (!ended)
            loop.Post(again);
    };
    loop.Post(again);
    const std::size_t handled = loop.Pump();
    EXPECT_TRUE(handled == 1 || handled == 2)
        << "the message that waited, and one more where a loop is like that";
    ended = true;
    EXPECT_EQ(loop.Pump(), 1U);
    EXPECT_EQ(loop.Pump(), 0U);
}

TYPED_TEST_P(LoopContract, MessagesThatPostMessagesKeepNobodyWaiting)
{
    CMessageLoop& loop = this->GetLoop();
    int ticks = 0;
    bool ended = false;
    CMessageLoop::FMessage chain = [&] {
        if (!ended)
            loop.Post(chain);
    };
    s_onTick = [&](auto) { ++ticks; };
    const auto timer = this->GetTimers().Create(1, OnContractTick);
    chain();
    EXPECT_TRUE(loop.RunUntil([&] { return ticks >= 3; }));
    ended = true;
    EXPECT_TRUE(this->GetTimers().Kill(timer));
    EXPECT_EQ(loop.Pump(), 1U);
}

TYPED_TEST_P(LoopContract, TheEndOfTheProgramEndsNestedLoops)
{
    CMessageLoop& loop = this->GetLoop();
    bool outer = true;
    bool inner = true;
    loop.Post([&] {
        loop.Post([&] { inner = loop.RunUntil([] { return false; }); });
        loop.Post([&] { this->host.EndProgram(); });
        outer = loop.RunUntil([] { return false; });
    });
    this->host.RunProgram();
    EXPECT_FALSE(inner);
    EXPECT_FALSE(outer);
}

TYPED_TEST_P(LoopContract, TimersTickUntilTheyAreKilled)
{
    CTimerService& timers = this->GetTimers();
    std::vector<CTimerService::TIdentifier> ticking;
    s_onTick = [&](auto identifier) { ticking.push_back(identifier); };
    const auto seldom = timers.Create(3'600'000, OnContractTick);
    const auto first = timers.Create(1, OnContractTick);
    const auto second = timers.Create(0, OnContractTick);
    EXPECT_TRUE(first != 0 && second != 0 && seldom != 0 && first != second && first != seldom);
    const auto count = [&](auto identifier) {
        return std::count(ticking.begin(), ticking.end(), identifier);
    };
    EXPECT_TRUE(this->GetLoop().RunUntil([&] { return count(first) >= 3 && count(second) >= 3; }));
    EXPECT_TRUE(timers.Kill(first));
    const auto before = count(first);
    EXPECT_TRUE(this->GetLoop().RunUntil([&, until = count(second) + 3] { return count(second) >= until; }));
    EXPECT_EQ(count(first), before);
    EXPECT_EQ(count(seldom), 0);
    EXPECT_TRUE(timers.Kill(second) && timers.Kill(seldom));
    EXPECT_FALSE(timers.Kill(first) || timers.Kill(0));
}

// As a worker's thread is joined with its timer still due.
TYPED_TEST_P(LoopContract, ATickMayKillAnotherTimerThatIsDue)
{
    CTimerService& timers = this->GetTimers();
    CTimerService::TIdentifier pair[2] = {};
    int ticks = 0;
    s_onTick = [&](auto identifier) {
        ++ticks;
        EXPECT_TRUE(timers.Kill(identifier == pair[0] ? pair[1] : pair[0]));
        timers.Kill(identifier);
    };
    for (auto& timer : pair)
        timer = timers.Create(1, OnContractTick);
    bool handled = false;
    for (const std::uint64_t start = timers.GetTime(); timers.GetTime() < start + 40;)
        continue;
    this->GetLoop().RunUntil([&] { return ticks > 0; });
    this->GetLoop().Post([&] { handled = true; });
    this->GetLoop().RunUntil([&] { return handled; });
    EXPECT_EQ(ticks, 1);
}

TYPED_TEST_P(LoopContract, AnExceptionOfATickReachesTheLoop)
{
    s_onTick = [](auto) { throw std::runtime_error("tick"); };
    const auto timer = this->GetTimers().Create(1, OnContractTick);
    EXPECT_THROW(this->GetLoop().RunUntil([] { return false; }), std::runtime_error);
    EXPECT_TRUE(this->GetTimers().Kill(timer));
}

TYPED_TEST_P(LoopContract, ATickMayRunALoopForMessagesAndTicks)
{
    CMessageLoop& loop = this->GetLoop();
    CTimerService& timers = this->GetTimers();
    int inner = 0;
    bool handled = false;
    bool ended = false;
    s_onTick = [&](auto outer) {
        s_onTick = [&inner, outer](auto identifier) { inner += identifier == outer ? 0 : 1; };
        const auto other = timers.Create(1, OnContractTick);
        loop.RunUntil([&] { return handled && inner >= 2; });
        ended = timers.Kill(other);
    };
    const auto timer = timers.Create(1, OnContractTick);
    // Due by the time when the loop looks at the message.
    for (const std::uint64_t start = timers.GetTime(); timers.GetTime() < start + 40;)
        continue;
    loop.Post([&] { handled = true; });
    EXPECT_TRUE(loop.RunUntil([&] { return ended; }));
    EXPECT_TRUE(timers.Kill(timer));
}

REGISTER_TYPED_TEST_SUITE_P(LoopContract, HandlesMessagesOfAllThreadsInTheirOrder,
                            NestedLoopsEndByTheirOwnConditionOrAnException,
                            AnExceptionLeavesTheMessagesBehindIt, PumpHandlesWhatWaitsUntilAMessageThrows,
                            MessagesThatPostMessagesDoNotKeepPump, MessagesThatPostMessagesKeepNobodyWaiting,
                            TheEndOfTheProgramEndsNestedLoops, TimersTickUntilTheyAreKilled,
                            ATickMayKillAnotherTimerThatIsDue, AnExceptionOfATickReachesTheLoop,
                            ATickMayRunALoopForMessagesAndTicks);

} // namespace CommonUI

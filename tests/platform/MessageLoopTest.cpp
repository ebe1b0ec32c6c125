#include "platform/ConsoleTimerService.h"
#include "platform/memory/MemoryMessageLoop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <thread>
#include <vector>

using namespace CommonUI;

namespace
{

int s_ticks = 0;

} // namespace

TEST(MessageLoop, HandlesMessagesOfAllThreadsInTheirOrder)
{
    constexpr int c_count = 1000;
    CMemoryMessageLoop loop;
    std::vector<int> handled[2];
    const auto post = [&](std::vector<int>& list) {
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

TEST(MessageLoop, PumpLeavesWhatMessagesPost)
{
    CMemoryMessageLoop loop;
    CMessageLoop::FMessage again = [&] { loop.Post(again); };
    loop.Post(again);
    EXPECT_EQ(loop.Pump(), 1U);
    EXPECT_EQ(loop.GetCount(), 1U);
}

TEST(MessageLoop, ExceptionLeavesTheMessagesBehindIt)
{
    CMemoryMessageLoop loop;
    int handled = 0;
    loop.Post([] { throw std::runtime_error("message"); });
    loop.Post([&] { ++handled; });
    EXPECT_THROW(loop.RunUntil([] { return false; }), std::runtime_error);
    EXPECT_TRUE(loop.RunUntil([&] { return handled == 1; }));
}

TEST(MessageLoop, QuitEndsNestedLoops)
{
    CMemoryMessageLoop loop;
    bool inner = true;
    loop.Post([&] { inner = loop.RunUntil([] { return false; }); });
    loop.Post([&] { loop.Quit(); });
    EXPECT_FALSE(loop.RunUntil([] { return false; }));
    EXPECT_FALSE(inner);
}

TEST(MessageLoop, MakesTicksWhileItWaits)
{
    s_ticks = 0;
    CConsoleTimerService timers;
    CMemoryMessageLoop loop(&timers);
    timers.Create(1, [](CTimerService::TIdentifier) { ++s_ticks; });
    EXPECT_TRUE(loop.RunUntil([] { return s_ticks == 2; }));
}

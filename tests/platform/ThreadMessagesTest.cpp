#include "platform/ThreadMessages.h"

#include "platform/ThreadService.h"
#include "platform/WorkerThread.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

using namespace CommonUI;

TEST(ThreadMessages, BelongToOneThreadAndEndWithIt)
{
    class CService : public CThreadService
    {
    public:
        bool SetPriority(int given) override
        {
            priority = given;
            return true;
        }
        int priority = 0;
    } service;
    const CServiceScope<CThreadService> scope(service);
    bool taken[4] = {};
    unsigned long inside = 0;
    CWorkerThread worker(
        [&]() -> unsigned long {
            inside = GetThreadIdentifier();
            for (bool& one : taken)
                one = TakeThreadMessage(&one == &taken[2] ? 8 : 7);
            return 5;
        },
        CWorkerThread::c_timeCritical);
    const unsigned long identifier = worker.GetIdentifier();
    for (const unsigned int message : {7U, 8U, 7U})
        EXPECT_TRUE(PostToThread(identifier, message));
    EXPECT_FALSE(TakeThreadMessage(7)) << "this thread's queue is another one";
    EXPECT_FALSE(PostToThread(0, 7));
    worker.Start();
    EXPECT_EQ(worker.Wait(), 5U);
    EXPECT_EQ(inside, identifier);
    EXPECT_NE(GetThreadIdentifier(), identifier);
    EXPECT_TRUE(taken[0] && taken[1] && taken[2] && !taken[3]);
    EXPECT_FALSE(PostToThread(identifier, 7)) << "the thread has ended";
    EXPECT_EQ(service.priority, 15);
}

TEST(ThreadMessages, EndWithThreadsThatMadeTheirOwnQueue)
{
    for (int i = 0; i < 200; ++i) {
        unsigned long identifier = 0;
        std::thread thread([&identifier] {
            identifier = GetThreadIdentifier();
            // What a thread's end frees too early would be overwritten.
            const std::vector<std::string> texts(200, std::string(60, 'x'));
            EXPECT_EQ(texts.back().back(), 'x');
        });
        thread.join();
        ASSERT_FALSE(PostToThread(identifier, 7)) << "thread " << i << " has ended";
    }
}

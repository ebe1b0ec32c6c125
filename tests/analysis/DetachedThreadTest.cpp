#include "analysis/numeric/DetachedThread.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

using namespace CommonUI::Analysis;

TEST(DetachedThread, StartsEachTimeAndFreesWhatItHolds)
{
    struct SShared {
        std::mutex mutex;
        std::condition_variable changed;
        int done = 0;
    };
    const auto shared = std::make_shared<SShared>();
    for (int i = 1; i <= 500; ++i) {
        StartDetachedThread([shared] {
            const std::lock_guard lock(shared->mutex);
            ++shared->done;
            shared->changed.notify_all();
        });
        std::unique_lock lock(shared->mutex);
        shared->changed.wait(lock, [&] { return shared->done == i; });
    }
    while (shared.use_count() > 1)
        std::this_thread::yield();
}

#include "formats/SurfaceReading.h"

#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>

using namespace CommonUI::Formats;
using std::chrono::milliseconds;

TEST(SurfaceReading, GivesTheSurfaceOrTheReason)
{
    const CTemporaryFolder folder;
    folder.Write("a.sdf",
                 "aISO-1.0\nNumPoints = 2\nNumProfiles = 1\nXscale = 1\nYscale = 1\nZscale = 1\n*\n1 2\n*\n");
    CSurfaceReading good(folder.GetPath() / "a.sdf");
    EXPECT_EQ(good.Take().heights, (std::vector<double>{1, 2}));
    CSurfaceReading bad(folder.GetPath() / "b.sdf");
    EXPECT_TRUE(bad.WaitFor(std::chrono::minutes(1)));
    EXPECT_THROW(bad.Take(), EReadError);
}

TEST(SurfaceReading, IsGivenUpWithoutWaitingForTheDrive)
{
    std::promise<void> answer;
    std::promise<bool> wentOn;
    {
        const CSurfaceReading reading("any.sdf", [&](const auto&, const FProgress& progress) {
            progress(0.25);
            answer.get_future().wait();
            try {
                progress(0.5);
            } catch (...) {
                wentOn.set_value(false);
                throw;
            }
            wentOn.set_value(true);
            return CommonUI::Analysis::SSurface();
        });
        EXPECT_FALSE(reading.WaitFor(milliseconds(1)));
        while (reading.GetFraction() == 0)
            std::this_thread::yield();
        EXPECT_EQ(reading.GetFraction(), 0.25);
    }
    answer.set_value();
    EXPECT_FALSE(wentOn.get_future().get());
}

#include "measurement/BackgroundResults.h"

#include "platform/memory/MemoryMessageLoop.h"

#include <gtest/gtest.h>

#include <future>

using namespace CommonUI;
using namespace CommonUI::Measurement;

namespace
{

std::shared_ptr<const SInput> MakeInput(std::size_t points, double height)
{
    auto input = std::make_shared<SInput>();
    input->surface = {.points = points, .lines = 4, .dx = 1e-6, .dy = 1e-6};
    for (std::size_t i = 0; i < 4 * points; ++i)
        input->surface.heights.push_back(i % 2 == 0 ? height : 0);
    return input;
}

} // namespace

TEST(BackgroundResults, TheLastRequestIsAnswered)
{
    CMemoryMessageLoop loop;
    const CServiceScope<CMessageLoop> scope(loop);
    const CAnalysisPreferencesManager manager;
    const SChoices choices = MakeChoices(manager, {.keys = {u"Sa"}});
    std::vector<CBackgroundResults::SAnswer> answers;
    {
        CBackgroundResults results([&](const auto& answer) { answers.push_back(answer); });
        const auto wait = [&] { return loop.RunUntil([&] { return !results.IsBusy(); }); };
        for (int i = 0; i < 5; ++i)
            results.Request(MakeInput(4, 1e-6 * i), choices);
        EXPECT_TRUE(results.IsBusy());
        EXPECT_TRUE(wait());
        ASSERT_EQ(answers.size(), 1u);
        const auto& rows = answers[0].tables->GetSurface().GetRows();
        ASSERT_EQ(rows.size(), 1u);
        EXPECT_EQ(rows[0].cells[0].ToUtf8(), "2");

        results.Request(MakeInput(4, Analysis::c_missing), choices);
        EXPECT_TRUE(wait());
        EXPECT_FALSE(answers.back().error.IsEmpty() && answers.back().tables->GetSurface().GetRows().empty());

        // What is given up, or asked for by somebody who goes, is not told.
        results.Request(MakeInput(4, 1), choices);
        results.Cancel();
        EXPECT_FALSE(results.IsBusy());
        results.Request(MakeInput(4, 1), choices);
    }
    loop.Pump();
    EXPECT_EQ(answers.size(), 2u);
}

TEST(BackgroundWork, WhoeverGoesWaitsForNothing)
{
    CMemoryMessageLoop loop;
    const CServiceScope<CMessageLoop> scope(loop);
    std::promise<void> begun;
    std::promise<void> end;
    bool isShown = false;
    bool isWantedAfterwards = true;
    {
        CBackgroundWork work;
        work.Request([&](const CBackgroundWork::FIsWanted& isWanted) {
            EXPECT_TRUE(isWanted());
            begun.set_value();
            end.get_future().wait();
            isWantedAfterwards = isWanted();
            return [&] { isShown = true; };
        });
        begun.get_future().wait();
        work.Request([&](const auto&) { return [&] { isShown = true; }; });
        EXPECT_TRUE(work.IsBusy());
    }
    end.set_value();
    CBackgroundWork::WaitForAll();
    loop.Pump();
    EXPECT_FALSE(isShown);
    EXPECT_FALSE(isWantedAfterwards);
}

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
    constexpr auto c_analysis = EAnalysis::Roughness;
    std::vector<CBackgroundResults::SAnswer> answers;
    {
        CBackgroundResults results([&](const auto& answer) { answers.push_back(answer); });
        const auto wait = [&] { return loop.RunUntil([&] { return !results.IsBusy(); }); };
        for (int i = 0; i < 5; ++i)
            results.Request(MakeInput(4, 1e-6 * i), c_analysis, choices);
        EXPECT_TRUE(results.IsBusy());
        EXPECT_TRUE(wait());
        ASSERT_EQ(answers.size(), 1u);
        ASSERT_EQ(answers[0].set->quantities.size(), 1u);
        EXPECT_NEAR(answers[0].set->quantities[0].values.at(0), 2e-6, 1e-12);

        results.Request(MakeInput(4, Analysis::c_missing), c_analysis, choices);
        EXPECT_TRUE(wait());
        EXPECT_TRUE(answers.back().set || !answers.back().error.IsEmpty());

        // What is given up, or asked for by somebody who goes, is not told.
        results.Request(MakeInput(4, 1), c_analysis, choices);
        results.Cancel();
        EXPECT_FALSE(results.IsBusy());
        results.Request(MakeInput(4, 1), c_analysis, choices);
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

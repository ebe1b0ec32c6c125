#include "measurement/process/StepProcessor.h"
#include "measurement/process/SurfaceProcessing.h"
#include "platform/ConsoleTimerService.h"
#include "platform/memory/MemoryMessageLoop.h"
#include "tests/analysis/TestSurfaces.h"
#include "tests/common/FailingAllocation.h"

#include <cmath>
#include <future>

using namespace CommonUI;
using namespace CommonUI::Measurement;
using Analysis::MakeSurface;

namespace
{

std::shared_ptr<const SInput> MakeInput(std::size_t side)
{
    auto input = std::make_shared<SInput>();
    input->surface = MakeSurface(side, side, [](double x, double y) { return std::sin(x) + 0.1 * x * y; });
    return input;
}

SProcessStep Mean(unsigned id, int columns)
{
    const SFilterSettings mean{.kind = EFilterKind::Mean, .rows = 3, .columns = columns};
    return {.id = id, .name = CStr::Format(u"Mean %d", columns), .work = mean};
}

SProcessStep TooFine(unsigned id)
{
    const SFilterSettings fine{.kind = EFilterKind::ArealGaussian, .cutoff = {.length = 1e-12}};
    return {.id = id, .name = u"Fine", .work = fine};
}

bool Always()
{
    return true;
}

} // namespace

TEST(StepProcessor, DoesAgainOnlyWhatIsBehindAChange)
{
    const auto original = MakeInput(32);
    CStepProcessor kept;
    CProcessSteps steps;
    for (unsigned i = 1; i <= 6; ++i)
        steps.push_back(Mean(i, 3));
    const auto run = [&](const char* what, std::size_t done) {
        const auto result = kept.Run(original, steps, Always);
        EXPECT_EQ(kept.GetDone(), done) << what;
        EXPECT_LE(kept.GetKept(), CStepProcessor::c_mostKept);
        CStepProcessor fresh; // which knows nothing
        EXPECT_EQ(result->input->surface.heights, fresh.Run(original, steps, Always)->input->surface.heights)
            << what;
        return *result;
    };
    run("all", 6);
    run("the same", 0);
    steps[5] = Mean(6, 5);
    run("the last", 1);
    steps[3].work = Mean(0, 5).work;
    run("one whose start has gone", 3 + 3); // its own, the two behind it, and what led to it
    for (const int columns : {7, 9, 11}) {
        steps[3].work = Mean(0, columns).work;
        run("the same one again", 3);
    }
    steps[1].work = Mean(0, 5).work;
    run("one in front", 6);
    for (const int columns : {7, 9}) { // with more behind it than is kept
        steps[1].work = Mean(0, columns).work;
        run("the one in front again", 5);
    }
    steps[5].isOn = false;
    EXPECT_EQ(run("off", 0).input->steps.size(), 5u);
    steps.clear();
    EXPECT_EQ(run("none", 0).input, original);
}

TEST(StepProcessor, WhatDoesNotFitIsLeftOutAndSaid)
{
    const auto original = MakeInput(16);
    CStepProcessor processor;
    const CProcessSteps steps{Mean(1, 3),
                              TooFine(2),
                              {.id = 3, .name = u"Voids", .work = SInterpolation()},
                              {.id = 4, .name = u"Report", .work = SNoChange()},
                              Mean(5, 5)};
    const SProcessed result = *processor.Run(original, steps, Always);
    EXPECT_EQ(result.refusals[0], CStr());
    EXPECT_NE(result.refusals[1], CStr());
    EXPECT_EQ(result.refusals[2].ToUtf8(), "no point is missing");
    EXPECT_EQ(result.refusals[4], CStr());
    ASSERT_EQ(result.input->steps.size(), 4u);
    EXPECT_EQ(result.input->steps[2].ToUtf8(), "Voids: left out, no point is missing");
    CStepProcessor other;
    EXPECT_EQ(other.Run(original, {Mean(1, 3), Mean(2, 5)}, Always)->input->surface.heights,
              result.input->surface.heights);
    int asked = 0;
    EXPECT_FALSE(CStepProcessor().Run(original, steps, [&] { return ++asked < 2; }));
    EXPECT_EQ(asked, 2);
}

#if !defined(_WIN32) // where a program cannot replace the "new" of its libraries
TEST(StepProcessor, TooLittleMemoryIsForgotten)
{
#if defined(_LIBCPP_VERSION)
    GTEST_SKIP() << "std::async of this library waits for ever for what it had no memory to start";
#endif
    const auto original = MakeInput(16);
    const CProcessSteps steps{Mean(1, 3), Mean(2, 5)};
    const auto expected = CStepProcessor().Run(original, steps, Always)->input->surface.heights;
    int rounds = 0;
    for (CEachAllocation each; each.Next(); ++rounds) {
        CStepProcessor processor;
        const bool isDone = each.Try([&] { processor.Run(original, steps, Always); });
        EXPECT_EQ(isDone, !each.HasFailed()) << each.GetNumber();
        const SProcessed result = *processor.Run(original, steps, Always);
        EXPECT_EQ(result.refusals, std::vector<CStr>(2)) << each.GetNumber();
        EXPECT_EQ(result.input->surface.heights, expected) << each.GetNumber();
    }
    EXPECT_GT(rounds, 5);
}
#endif

TEST(BackgroundSteps, WindowsShrinkWithEachDirection)
{
    using enum EFilterKind;
    struct SCase {
        const char* what;
        SFilterSettings before;
        SPointsPerPoint ratio;
        int columns, rows;
    };
    for (const SCase& row : std::initializer_list<SCase>{
             {"lines stay", {.kind = Mean, .rows = 15, .columns = 15}, {32, 1}, 1, 15},
             {"points stay", {.kind = Mean, .rows = 15, .columns = 15}, {1, 4}, 15, 5},
             {"all stay", {.kind = Mean, .rows = 15, .columns = 15}, {1, 1}, 15, 15},
             {"spikes", {.kind = Spikes, .rows = 3, .columns = 3}, {16, 16}, 3, 3},
             {"weak median",
              {.kind = Median, .rows = 3, .columns = 15, .strength = EFilterStrength::Weak},
              {2, 8},
              9,
              3},
             {"full median", {.kind = Median, .rows = 3, .columns = 3}, {16, 16}, 1, 1},
             {"of a line",
              {.kind = Spikes, .application = EFilterApplication::Curve, .rows = 1, .columns = 5},
              {8, 8},
              3,
              1},
             {"streaks", {.kind = Streaks, .maximumWidth = 9}, {64, 1}, 1, 1},
             {"Gauss", {.kind = Gauss, .rows = 25, .columns = 25, .standardDeviation = 4}, {4, 2}, 3, 13}}) {
        const auto after = std::get<SFilterSettings>(ScaleWork(row.before, row.ratio));
        EXPECT_EQ(after.columns, row.columns) << row.what;
        EXPECT_EQ(after.rows, row.rows) << row.what;
        EXPECT_EQ(after.maximumWidth, row.before.maximumWidth) << row.what;
        EXPECT_EQ(after.standardDeviation, row.before.standardDeviation / 2) << row.what;
    }
}

TEST(BackgroundSteps, PreviewsShowWhatIsToCome)
{
    CMemoryMessageLoop loop;
    const CServiceScope<CMessageLoop> loopScope(loop);
    const auto original = std::make_shared<SInput>();
    original->surface = MakeSurface(1024, 60, [](double x, double y) { return x + 10 * std::sin(y); });
    SProcessed shown;
    const auto ignore = [](const CStr&) {};
    CBackgroundSteps steps([&](const SProcessed& processed) { return [&, processed] { shown = processed; }; },
                           [](const SProcessed&, double) {}, ignore);
    const SFilterSettings mean{.kind = EFilterKind::Mean, .rows = 21, .columns = 15};
    steps.Request(original, {{.id = 1, .name = u"Mean", .work = mean}}, 128);
    EXPECT_TRUE(loop.RunUntil([&] { return shown.input != nullptr; }));
    CStepProcessor whole;
    const auto expected = whole.Run(original, {{.id = 1, .name = u"Mean", .work = mean}}, Always);
    const auto& lines = shown.input->surface;
    ASSERT_EQ(lines.points, 128u);
    ASSERT_EQ(lines.lines, 60u);
    for (std::size_t y = 0; y < 60; ++y) // the lines are as smooth as those of the whole surface
        EXPECT_NEAR(lines.GetLine(y)[64], expected->input->surface.GetLine(y)[515], 1) << y;
}

TEST(SurfaceProcessing, PreviewsComeAtOnceAndTheWholeSurfaceAtRest)
{
    CConsoleTimerService timers;
    const CServiceScope<CTimerService> timersScope(timers);
    CMemoryMessageLoop loop(&timers);
    const CServiceScope<CMessageLoop> loopScope(loop);
    struct SShown {
        std::size_t points;
        bool isPreview;
    };
    std::vector<SShown> shown;
    const auto prepare = [&](const SProcessed& processed, bool isPreview) {
        return [&, points = processed.input->surface.points, isPreview] {
            shown.push_back({points, isPreview});
        };
    };
    CSurfaceProcessing processing(MakeInput(400), prepare);
    processing.SetTarget(1e9);
    const auto wait = [&] { return loop.RunUntil([&] { return !processing.IsBusy(); }); };
    const unsigned id = processing.Add(Mean(0, 3));
    EXPECT_TRUE(wait());
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_FALSE(shown[0].isPreview);

    for (const double columns : {5., 7., 9., 11.})
        EXPECT_TRUE(processing.Edit(id, EStepNumber::Columns, columns));
    EXPECT_TRUE(wait());
    ASSERT_GE(shown.size(), 3u);
    EXPECT_TRUE(shown[1].isPreview && shown[1].points == 128);
    EXPECT_FALSE(shown.back().isPreview);
    EXPECT_EQ(shown.back().points, 400u);
    EXPECT_EQ(std::ranges::count_if(shown, [](const SShown& one) { return !one.isPreview; }), 2);
    EXPECT_GE(processing.GetPreviewSize().Get(), 256u); // as it was quick

    // A time that no preview can keep leads to the smallest one.
    processing.SetTarget(0);
    for (int columns = 13; columns < 23; columns += 2) {
        processing.Edit(id, EStepNumber::Columns, columns);
        EXPECT_TRUE(wait());
    }
    EXPECT_EQ(processing.GetPreviewSize().Get(), CPreviewSize::c_smallest);

    // Steps that only the smaller surface refuses are left out of a preview.
    const SFilterSettings narrow{.kind = EFilterKind::ArealGaussian, .cutoff = {.length = 2.5e-6}};
    const unsigned narrowed = processing.Add({.name = u"Narrow", .work = narrow});
    EXPECT_TRUE(wait());
    EXPECT_TRUE(processing.GetRefusal(narrowed).IsEmpty());
    shown.clear();
    const auto hasPreview = [&] { return std::ranges::any_of(shown, &SShown::isPreview); };
    for (int columns = 3; columns < 23 && !hasPreview();
         columns += 2) { // if it was too late on a busy machine
        processing.Edit(id, EStepNumber::Columns, columns);
        EXPECT_TRUE(wait());
    }
    EXPECT_TRUE(hasPreview());

    const unsigned fine = processing.Add(TooFine(0));
    EXPECT_TRUE(wait());
    EXPECT_FALSE(processing.GetRefusal(fine).IsEmpty());
    processing.Undo();
    EXPECT_TRUE(wait());
    EXPECT_TRUE(processing.GetRefusal(fine).IsEmpty());
}

TEST(SurfaceProcessing, NobodyWaitsForWhatNobodyWants)
{
    CMemoryMessageLoop loop;
    const CServiceScope<CMessageLoop> loopScope(loop);
    std::promise<void> begun;
    std::promise<void> end;
    std::promise<void> ended;
    {
        const auto prepare = [&](const SProcessed&, bool) {
            begun.set_value();
            end.get_future().wait();
            ended.set_value();
            return [] { ADD_FAILURE(); };
        };
        CSurfaceProcessing processing(MakeInput(8), prepare);
        processing.Add(Mean(0, 3));
        begun.get_future().wait();
    } // while the thread is still at it
    end.set_value();
    ended.get_future().wait();
    loop.Pump();
}

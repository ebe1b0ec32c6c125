#include "measurement/series/Series.h"

#include "measurement/BackgroundWork.h"
#include "measurement/ComputeAnalysis.h"
#include "measurement/series/SeriesTable.h"
#include "platform/memory/MemoryMessageLoop.h"
#include "tests/analysis/TestSurfaces.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <new>
#include <stdexcept>
#include <thread>

using namespace CommonUI;
using namespace CommonUI::Measurement;
using Analysis::MakeSurface;

namespace
{

// Surfaces of the height that their path says, in nm.
Analysis::SSurface Read(const CStr& path)
{
    if (path == CStr(u"broken"))
        throw std::runtime_error("broken: nothing is in it");
    if (path == CStr(u"large"))
        throw std::bad_alloc();
    const double height = std::stod(path.ToUtf8());
    return MakeSurface(32, 32,
                       [height](double x, double y) { return 1e-9 * height * std::sin(x * 1e6 + y); });
}

SSeriesRequest MakeRequest(const CAnalysisPreferencesManager& manager,
                           std::initializer_list<const char16_t*> paths)
{
    SSeriesRequest request{.choices = ChooseAnalysis(EAnalysis::Roughness, manager),
                           .read = [](const CStr& path, const auto&) { return Read(path); },
                           .refuse = [](const auto&) { return CStr(); }};
    for (const char16_t* const path : paths)
        request.items.push_back({.name = path, .path = path});
    return request;
}

std::vector<SSeriesRow> ComputeAll(SSeriesRequest request)
{
    CMemoryMessageLoop loop;
    const CServiceScope<CMessageLoop> scope(loop);
    std::vector<SSeriesRow> result;
    CSeries series([&](std::vector<SSeriesRow> rows) { result = std::move(rows); });
    series.Start(std::move(request));
    EXPECT_TRUE(loop.RunUntil([&] { return !series.IsBusy(); }));
    return result;
}

} // namespace

TEST(Series, RowsStandInTheirOrderWhateverFails)
{
    const CAnalysisPreferencesManager manager;
    SSeriesRequest request = MakeRequest(manager, {u"100", u"broken", u"300", u"large", u"200"});
    const auto open = std::make_shared<SInput>(SInput{.surface = Read(u"400")});
    const SFilterSettings fine{.kind = EFilterKind::ArealGaussian, .cutoff = {.length = 1e-12}};
    request.items.push_back(
        {.name = u"open", .input = open, .steps = {{.name = u"Menu / Fine", .work = fine}}});
    const std::vector<SSeriesRow> rows = ComputeAll(request);
    ASSERT_EQ(rows.size(), 6u);
    EXPECT_EQ(open.use_count(), 2); // here and in the request
    const double sa = rows[0].found.values.at(0);
    EXPECT_GT(sa, 0);
    EXPECT_NEAR(rows[2].found.values.at(0), 3 * sa, 1e-6 * sa);
    EXPECT_NEAR(rows[4].found.values.at(0), 2 * sa, 1e-6 * sa);
    EXPECT_NEAR(rows[5].found.values.at(0), 4 * sa, 1e-6 * sa);
    EXPECT_EQ(rows[1].remark, CStr(u"broken: nothing is in it"));
    EXPECT_EQ(rows[3].remark, CStr(u"there is not enough memory"));
    EXPECT_EQ(rows[5].remark.Left(6), CStr(u"Fine: "));

    const SResultSet set = MakeSeriesSet(rows, request, request.choices, u"Set", u"short");
    EXPECT_EQ(set.rowNames.at(5), CStr(u"open"));
    const SResultQuantity& quantity = set.quantities.at(0);
    EXPECT_EQ(quantity.states.size(), 2u);
    EXPECT_EQ(quantity.states.at(0).state, (SValueState{EValueState::Failed, u"broken: nothing is in it"}));
    for (std::size_t i = 0; i < set.statistics.size(); ++i) {
        if (set.statistics[i].key == CStr(u"Mean")) {
            EXPECT_NEAR(quantity.statistics[i], 2.5 * sa, 1e-6 * sa);
        }
    }
}

TEST(Series, SurfacesOfWhichNothingIsAskedForHaveNotFailed)
{
    const CAnalysisPreferencesManager manager;
    SSeriesRequest request = MakeRequest(manager, {u"100", u"broken", u"1"});
    request.choices.surface.clear();
    request.refuse = [](const Analysis::SSurface& surface) {
        return std::ranges::max(surface.heights) > 2e-9 ? CStr(u"it is too high") : CStr();
    };
    const std::vector<SSeriesRow> rows = ComputeAll(request);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_TRUE(rows[0].HasFailed() && rows[1].HasFailed() && !rows[2].HasFailed());
    EXPECT_EQ(rows[0].remark, CStr(u"it is too high"));
}

TEST(Series, TableFollowsChoicesThatItHasValuesOf)
{
    CAnalysisPreferencesManager manager;
    SSeriesRequest request =
        MakeRequest(manager, {u"100", u"broken", u"broken", u"broken", u"broken", u"broken", u"broken"});
    const std::vector<SSeriesRow> rows = ComputeAll(request);
    SChoices shown = request.choices;
    std::ranges::reverse(shown.surface);
    shown.surface.front().SetUnitFactor(CUnit::EUnitFactor::Pico);
    const SResultSet set = MakeSeriesSet(rows, request, shown, u"Set", u"see above");
    EXPECT_EQ(set.quantities.back().values.at(0), rows[0].found.values.at(0));
    EXPECT_EQ(set.quantities.front().parameter.GetUnitFactor(), CUnit::EUnitFactor::Pico);
    EXPECT_EQ(set.quantities.front().states.back().state.reason, CStr(u"see above"));
    EXPECT_TRUE(HasAllValues(request, shown));
    request.choices.surface.pop_back();
    EXPECT_FALSE(HasAllValues(request, shown));
}

TEST(Series, GivesUpWithoutWaiting)
{
    const CAnalysisPreferencesManager manager;
    CMemoryMessageLoop loop;
    const CServiceScope<CMessageLoop> scope(loop);
    std::atomic<int> begun = 0;
    std::atomic<int> ended = 0;
    SSeriesRequest request = MakeRequest(manager, {u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9"});
    request.read = [&](const CStr& path, const SSeriesRequest::FIsWanted& isWanted) {
        ++begun;
        while (isWanted())
            std::this_thread::yield();
        ++ended;
        return Read(path);
    };
    CSeries series([](const auto&) { ADD_FAILURE(); });
    series.Start(std::move(request));
    while (begun == 0)
        std::this_thread::yield();
    series.Cancel();
    EXPECT_FALSE(series.IsBusy());
    CBackgroundWork::WaitForAll();
    loop.RunUntil([&] { return true; });
    EXPECT_EQ(begun, ended);
    EXPECT_LE(begun, static_cast<int>(std::thread::hardware_concurrency()));
}

TEST(Series, WhatIsGivenUpTakesThePlaceOfWhatIsBegun)
{
    const CAnalysisPreferencesManager manager;
    CMemoryMessageLoop loop;
    const CServiceScope<CMessageLoop> scope(loop);
    std::atomic<unsigned> reading = 0;
    std::atomic<unsigned> most = 0;
    std::atomic<bool> isOpen = false;
    SSeriesRequest request = MakeRequest(manager, {u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9"});
    request.read = [&](const CStr& path, const auto&) {
        most = std::max<unsigned>(most, ++reading);
        while (!isOpen)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        --reading;
        return Read(path);
    };
    CSeries one([](const auto&) {});
    CSeries other([](const auto&) {});
    for (int round = 0; round < 4; ++round) {
        one.Start(request);
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        one.Cancel();
    }
    other.Start(request);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    isOpen = true;
    EXPECT_TRUE(loop.RunUntil([&] { return !other.IsBusy(); }));
    EXPECT_LE(most, std::max(1U, std::thread::hardware_concurrency()));
    CBackgroundWork::WaitForAll();
}

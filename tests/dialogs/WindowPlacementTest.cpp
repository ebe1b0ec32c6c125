#include "dialogs/placement/PlacementManager.h"
#include "platform/memory/MemoryScreenService.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/Script.h"

#include <gtest/gtest.h>

#include <limits>

using namespace CommonUI;

namespace
{

constexpr int c_most = std::numeric_limits<int>::max();
constexpr int c_least = std::numeric_limits<int>::min();

// A monitor with a task bar at its bottom.
SScreen MakeScreen(int left, int top, int width, int height, int scale = 100)
{
    const SRect area{left, top, left + width, top + height};
    return {area, {left, top, left + width, top + height - 40}, scale};
}

// One in the middle, one to its left that stands higher, a smaller one to the right.
const std::vector<SScreen> c_desk = {MakeScreen(0, 0, 1920, 1080), MakeScreen(-1600, -300, 1600, 1200, 150),
                                     MakeScreen(1920, 200, 1280, 720)};

std::string ToText(const SWindowPlacement& placement)
{
    return CStr::Format(u"%d %d %dx%d%s", placement.position.x, placement.position.y, placement.size.cx,
                        placement.size.cy, placement.isMaximized ? u" max" : u"")
        .ToUtf8();
}

} // namespace

TEST(WindowPlacement, WindowsComeBackWhereTheirUserReachesThem)
{
    const SSize frame{10, 30};
    const std::pair<SWindowPlacement, const char*> cases[] = {
        {{{100, 100}, {400, 300}}, "100 100 400x300"},
        {{{-1500, -250}, {400, 300}}, "-1500 -250 400x300"},  // left of the origin and above it
        {{{-200, 100}, {400, 300}}, "-200 100 400x300"},      // on two monitors, all of it visible
        {{{1800, 100}, {800, 300}}, "1920 200 800x300"},      // its title bar lies partly on none
        {{{1600, -200}, {280, 300}}, "1600 0 280x300"},       // its title bar is above
        {{{100, 900}, {400, 300}}, "100 710 400x300"},        // it ends below the task bar
        {{{5000, 5000}, {400, 300}}, "2790 550 400x300"},     // on a monitor that is gone
        {{{-9000, -9000}, {400, 300}}, "-1600 -300 400x300"}, // likewise
        {{{2000, 300}, {3000, 2000}}, "1920 200 1270x650"},   // larger than its monitor
        {{{100, 100}, {0, -5}}, "100 100 1x1"},
        {{{100, 100}, {400, 300}, true}, "100 100 400x300 max"},
        {{{c_most, c_most}, {c_most, c_most}}, "1920 200 1270x650"},
        {{{c_least, c_least}, {c_most, c_most}}, "-1600 -300 1590x1130"},
        {{{c_least, c_most}, {c_least, c_least}}, "-1600 829 1x1"},
    };
    for (const auto& [stored, expected] : cases)
        EXPECT_EQ(ToText(FitToScreens(stored, frame, c_desk)), expected) << ToText(stored);
    const SWindowPlacement far{{c_most, 5}, {400, 300}};
    EXPECT_EQ(FitToScreens(far, frame, {}), far) << "no monitors";
    EXPECT_EQ(ToText(FitToScreens(far, {500, 500}, std::vector{SScreen{{0, 0, 9, 9}, {0, 0, 9, 9}}})),
              "0 0 1x1")
        << "a monitor smaller than a frame";
}

TEST(WindowPlacement, SetUpsAreKnownByTheirMonitorsInAnyOrder)
{
    EXPECT_EQ(GetSetUpName(c_desk), u"1600x1200-1600-300@150 1920x1080+0+0 1280x720+1920+200");
    EXPECT_EQ(GetSetUpName(std::vector{c_desk[2], c_desk[0], c_desk[1], c_desk[0]}), GetSetUpName(c_desk));
    CMemoryScreenService screens;
    const CServiceScope<CScreenService> scope(screens);
    EXPECT_EQ(GetCurrentSetUpName(), u"");
    screens.SetScreens({c_desk[0]});
    EXPECT_EQ(GetCurrentSetUpName(), u"1920x1080+0+0");
}

TEST(PlacementManager, EachSetUpHasPlacementsOfItsOwnAndOthersStandIn)
{
    CPlacementManager manager;
    const SWindowPlacement atHome{{1, 2}, {3, 4}}, atWork{{-5, -6}, {7, 8}, true, true, EDock::Right, 250};
    manager.Remember(u"Grid", u"home", atHome);
    manager.Remember(u"Grid", u"work", atWork);
    manager.Remember(u"", u"work", atWork);
    manager.Remember(u"Odd on = name", u"", atHome); // without monitors
    CInifile ini;
    ini.SelectSection(u"Other");
    EXPECT_TRUE(manager.Save(ini));
    EXPECT_EQ(ini.GetSection(), u"Other");

    CPlacementManager later;
    EXPECT_TRUE(later.Load(ini));
    EXPECT_EQ(later.Find(u"Grid", u"home"), atHome);
    EXPECT_EQ(later.Find(u"Grid", u"work"), atWork);
    EXPECT_EQ(later.Find(u"Grid", u"train"), atWork) << "the one used last that knows it";
    EXPECT_EQ(later.Find(u"Odd on = name", u""), atHome);
    EXPECT_EQ(later.Find(u"", u"work"), std::nullopt);
    for (int i = 0; i < 7; ++i)
        later.Remember(u"Plot", CStr::Format(u"%d", i), atWork);
    EXPECT_TRUE(later.Save(ini));
    EXPECT_TRUE(manager.Load(ini));
    EXPECT_EQ(manager.Find(u"Grid", u"home"), std::nullopt) << "used least lately of ten";
    EXPECT_TRUE(manager.Find(u"Plot", u"0"));
}

TEST(PlacementManager, WhatIsNoPlacementIsLeftOutAndTold)
{
    CInifile ini;
    ini.LoadBytes("[WindowPlacement]\nSetUps=1x1+0+0\n"
                  "Short on 1x1+0+0=1,2,3,4,5\nWord on 1x1+0+0=1,2,x,4,0,0\nHuge on 1x1+0+0=1,2,1e999,4,0,0\n"
                  "Long on 1x1+0+0=1,2,99999999999999999999,4,0,0\nWide on 1x1+0+0=1,2,4294967296,4,0,0\n"
                  " on 1x1+0+0=1,2,3,4,0,0\nStrange on 1x1+0+0=1,2,3,4,77,-9,Minimized,Maximized\n"
                  "Elsewhere on 2x2+0+0=1,2,3,4,0,0\n");
    CPlacementManager manager;
    manager.Remember(u"Before", u"1x1+0+0", {});
    const CDiagnosticsCapture capture;
    EXPECT_TRUE(manager.Load(ini));
    EXPECT_EQ(capture.GetCount(), 5);
    for (const char16_t* const window :
         {u"Short", u"Word", u"Huge", u"Long", u"Wide", u"Elsewhere", u"Before"})
        EXPECT_EQ(manager.Find(window, u"1x1+0+0"), std::nullopt) << CStr(window).ToUtf8();
    const SWindowPlacement strange{{1, 2}, {3, 4}, true, false, EDock::None, -9};
    EXPECT_EQ(manager.Find(u"Strange", u"1x1+0+0"), strange);
    EXPECT_TRUE(manager.Save(ini));
    const std::string saved = ini.GetBytes();
    for (const std::string line : {"\nWord on 1x1+0+0=1,2,x,4,0,0\n", "\nShort on 1x1+0+0=1,2,3,4,5\n",
                                   "\nStrange on 1x1+0+0=1,2,3,4,0,-9,Maximized,Minimized\n"})
        EXPECT_NE(saved.find(line), saved.npos) << saved;
    EXPECT_EQ(saved.find("Elsewhere"), saved.npos) << "of a set-up that is forgotten";
}

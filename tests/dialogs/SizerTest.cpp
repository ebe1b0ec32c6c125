#include "dialogs/sizer/Sizer.h"

#include "common/Exceptions.h"
#include "tests/Script.h"

#include <gtest/gtest.h>

using namespace CommonUI;
using namespace SizerRules;

namespace
{

// A label and a field beside it, two lists that share the room below, a text and OK at the bottom.
CSizer MakeDialog()
{
    CSizer sizer({200, 150});
    sizer.Add({5, 5, 55, 20}, c_stay);
    sizer.Add({60, 5, 195, 20}, c_growWidth, {40, 0});
    sizer.Add({5, 25, 100, 120}, {0, 0, 50, 100}, {30, 20});
    sizer.Add({100, 25, 195, 120}, {50, 0, 100, 100}, {30, 20});
    sizer.Add({5, 130, 85, 145}, c_moveDown);
    sizer.Add({145, 130, 195, 145}, c_moveCorner);
    return sizer;
}

std::string Compute(const CSizer& sizer, const SSize& window)
{
    std::string told;
    for (const SRect& place : sizer.Compute(window))
        told += ToText(place);
    return told;
}

} // namespace

TEST(Sizer, ControlsMoveAndGrowByTheirRules)
{
    const CSizer sizer = MakeDialog();
    const std::pair<SSize, const char*> cases[] = {
        {{200, 150}, "(5 5 55 20)(60 5 195 20)(5 25 100 120)(100 25 195 120)(5 130 85 145)(145 130 195 145)"},
        {{301, 250}, "(5 5 55 20)(60 5 296 20)(5 25 150 220)(150 25 296 220)(5 230 85 245)(246 230 296 245)"},
        {{179, 141}, "(5 5 55 20)(60 5 174 20)(5 25 89 111)(89 25 174 111)(5 121 85 136)(124 121 174 136)"},
        // Before the lists would be too narrow, OK would lie on the text.
        {{0, 0}, "(5 5 55 20)(60 5 135 20)(5 25 70 45)(70 25 135 45)(5 55 85 70)(85 55 135 70)"},
    };
    for (const auto& [window, expected] : cases)
        EXPECT_EQ(Compute(sizer, window), expected) << window.cx;
    EXPECT_EQ(sizer.GetMinimumSize(), (SSize{140, 75}));
    EXPECT_EQ(Compute(sizer.Scaled(2, 0.5), {400, 150}).substr(0, 38),
              "(10 5 110 20)(120 5 390 20)(10 25 200 ");
    EXPECT_EQ(Compute(sizer, {2000000000, 150}).substr(12, 22), "60 5 1999999995 20)(5 ");
}

TEST(Sizer, AtItsMinimumEveryControlHasItsOwnAndMayBeSeen)
{
    for (int share = 1; share < 100; ++share)
        for (const int least : {0, 17, 49}) {
            CSizer sizer({103, 100});
            sizer.Add({3, 0, 53, 50}, {0, 0, share, 0}, {least, 0});
            sizer.Add({53, 0, 100, 50}, {share, 0, 100, 0}, {least, 0});
            sizer.Add({3, 50, 40, 100}, c_stay);
            const int width = sizer.GetMinimumSize().cx;
            for (const int window : {width, width + 1, width + 33}) {
                const auto places = sizer.Compute({window, 0});
                EXPECT_GE(places[0].GetWidth(), least) << share;
                EXPECT_GE(places[1].GetWidth(), std::min(least, 47)) << share;
                EXPECT_EQ(places[0].right, places[1].left) << share;
                EXPECT_LE(places[2].right, window) << share;
            }
        }
    CSizer fixed({100, 100});
    fixed.Add({5, 5, 50, 50}, c_moveCorner, {1, 1});
    EXPECT_EQ(fixed.GetMinimumSize(), fixed.GetSize()) << "nothing grows";
    const SSizerRule wrong[] = {{-1, 0, 0, 0}, {0, 0, 101, 0}, {60, 0, 50, 0}, {0, 20, 0, 10}};
    for (const SSizerRule& rule : wrong)
        EXPECT_THROW(fixed.Add({}, rule), EInternal);
}

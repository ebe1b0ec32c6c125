#include "settings/readers/AnimationSettings.h"

#include "tests/settings/SettingsTesting.h"

#include <limits>

using namespace CommonUI;

TEST(AnimationSettings, FramesOfALoopDoNotShowItsBeginningTwice)
{
    SAnimationSettings animation{.duration = 2, .framesPerSecond = 10};
    EXPECT_EQ(animation.GetFrameCount(), 20);
    EXPECT_DOUBLE_EQ(animation.GetPosition(19), 0.95);
    animation.loop = false;
    EXPECT_DOUBLE_EQ(animation.GetPosition(19), 1);
    const SAnimationSettings still{.duration = 0.1, .framesPerSecond = 1, .loop = false};
    EXPECT_EQ(still.GetFrameCount(), 1);
    EXPECT_EQ(still.GetPosition(0), 0);
}

TEST(AnimationSettings, ViewAtAPosition)
{
    const SAnimationSettings animation{
        .keyFrames = {{0.2, {0, 10, 1}}, {0.6, {360, 30, 2}}, {0.6, {0, 90, 5}}}};
    const std::pair<double, SAnimationView> rows[] = {
        {0, {0, 10, 1}},   {0.2, {0, 10, 1}}, {0.3, {90, 15, 1.25}},
        {0.6, {0, 90, 5}}, {1, {0, 90, 5}},   {std::numeric_limits<double>::quiet_NaN(), {0, 10, 1}},
    };
    for (const auto& [position, expected] : rows) {
        const SAnimationView view = animation.GetView(position);
        EXPECT_NEAR(view.azimuth, expected.azimuth, 1e-9) << position;
        EXPECT_NEAR(view.elevation, expected.elevation, 1e-9) << position;
        EXPECT_NEAR(view.zoom, expected.zoom, 1e-9) << position;
    }
}

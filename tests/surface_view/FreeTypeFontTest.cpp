#include "programs/surface_view/FreeTypeFont.h"

#include <gtest/gtest.h>

using namespace SurfaceView;

TEST(Font, TextHasTheSizeThatWasMeasured)
{
    const CFreeTypeFont font;
    const SPixels pixels = font.Draw(u"−1.5 µm \xD83D\xDE00", 20, {1, 2, 3});
    EXPECT_EQ(pixels.size, font.Measure(u"−1.5 µm \xD83D\xDE00", 20));
    EXPECT_EQ(pixels.bytes.size(), static_cast<std::size_t>(pixels.size.cx * pixels.size.cy * 4));
    int covered = 0;
    for (std::size_t i = 3; i < pixels.bytes.size(); i += 4)
        covered += pixels.bytes[i] == 255;
    EXPECT_GT(covered, 20);
    EXPECT_EQ(font.Measure(u"", 20).cx, 0);
}

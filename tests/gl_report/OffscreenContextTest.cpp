#include "programs/offscreen/OffscreenContext.h"

#include <gtest/gtest.h>

#include <string>

TEST(OffscreenContext, RefusesASizeThatNoDriverHas)
{
    for (const int width : {0, -1, 1 << 30}) {
        std::string reason;
        EXPECT_EQ(Offscreen::CContext::Make(width, 64, reason), nullptr);
        EXPECT_NE(reason.find("size"), std::string::npos) << reason;
    }
}

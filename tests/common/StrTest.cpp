#include "common/Str.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(Str, Empty)
{
    EXPECT_TRUE(CStr().IsEmpty());
}

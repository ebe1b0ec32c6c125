#include "view/Axis.h"

#include <gtest/gtest.h>

using namespace SurfaceView;
using CommonUI::CStr;

TEST(Factor, IsShort)
{
    const std::tuple<double, double, CStr> rows[]{{6.449, 6.4, u"6.4"},
                                                  {0.01234, 0.012, u"0.012"},
                                                  {4812345, 4800000, u"4800000"},
                                                  {9.96, 10, u"10"},
                                                  {1, 1, u"1"}};
    for (const auto& [factor, rounded, text] : rows) {
        EXPECT_DOUBLE_EQ(RoundedFactor(factor), rounded);
        EXPECT_EQ(FactorText(RoundedFactor(factor)).ToUtf8(), text.ToUtf8());
    }
}

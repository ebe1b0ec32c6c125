#include "programs/surface_view/Axis.h"

#include <gtest/gtest.h>

using namespace SurfaceView;
using CommonUI::CStr;

TEST(Axis, MarksAreRoundNumbersInTheSuitableUnit)
{
    const std::tuple<CommonUI::CRange<double>, int, CStr, CStr> rows[]{
        {{0, 63.5e-6}, 6, u"µm", u"0 10 20 30 40 50 60"},
        {{0, 9.96e-6}, 4, u"µm", u"0 2 4 6 8"},
        {{0, 3e-4}, 3, u"µm", u"0 100 200 300"}, // the last mark is not lost to rounding
        {{-1.78e-6, 0.7e-6}, 5, u"µm", u"−1.5 −1.0 −0.5 0.0 0.5"},
        {{-50e-9, 50e-9}, 2, u"nm", u"−50 0 50"},
        {{4.9995e-9, 5.0005e-9}, 2, u"nm", u"4.9995 5.0000 5.0005"},
        {{0.2, 0.3}, 1, u"mm", u"200 300"},
        {{1e-6, 1e-6}, 3, u"µm", u""},
    };
    for (const auto& [range, intervals, unit, expected] : rows) {
        const SAxis axis = MakeAxis(range, intervals);
        CStr texts;
        for (const STick& tick : axis.ticks) {
            if (!texts.IsEmpty())
                texts += u" ";
            texts += tick.text;
            EXPECT_GE(tick.value, range.GetLower() - 1e-6 * range.GetLength());
            EXPECT_LE(tick.value, range.GetUpper() + 1e-6 * range.GetLength());
        }
        EXPECT_EQ(texts.ToUtf8(), expected.ToUtf8());
        EXPECT_EQ(axis.unit.ToUtf8(), unit.ToUtf8());
    }
}

TEST(Axis, FactorsAndLengthsAreShort)
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
    EXPECT_EQ(LengthText(63.5e-6).ToUtf8(), "63.5 µm");
    EXPECT_EQ(LengthText(0.002).ToUtf8(), "2 mm");
}

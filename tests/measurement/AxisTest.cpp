#include "measurement/charts/Axis.h"

#include <gtest/gtest.h>

using namespace CommonUI;
using namespace CommonUI::Measurement;

namespace
{

// The marks' texts, which lie within the range.
std::string TextsOf(const SAxis& axis, CRange<double> range)
{
    CStr texts;
    for (const STick& tick : axis.ticks) {
        if (!texts.IsEmpty())
            texts += u" ";
        texts += tick.text;
        EXPECT_GE(tick.value, range.GetLower() - 1e-6 * range.GetLength());
        EXPECT_LE(tick.value, range.GetUpper() + 1e-6 * range.GetLength());
    }
    return texts.ToUtf8();
}

} // namespace

TEST(Axis, MarksAreRoundNumbersInTheSuitableUnit)
{
    const std::tuple<CRange<double>, int, const char*, const char*> rows[]{
        {{0, 63.5e-6}, 6, "µm", "0 10 20 30 40 50 60"},
        {{0, 9.96e-6}, 4, "µm", "0 2 4 6 8"},
        {{0, 3e-4}, 3, "µm", "0 100 200 300"}, // the last mark is not lost to rounding
        {{-1.78e-6, 0.7e-6}, 5, "µm", "−1.5 −1.0 −0.5 0.0 0.5"},
        {{-50e-9, 50e-9}, 2, "nm", "−50 0 50"},
        {{4.9995e-9, 5.0005e-9}, 2, "nm", "4.9995 5.0000 5.0005"},
        {{0.2, 0.3}, 1, "mm", "200 300"},
        {{1e-6, 1e-6}, 3, "µm", ""},
        {{-1e90, 2e90}, 3, "10⁹⁰ m", "−1 0 1 2"},
        {{0, 3e-100}, 3, "10⁻¹⁰⁰ m", "0 1 2 3"},
        {{-1e308, 1.7e308}, 3, "10³⁰⁸ m", ""}, // longer than numbers reach
    };
    for (const auto& [range, intervals, unit, expected] : rows) {
        const SAxis axis = MakeAxis(range, intervals);
        EXPECT_EQ(TextsOf(axis, range), expected);
        EXPECT_EQ(axis.unit.ToUtf8(), unit);
    }
}

TEST(Axis, LogarithmicMarksAreAsManyAsThereIsRoomFor)
{
    const std::tuple<CRange<double>, int, const char*> rows[]{
        {{0.01, 10}, 4, "0.01 0.1 1 10"},
        {{0.03, 0.7}, 9, "0.05 0.1 0.2 0.5"},
        {{1e-27, 1e-19}, 4, "10⁻²⁶ 10⁻²⁴ 10⁻²² 10⁻²⁰"},
        {{1e-200, 1e200}, 4, "10⁻²⁰⁰ 10⁻¹⁰⁰ 1 10¹⁰⁰ 10²⁰⁰"},
        {{0, 1}, 4, ""},
    };
    for (const auto& [range, most, expected] : rows)
        EXPECT_EQ(TextsOf(MakeLogarithmicAxis(range, most), range), expected);
}

TEST(Axis, LengthsAreShort)
{
    const std::pair<double, const char*> rows[]{
        {63.5e-6, "63.5 µm"}, {0.002, "2 mm"}, {-1.2345e-6, "−1.23 µm"}, {0, "0 m"}, {3e-50, "3·10⁻⁵⁰ m"}};
    for (const auto& [metres, text] : rows)
        EXPECT_EQ(LengthText(metres).ToUtf8(), text);
}

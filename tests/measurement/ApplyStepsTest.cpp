#include "measurement/ApplySteps.h"

#include "tests/analysis/TestSurfaces.h"

#include <cmath>
#include <numbers>

using namespace CommonUI;
using CommonUI::Analysis::MakeSurface;
using CommonUI::Analysis::SSurface;
using CommonUI::Measurement::SStep;

namespace
{

// The heights of the line in the middle after the step was applied.
std::vector<double> MiddleLine(SSurface surface, const decltype(SStep::settings)& settings)
{
    CommonUI::Measurement::Apply({.userSpec = {}, .name = {}, .settings = settings}, surface);
    const auto line = surface.GetLine(surface.lines / 2);
    return {line.begin(), line.end()};
}

} // namespace

TEST(ApplySteps, SetsDoWhatTheySay)
{
    using enum EFilterApplication;
    using enum EFilterPolarity;
    using enum Analysis::ECorrectionScope;
    using EKind = EFilterKind;
    using EMethod = Analysis::ECorrectionMethod;
    const SSurface spike = MakeSurface(7, 5, [](double x, double y) { return x == 3 && y == 2 ? 9.0 : 0.0; });
    const SSurface bright = MakeSurface(9, 9, [](double, double y) { return y == 4 || y == 5 ? 5.0 : 0.0; });
    const SSurface dark = MakeSurface(9, 9, [](double, double y) { return y == 4 || y == 5 ? -5.0 : 0.0; });
    // A plane with a bulge on the middle line. The bulge has the mean 6 / 9 and the slope 6 / 6 along x.
    const SSurface bulge = MakeSurface(
        3, 3, [](double x, double y) { return 2 * x + 3 * y + 1 + (y == 1 ? 3 * x * (x - 1) : 0); });
    const double beside = std::exp(-0.5);
    const double sum = 1 + 2 * beside;
    const auto median = [](EFilterStrength strength, double threshold) {
        return SFilterSettings{
            .kind = EKind::Median, .rows = 3, .columns = 3, .strength = strength, .threshold = threshold};
    };
    const auto streaks = [](EFilterPolarity polarity, int maximumWidth = 2) {
        return SFilterSettings{.kind = EKind::Streaks, .polarity = polarity, .maximumWidth = maximumWidth};
    };
    const auto all = [](double height) { return std::vector<double>(9, height); };
    const struct {
        const char* name;
        const SSurface& surface;
        decltype(SStep::settings) settings;
        std::vector<double> expected;
    } rows[] = {
        {"mean", spike, SFilterSettings{.kind = EKind::Mean, .rows = 3, .columns = 3}, {0, 0, 1, 1, 1, 0, 0}},
        {"mean of a curve",
         spike,
         SFilterSettings{.kind = EKind::Mean, .application = Curve, .columns = 3},
         {0, 0, 3, 3, 3, 0, 0}},
        {"Gauss",
         spike,
         SFilterSettings{.kind = EKind::Gauss, .columns = 3, .standardDeviation = 1},
         {0, 0, 9 * beside / sum, 9 / sum, 9 * beside / sum, 0, 0}},
        {"widest Gauss", dark, SFilterSettings{.kind = EKind::Gauss, .columns = 241, .standardDeviation = 40},
         all(-5)},
        {"weights in a row",
         spike,
         SFilterSettings{.kind = EKind::Convolution, .columns = 3, .weights = {1, 2, 6}},
         {0, 0, 6, 2, 1, 0, 0}},
        {"weights in a column",
         spike,
         SFilterSettings{.kind = EKind::Convolution, .rows = 3, .weights = {1, 2, 6}},
         {0, 0, 0, 2, 0, 0, 0}},
        {"full median", bulge, median(EFilterStrength::Full, 900), {5, 6, 7.5}},
        {"weak median", bulge, median(EFilterStrength::Weak, 900), {4, 6, 14}},
        {"spikes of a curve",
         spike,
         SFilterSettings{.kind = EKind::Spikes, .application = Curve, .columns = 3, .threshold = 5},
         {0, 0, 0, 0, 0, 0, 0}},
        {"bright streak", bright, streaks(Bright), all(0)},
        {"dark streak, bright ones removed", dark, streaks(Bright), all(-5)},
        {"dark streak", dark, streaks(Both), all(0)},
        {"wide streak", bright, streaks(Both, 1), all(5)},
        {"offset of a line", bulge, SPlaneCorrectionSettings{Linewise, EMethod::Offset, 1}, {-4, -2, 6}},
        {"slope of a profile", bulge, SPlaneCorrectionSettings{Profile, EMethod::Polynomial, 1}, {1, -2, 1}},
        {"bow of a line", bulge, SPlaneCorrectionSettings{Linewise, EMethod::Polynomial, 2}, {0, 0, 0}},
        {"plane",
         bulge,
         SPlaneCorrectionSettings{Global, EMethod::Polynomial, 1},
         {1 / 3., -2 / 3., 13 / 3.}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::vector<double> heights = MiddleLine(row.surface, row.settings);
        ASSERT_EQ(heights.size(), row.expected.size());
        for (std::size_t i = 0; i < heights.size(); ++i)
            EXPECT_NEAR(heights[i], row.expected[i], 1e-9) << "point " << i;
    }
}

TEST(ApplySteps, HalfTheAmplitudePassesAtTheCutoffOfEveryRule)
{
    constexpr double wavelength = 8; // points of 1 µm
    const SSurface wave = MakeSurface(
        81, 41, [](double x, double) { return 2 * std::cos(2 * std::numbers::pi * (x - 40) / wavelength); });
    const std::pair<EFilterKind, SFilterCutoff> rows[] = {
        {EFilterKind::ProfileGaussian, {.length = 8e-6}},
        {EFilterKind::ProfileGaussian, {.rule = ECutoffRule::Fraction, .fraction = wavelength / 81}},
        {EFilterKind::ArealGaussian, {.rule = ECutoffRule::Fraction, .fraction = wavelength / 41}},
        {EFilterKind::ArealGaussian, {.rule = ECutoffRule::Automatic}},
    };
    for (const auto& [kind, cutoff] : rows)
        EXPECT_NEAR(MiddleLine(wave, SFilterSettings{.kind = kind, .cutoff = cutoff})[40], 1, 2e-3);
    const SFilterSettings shortWaves{.kind = EFilterKind::ArealGaussian, .cutoff = {.length = 16e-6}};
    EXPECT_NEAR(MiddleLine(wave, shortWaves)[40], 2 * (1 - std::exp2(-4)), 2e-3);
}

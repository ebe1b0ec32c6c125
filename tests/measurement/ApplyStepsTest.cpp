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

void ExpectMiddle(const std::vector<double>& expected, const SSurface& surface,
                  const decltype(SStep::settings)& settings)
{
    const std::vector<double> heights = MiddleLine(surface, settings);
    ASSERT_EQ(heights.size(), expected.size());
    for (std::size_t i = 0; i < heights.size(); ++i)
        EXPECT_NEAR(heights[i], expected[i], 1e-9)
            << "point " << i << " of " << testing::PrintToString(expected);
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
    const std::vector<double> weights = {1, 2, 6};
    using SFilter = SFilterSettings;
    using SPlane = SPlaneCorrectionSettings;

    ExpectMiddle({0, 0, 1, 1, 1, 0, 0}, spike, SFilter{.kind = EKind::Mean, .rows = 3, .columns = 3});
    ExpectMiddle({0, 0, 3, 3, 3, 0, 0}, spike,
                 SFilter{.kind = EKind::Mean, .application = Curve, .columns = 3});
    ExpectMiddle({0, 0, 9 * beside / sum, 9 / sum, 9 * beside / sum, 0, 0}, spike,
                 SFilter{.kind = EKind::Gauss, .columns = 3, .standardDeviation = 1});
    ExpectMiddle(all(-5), dark, SFilter{.kind = EKind::Gauss, .columns = 241, .standardDeviation = 40});
    ExpectMiddle({0, 0, 6, 2, 1, 0, 0}, spike,
                 SFilter{.kind = EKind::Convolution, .columns = 3, .weights = weights});
    ExpectMiddle({0, 0, 0, 2, 0, 0, 0}, spike,
                 SFilter{.kind = EKind::Convolution, .rows = 3, .weights = weights});
    ExpectMiddle({5, 6, 7.5}, bulge, median(EFilterStrength::Full, 900));
    ExpectMiddle({4, 6, 14}, bulge, median(EFilterStrength::Weak, 900));
    ExpectMiddle({0, 0, 0, 0, 0, 0, 0}, spike,
                 SFilter{.kind = EKind::Spikes, .application = Curve, .columns = 3, .threshold = 5});
    ExpectMiddle(all(0), bright, streaks(Bright));
    ExpectMiddle(all(-5), dark, streaks(Bright));
    ExpectMiddle(all(0), dark, streaks(Both));
    ExpectMiddle(all(5), bright, streaks(Both, 1)); // the streak is wider
    ExpectMiddle({-4, -2, 6}, bulge, SPlane{Linewise, EMethod::Offset, 1});
    ExpectMiddle({1, -2, 1}, bulge, SPlane{Profile, EMethod::Polynomial, 1});
    ExpectMiddle({0, 0, 0}, bulge, SPlane{Linewise, EMethod::Polynomial, 2});
    ExpectMiddle({1 / 3., -2 / 3., 13 / 3.}, bulge, SPlane{Global, EMethod::Polynomial, 1});
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

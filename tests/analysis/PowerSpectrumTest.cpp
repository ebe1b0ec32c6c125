#include "analysis/profile/PowerSpectrum.h"

#include "tests/analysis/TestSurfaces.h"

#include <numbers>

using namespace CommonUI::Analysis;

namespace
{

// The integral over the frequency, by rectangles of equal widths.
double Integrate(const std::vector<SSpectrumPoint>& spectrum)
{
    double sum = 0;
    for (const SSpectrumPoint& point : spectrum)
        sum += point.power;
    return sum * (spectrum[1].frequency - spectrum[0].frequency);
}

} // namespace

TEST(PowerSpectrum, HasTheMeanSquareOfAWaveAtItsFrequency)
{
    for (const std::size_t points : {256u, 300u}) {
        const SSurface surface = MakeSurface(points, 4, [](double x, double y) {
            return 5 + (1 + y) * std::sin(2 * std::numbers::pi * x / 16);
        });
        const auto spectrum = ComputePowerSpectrum(surface, 1000);
        EXPECT_NEAR(Integrate(spectrum), (1 + 4 + 9 + 16) / 4.0 / 2, 0.05);
        const auto peak = std::ranges::max_element(spectrum, {}, &SSpectrumPoint::power);
        EXPECT_NEAR(peak->frequency, 1e6 / 16, 1e6 / 512);
    }
}

TEST(PowerSpectrum, BandsKeepTheLevelOfAFlatSpectrum)
{
    std::uint32_t state = 1;
    const SSurface surface = MakeSurface(4096, 16, [&](double, double) {
        state = state * 1664525u + 1013904223u;
        return static_cast<double>(state >> 8) / (1 << 24);
    });
    const auto spectrum = ComputePowerSpectrum(surface, 40);
    EXPECT_LE(spectrum.size(), 40u);
    EXPECT_GE(spectrum.size(), 25u);
    const double level = 2 * 1e-6 / 12; // variance of the noise over the highest frequency
    for (const SSpectrumPoint& point : spectrum)
        EXPECT_NEAR(point.power / level, 1, 0.7) << point.frequency;
    EXPECT_NEAR(spectrum.back().power / level, 1, 0.05);
}

TEST(PowerSpectrum, IsEmptyWhereNothingWaves)
{
    EXPECT_TRUE(ComputePowerSpectrum(MakeSurface(3, 9, [](double x, double) { return x; }), 9).empty());
    EXPECT_TRUE(ComputePowerSpectrum(MakeSurface(99, 9, [](double, double) { return 0.1; }), 9).empty());
    EXPECT_TRUE(
        ComputePowerSpectrum(MakeSurface(99, 9, [](double, double) { return c_missing; }), 9).empty());
    EXPECT_TRUE(ComputePowerSpectrum(SSurface(), 9).empty());
}

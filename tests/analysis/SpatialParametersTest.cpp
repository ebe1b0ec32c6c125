#include "analysis/areal/ArealParameters.h"
#include "analysis/areal/Autocorrelation.h"
#include "tests/analysis/TestSurfaces.h"

#include <cmath>
#include <numbers>
#include <random>

using namespace CommonUI::Analysis;

namespace
{

constexpr std::string_view c_keys[] = {"Sal", "Str", "Std", "Scl20", "Scl37", "Str20", "Str37"};

double Cosine(double x, double period)
{
    return std::cos(2 * std::numbers::pi * x / period);
}

} // namespace

TEST(SpatialParameters, ProductOfCosines)
{
    // The autocorrelation is cos(kx x) cos(ky y): fastest along the shorter waves, slowest along the others.
    struct SRow {
        double periodX; // in points
        double periodY;
        double dy;
    };
    for (const SRow& row : {SRow{32, 128, 1e-6}, {128, 32, 1e-6}, {64, 64, 0.5e-6}}) {
        SSurface surface = MakeSurface(512, 512, [&](double x, double y) {
            return 3e-3 + 1e-7 * Cosine(x, row.periodX) * Cosine(y, row.periodY);
        });
        surface.dy = row.dy;
        const double x = row.periodX * surface.dx;
        const double y = row.periodY * surface.dy;
        const auto values = ComputeAreal(surface, c_keys);
        const double turn20 = std::acos(0.20) / (2 * std::numbers::pi);
        const double turn37 = std::acos(0.37) / (2 * std::numbers::pi);
        for (const char* key : {"Sal", "Scl20"})
            EXPECT_NEAR(Get(values, key) / std::min(x, y), turn20, 0.02 * turn20) << key;
        EXPECT_NEAR(Get(values, "Scl37") / std::min(x, y), turn37, 0.02 * turn37);
        for (const char* key : {"Str", "Str20", "Str37"})
            EXPECT_NEAR(Get(values, key), std::min(x, y) / std::max(x, y), 0.01) << key;
    }
}

TEST(SpatialParameters, DirectionOfWaves)
{
    const double pi = std::numbers::pi;
    for (const double dy : {1e-6, 2e-6})
        for (const double degrees : {0.0, 0.3, 30.0, 45.0, 77.7, 90.0, -60.0, -89.0}) {
            SSurface surface = MakeSurface(300, 200, [&](double x, double y) {
                const double along =
                    x * std::cos(degrees * pi / 180) + y * dy / 1e-6 * std::sin(degrees * pi / 180);
                return 1e-7 * Cosine(along, 12.5) + 2e-8 * Cosine(x + y, 5);
            });
            surface.dy = dy;
            const double error = Get(ComputeAreal(surface, c_keys), "Std") - degrees;
            EXPECT_NEAR(std::remainder(error, 180), 0, 0.05) << degrees << " dy " << dy;
        }
}

TEST(SpatialParameters, DirectionOfOneWaveAtAnyAngle)
{
    const double pi = std::numbers::pi;
    std::mt19937 random(11);
    std::uniform_real_distribution<double> share(0, 1);
    for (const auto& [points, lines] : {std::pair<std::size_t, std::size_t>{128, 128}, {200, 64}, {100, 300}})
        for (int i = 0; i < 20; ++i) {
            const double degrees = 180 * share(random) - 90;
            const double phase = share(random);
            const auto surface = MakeSurface(points, lines, [&](double x, double y) {
                const double along = x * std::cos(degrees * pi / 180) + y * std::sin(degrees * pi / 180);
                return Cosine(along / 9.7 + phase, 1);
            });
            const double error = Get(ComputeAreal(surface, c_keys), "Std") - degrees;
            EXPECT_NEAR(std::remainder(error, 180), 0, 0.05)
                << degrees << " of " << points << " by " << lines;
        }
}

TEST(SpatialParameters, GaussianAutocorrelation)
{
    // White noise under weights exp(-r²/l²) has the autocorrelation exp(-r²/(2 l²)).
    constexpr double c_length = 3;
    constexpr std::ptrdiff_t c_reach = 12;
    constexpr std::size_t c_size = 1024;
    constexpr std::size_t c_wide = c_size + 2 * c_reach;
    std::mt19937 random(1);
    std::normal_distribution<double> noise(0, 1);
    std::vector<double> values(c_wide * c_wide);
    for (double& value : values)
        value = noise(random);
    const auto smooth = [&](std::size_t at, std::size_t step) {
        double sum = 0;
        for (std::ptrdiff_t i = -c_reach; i <= c_reach; ++i)
            sum += std::exp(static_cast<double>(-i * i) / (c_length * c_length)) *
                   values[at + static_cast<std::size_t>(i) * step];
        return sum;
    };
    std::vector<double> smoothed(values.size());
    for (std::size_t at = c_reach; at < values.size() - c_reach; ++at)
        smoothed[at] = smooth(at, 1);
    values.swap(smoothed);
    const auto surface = MakeSurface(c_size, c_size, [&](double x, double y) {
        return smooth(
            (static_cast<std::size_t>(y) + c_reach) * c_wide + static_cast<std::size_t>(x) + c_reach, c_wide);
    });
    const auto parameters = ComputeAreal(surface, c_keys);
    EXPECT_NEAR(Get(parameters, "Sal"), c_length * 1e-6 * std::sqrt(-2 * std::log(0.20)), 0.01 * 5.4e-6);
    EXPECT_NEAR(Get(parameters, "Scl37"), c_length * 1e-6 * std::sqrt(-2 * std::log(0.37)), 0.01 * 4.2e-6);
    EXPECT_NEAR(Get(parameters, "Str"), 1, 0.03);
}

TEST(SpatialParameters, PowerCountsWithTheFrequency)
{
    const SSurface surface = MakeSurface(200, 200, [](double x, double y) {
        return 2 * Cosine(x, 50) + Cosine(y, 5); // four times the power at a tenth of the frequency
    });
    EXPECT_NEAR(std::abs(Get(ComputeAreal(surface, c_keys), "Std")), 90, 0.1);
}

TEST(SpatialParameters, WhatIsNotReachedIsNaN)
{
    const auto nan = c_undefined;
    const auto grating = [](double x, double) { return Cosine(x, 16); };
    const auto longWave = [](double x, double y) { return Cosine(x, 640) * Cosine(y, 640); };
    const auto flat = [](double, double) { return 0.0; };
    const auto ofGrating = ComputeAreal(MakeSurface(128, 64, grating), c_keys);
    EXPECT_NEAR(Get(ofGrating, "Sal"), 16e-6 * std::acos(0.2) / (2 * std::numbers::pi), 0.1e-6);
    ExpectValues(ofGrating, {{"Str", nan}, {"Str37", nan}});
    EXPECT_TRUE(std::isnan(CAutocorrelation(MakeSurface(64, 64, longWave), 0).ComputeDecay(0.37).shortest));
    for (const SSurface& surface :
         {MakeSurface(64, 64, flat), MakeSurface(64, 1, grating), MakeSurface(1, 1, flat)})
        for (const SValue& value : ComputeAreal(surface, c_keys))
            EXPECT_TRUE(std::isnan(value.value)) << value.key << " of " << surface.points;
}

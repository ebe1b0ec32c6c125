#include "analysis/areal/ArealParameters.h"
#include "analysis/areal/Autocorrelation.h"
#include "analysis/numeric/FourierTransform.h"
#include "tests/analysis/TestSurfaces.h"

#include <cmath>
#include <complex>
#include <numbers>
#include <random>

using namespace CommonUI::Analysis;

namespace
{

constexpr std::string_view c_spectralKeys[] = {"Std", "Stdi", "Srw", "Srwi", "Sfd"};
constexpr std::string_view c_keys[] = {"Sal", "Str", "Std", "Scl20", "Scl37", "Str20", "Str37"};

double Cosine(double x, double period)
{
    return std::cos(2 * std::numbers::pi * x / period);
}

// A surface whose power goes with 1/f^(2 + 2 Hurst), by spectral synthesis: a fractional Brownian surface, of
// dimension 3 - Hurst.
SSurface MakeBrownian(std::size_t size, double hurst, unsigned seed)
{
    std::mt19937 random(seed);
    std::normal_distribution<double> normal(0, 1);
    std::vector<std::complex<double>> values(size * size);
    const auto frequency = [size](std::size_t i) { return static_cast<double>(std::min(i, size - i)); };
    for (std::size_t i = 1; i < values.size(); ++i) {
        const double f = std::hypot(frequency(i % size), frequency(i / size));
        const double amplitude = 1e-6 * std::pow(f, -1 - hurst);
        values[i] = {amplitude * normal(random), amplitude * normal(random)};
    }
    const CFourierTransform transform(size);
    std::vector<std::complex<double>> column(size);
    for (std::size_t x = 0; x < size; ++x) {
        for (std::size_t y = 0; y < size; ++y)
            column[y] = values[y * size + x];
        transform.Inverse(column);
        for (std::size_t y = 0; y < size; ++y)
            values[y * size + x] = column[y];
    }
    for (std::size_t y = 0; y < size; ++y)
        transform.Inverse(std::span(values).subspan(y * size, size));
    return MakeSurface(size, size, [&](double x, double y) {
        return values[static_cast<std::size_t>(y) * size + static_cast<std::size_t>(x)].real();
    });
}

// Σ |W|² and Σ |W|² exp(-d²/2) over the distances d from a wave, in units of 1/side, W being the transform of
// the Hann window over the side: what the spectrum has of a plane wave, and how much of it counts at its
// maximum.
struct SWindow {
    double all = 0;
    double counts = 0;
};

SWindow SumWindow()
{
    SWindow sums;
    for (int i = -8000; i <= 8000; ++i) {
        const double d = (i + 0.5) / 1000;
        const double w = std::sin(std::numbers::pi * d) / (std::numbers::pi * d * (1 - d * d));
        sums.all += w * w;
        sums.counts += w * w * std::exp(-d * d / 2);
    }
    return sums;
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

TEST(SpatialParameters, WavelengthOfWaves)
{
    for (const double scale : {1e-8, 1e-6, 1e-4})
        for (const double dy : {1.0, 2.0})
            for (const double period : {4.3, 10.0, 40.0})
                for (const double degrees : {0.0, 35.0, 90.0}) {
                    const double angle = degrees * std::numbers::pi / 180;
                    SSurface surface = MakeSurface(240, 200, [&](double x, double y) {
                        return scale * (7 + Cosine(x * std::cos(angle) + y * dy * std::sin(angle), period));
                    });
                    surface.dx = scale;
                    surface.dy = dy * scale;
                    const auto values = ComputeAreal(surface, c_spectralKeys);
                    EXPECT_NEAR(Get(values, "Srw") / (period * scale), 1, 0.01)
                        << period << " at " << degrees << " dy " << dy;
                }
}

TEST(SpatialParameters, IndicesOfWaves)
{
    // 200 points fill the window. The angular spectrum of a wave of m periods has its width in the half
    // circle, the radial one among the frequencies from 1 to half the points.
    constexpr double c_side = 200;
    const SWindow window = SumWindow();
    const double ratio = std::sqrt(2 * std::numbers::pi) * window.all / window.counts;
    for (const double periods : {12.5, 25.0}) {
        const double expected = ratio / (std::numbers::pi * periods);
        for (const int waves : {1, 2, 4}) {
            const auto values = ComputeAreal(
                MakeSurface(200, 200,
                            [&](double x, double y) {
                                double z = 0;
                                for (int i = 0; i < waves; ++i) {
                                    const double angle = std::numbers::pi * (0.1 + i / (waves + 0.0));
                                    z += Cosine(x * std::cos(angle) + y * std::sin(angle), c_side / periods);
                                }
                                return z;
                            }),
                c_spectralKeys);
            EXPECT_NEAR(Get(values, "Stdi") / (waves * expected), 1, 0.03) << waves;
            EXPECT_NEAR(Get(values, "Srwi") / (ratio / (c_side / 2 - 1)), 1, 0.03) << waves;
        }
    }
    // Two wavelengths in one direction.
    const auto both = ComputeAreal(
        MakeSurface(200, 200, [&](double x, double) { return Cosine(x, 16) + Cosine(x + 3, 8); }),
        c_spectralKeys);
    EXPECT_NEAR(Get(both, "Srwi") / (2 * ratio / (c_side / 2 - 1)), 1, 0.03);
    // White noise has no direction, and as many waves of a frequency as the circle is long.
    std::mt19937 random(9);
    std::normal_distribution<double> noise(0, 1);
    const auto white =
        ComputeAreal(MakeSurface(512, 512, [&](double, double) { return noise(random); }), c_spectralKeys);
    EXPECT_GT(Get(white, "Stdi"), 0.75);
    EXPECT_NEAR(Get(white, "Srwi"), 0.5, 0.05);
}

TEST(SpatialParameters, FractalDimensionOfBrownianSurfaces)
{
    for (const double hurst : {0.1, 0.3, 0.5, 0.7, 0.9})
        for (const unsigned seed : {1u, 2u}) {
            SSurface surface = MakeBrownian(512, hurst, seed);
            const auto compute = [&] { return Get(ComputeAreal(surface, c_spectralKeys), "Sfd"); };
            EXPECT_NEAR(compute(), 3 - hurst, 0.05) << hurst;
            // A part of it, whose ends do not fit, on a slope, and of other units.
            SSurface part = MakeSurface(300, 256, [&](double x, double y) {
                return 100 * surface.heights[static_cast<std::size_t>(y * 512 + x)] + 1e-7 * x;
            });
            surface = part;
            EXPECT_NEAR(compute(), 3 - hurst, 0.05) << hurst;
        }
    for (const auto& height : {+[](double x, double y) { return 3 * x - 2 * y; },
                               +[](double x, double y) { return (x - 90) * (x - 90) + y * x; }})
        for (const std::size_t size : {40u, 200u, 1024u})
            EXPECT_EQ(Get(ComputeAreal(MakeSurface(size, size, height), c_spectralKeys), "Sfd"), 2) << size;
    std::mt19937 random(9);
    std::normal_distribution<double> noise(0, 1);
    const auto white = MakeSurface(100, 100, [&](double, double) { return noise(random); });
    EXPECT_EQ(Get(ComputeAreal(white, c_spectralKeys), "Sfd"), 3);
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

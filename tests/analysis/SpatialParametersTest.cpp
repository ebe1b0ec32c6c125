#include "analysis/areal/ArealParameters.h"
#include "analysis/areal/Autocorrelation.h"
#include "analysis/numeric/FourierTransform.h"
#include "tests/analysis/TestSurfaces.h"

#include <cmath>
#include <complex>
#include <random>

using namespace CommonUI::Analysis;

namespace
{

constexpr std::string_view c_waveKeys[] = {"Std", "Srw"};
constexpr std::string_view c_spectralKeys[] = {"Std", "Stdi", "Srw", "Srwi", "Sfd"};
constexpr std::string_view c_keys[] = {"Sal", "Str", "Std", "Scl20", "Scl37", "Str20", "Str37"};

double Cosine(double x, double period)
{
    return std::cos(2 * c_pi * x / period);
}

// A surface whose power goes with 1/f^(2 + 2 Hurst), by spectral synthesis: a fractional Brownian surface, of
// dimension 3 - Hurst.
SSurface MakeBrownian(std::size_t size, double hurst, unsigned seed)
{
    std::mt19937 random(seed);
    // Box and Muller's, as distributions of the standard library are not the same everywhere.
    const auto uniform = [&random] { return (static_cast<double>(random()) + 0.5) / 4294967296.0; };
    const auto normal = [&] {
        const double radius = std::sqrt(-2 * std::log(uniform()));
        return std::polar(radius, 2 * c_pi * uniform());
    };
    std::vector<std::complex<double>> values(size * size);
    const auto frequency = [size](std::size_t i) { return static_cast<double>(std::min(i, size - i)); };
    for (std::size_t i = 1; i < values.size(); ++i) {
        const double f = std::hypot(frequency(i % size), frequency(i / size));
        const double amplitude = 1e-6 * std::pow(f, -1 - hurst);
        values[i] = amplitude * normal();
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

// How much wider than its maximum the spectrum of a plane wave is: √(2π) Σ|W|² / Σ|W|² exp(-d²/2) over the
// distances d from the wave, in units of 1/side, W being the transform of the Hann window over the side:
// sin(πd) / (πd (1 - d²)).
constexpr double c_width = 2.899266;

} // namespace

// Five points above the others: what overlaps at a shift are the pairs that are so far apart.
TEST(Autocorrelation, IsTheMeanProductOfThePointsThatOverlap)
{
    using TSize = std::ptrdiff_t;
    for (const auto& [points, lines] : {std::pair<TSize, TSize>{16, 16}, {21, 10}, {2, 7}}) {
        struct SPeak {
            TSize x, y;
            double z;
        };
        const SPeak peaks[] = {
            {0, 0, 1}, {points - 1, 0, 2}, {points - 2, 1, 3}, {0, 2, 4}, {0, lines - 1, 5}};
        SSurface surface = MakeSurface(static_cast<std::size_t>(points), static_cast<std::size_t>(lines),
                                       [](double, double) { return 0; });
        for (const SPeak& peak : peaks)
            surface.heights[static_cast<std::size_t>(peak.y * points + peak.x)] = peak.z;
        surface.heights[static_cast<std::size_t>(3 * points)] = c_missing;
        const CAutocorrelation autocorrelation(surface, 0);
        for (TSize y = 0; y <= lines / 2; ++y)
            for (TSize x = -points / 2; x <= points / 2; ++x) {
                double sum = 0;
                for (const SPeak& a : peaks)
                    for (const SPeak& b : peaks)
                        sum += a.x - b.x == x && a.y - b.y == y ? a.z * b.z : 0;
                const auto overlap = static_cast<double>((points - std::abs(x)) * (lines - y));
                EXPECT_NEAR(autocorrelation.GetValue(static_cast<double>(x), static_cast<double>(y)),
                            sum / overlap / (55.0 / static_cast<double>(points * lines)), 1e-13)
                    << x << " " << y << " of " << points << " by " << lines;
            }
    }
    const SSurface level = MakeSurface(64, 64, [](double, double) { return 1; });
    EXPECT_TRUE(std::isnan(CAutocorrelation(level, 0).ComputeDecay(0.37).shortest));
}

TEST(SpatialParameters, ProductOfCosines)
{
    // The autocorrelation is cos(ku u) cos(kv v): fastest along the shorter waves, slowest along the others.
    struct SRow {
        double periodU; // in µm
        double periodV;
        double dy;
        double degrees; // of u from x
    };
    for (const SRow& row : {SRow{32, 128, 1, 0}, {128, 32, 1, 0}, {64, 32, 0.5, 0}, {32, 64, 0.5, 30}}) {
        const double c = std::cos(row.degrees * c_pi / 180);
        const double s = std::sin(row.degrees * c_pi / 180);
        SSurface surface = MakeSurface(512, 512, [&](double x, double line) {
            const double y = line * row.dy;
            return 3e-3 + 1e-7 * Cosine(x * c + y * s, row.periodU) * Cosine(y * c - x * s, row.periodV);
        });
        surface.dy = row.dy * 1e-6;
        const auto [shorter, longer] = std::minmax(row.periodU, row.periodV);
        const auto values = ComputeAreal(surface, c_keys);
        const double turn20 = std::acos(0.20) / (2 * c_pi);
        const double turn37 = std::acos(0.37) / (2 * c_pi);
        for (const char* key : {"Sal", "Scl20"})
            EXPECT_NEAR(Get(values, key) / (shorter * 1e-6), turn20, 0.02 * turn20) << key;
        EXPECT_NEAR(Get(values, "Scl37") / (shorter * 1e-6), turn37, 0.02 * turn37);
        for (const char* key : {"Str", "Str20", "Str37"})
            EXPECT_NEAR(Get(values, key), shorter / longer, 0.01) << key;
    }
}

TEST(SpatialParameters, DirectionAndLengthOfWaves)
{
    struct SRow {
        double period;
        double degrees;
    };
    for (const double scale : {1e-8, 1e-6, 1e-4})
        for (const double dy : {1.0, 2.0})
            for (const SRow& row : {SRow{12.5, 0},
                                    {12.5, 0.3},
                                    {40, 30},
                                    {10, 45},
                                    {12.5, 77.7},
                                    {4.3, 90},
                                    {12.5, -60},
                                    {10, -89}}) {
                const double angle = row.degrees * c_pi / 180;
                SSurface surface = MakeSurface(300, 200, [&](double x, double y) {
                    const double along = x * std::cos(angle) + y * dy * std::sin(angle);
                    return scale * (7 + Cosine(along, row.period) + 0.05 * Cosine(x + y, 5));
                });
                surface.dx = scale;
                surface.dy = dy * scale;
                const auto values = ComputeAreal(surface, c_waveKeys);
                const double error = Get(values, "Std") - row.degrees;
                EXPECT_NEAR(std::remainder(error, 180), 0, 0.05) << row.degrees << " dy " << dy;
                EXPECT_NEAR(Get(values, "Srw") / (row.period * scale), 1, 0.01)
                    << row.degrees << " dy " << dy;
            }
}

TEST(SpatialParameters, PowerCountsWithTheFrequency)
{
    const SSurface surface = MakeSurface(200, 200, [](double x, double y) {
        return 2 * Cosine(x, 50) + Cosine(y, 5); // four times the power at a tenth of the frequency
    });
    EXPECT_NEAR(std::abs(Get(ComputeAreal(surface, c_keys), "Std")), 90, 0.1);
}

TEST(SpatialParameters, IndicesOfWaves)
{
    // 200 points fill the window. The angular spectrum of a wave of m periods has its width in the half
    // circle, the radial one among the frequencies from 1 to half the points.
    constexpr double c_side = 200;
    for (const double periods : {12.5, 25.0}) {
        const double expected = c_width / (c_pi * periods);
        for (const int waves : {1, 2, 4}) {
            const auto surface = MakeSurface(200, 200, [&](double x, double y) {
                double z = 0;
                for (int i = 0; i < waves; ++i) {
                    const double angle = c_pi * (0.1 + i / (waves + 0.0));
                    z += Cosine(x * std::cos(angle) + y * std::sin(angle), c_side / periods);
                }
                return z;
            });
            const auto values = ComputeAreal(surface, c_spectralKeys);
            EXPECT_NEAR(Get(values, "Stdi") / (waves * expected), 1, 0.03) << waves;
            EXPECT_NEAR(Get(values, "Srwi") / (c_width / (c_side / 2 - 1)), 1, 0.03) << waves;
        }
    }
    // Two wavelengths in one direction.
    const auto both = ComputeAreal(
        MakeSurface(200, 200, [&](double x, double) { return Cosine(x, 16) + Cosine(x + 3, 8); }),
        c_spectralKeys);
    EXPECT_NEAR(Get(both, "Srwi") / (2 * c_width / (c_side / 2 - 1)), 1, 0.03);
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
            EXPECT_NEAR(compute(), 3 - hurst, 0.07) << hurst;
            // A part of it, whose ends do not fit, on a slope, and of other units.
            SSurface part = MakeSurface(300, 256, [&](double x, double y) {
                return 100 * surface.heights[static_cast<std::size_t>(y * 512 + x)] + 1e-7 * x;
            });
            surface = part;
            EXPECT_NEAR(compute(), 3 - hurst, 0.07) << hurst;
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

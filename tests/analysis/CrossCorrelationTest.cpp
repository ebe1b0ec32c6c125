#include "analysis/correlation/CrossCorrelation.h"

#include "tests/analysis/TestSurfaces.h"

#include <random>

using namespace CommonUI::Analysis;

namespace
{

// A landscape that is known everywhere: waves of 10 to 40 points in all directions.
double GetLandscape(double x, double y)
{
    static const auto s_waves = [] {
        struct SWave {
            double x, y, phase;
        };
        std::mt19937 random(11);
        const auto draw = [&] { return static_cast<double>(random()) / 4294967296.0; };
        std::vector<SWave> waves(30);
        for (SWave& wave : waves) {
            const double k = 2 * c_pi / (10 + 30 * draw());
            const double direction = 2 * c_pi * draw();
            wave = {k * std::cos(direction), k * std::sin(direction), 2 * c_pi * draw()};
        }
        return waves;
    }();
    double z = 0;
    for (const auto& wave : s_waves)
        z += std::sin(wave.x * x + wave.y * y + wave.phase);
    return z;
}

struct SPose {
    double x, y, degrees;
};

// What the landscape looks like from elsewhere: its middle lies at the pose from the middle of the surface.
SSurface MakeView(std::size_t points, std::size_t lines, const SPose& pose, double scale)
{
    const double cosine = std::cos(pose.degrees * c_pi / 180);
    const double sine = std::sin(pose.degrees * c_pi / 180);
    SSurface surface = MakeSurface(points, lines, [&](double x, double y) {
        const double u = x - 63.5 - pose.x;
        const double v = y - (lines == 1 ? 0 : 49.5) - pose.y;
        return scale * 1e-8 * GetLandscape(cosine * u + sine * v, cosine * v - sine * u);
    });
    surface.dx *= scale;
    surface.dy *= scale;
    return surface;
}

} // namespace

TEST(CrossCorrelation, OfShiftedAndRotatedCopies)
{
    for (const SPose& pose :
         {SPose{0, 0, 0}, {7, -4, 0}, {12.37, -8.61, 0}, {-30.25, 21.4, 0}, {3.3, 5.6, 1.5}, {0, 0, -3}})
        for (const double scale : {0.01, 1.0, 100.0}) {
            const SSurface first = MakeView(128, 100, {}, scale);
            SSurface second = MakeView(128, 100, pose, scale);
            for (double& z : second.heights)
                z = 2 * z + 1e-3; // neither counts
            const SShift shift = FindShift(first, second);
            SCOPED_TRACE(testing::Message() << pose.x << " " << pose.degrees << " " << scale);
            EXPECT_NEAR(shift.x / first.dx, pose.x, 4e-3);
            EXPECT_NEAR(shift.y / first.dy, pose.y, 4e-3);
            EXPECT_NEAR(shift.rotation, pose.degrees, 2e-3);
            EXPECT_NEAR(shift.coefficient, 1, 1e-4);
        }
}

TEST(CrossCorrelation, OfOtherSizesNoiseAndGaps)
{
    const SSurface first = MakeView(128, 100, {}, 1);
    SSurface part = MakeView(90, 70, {-20.5, -14.25, 0}, 1); // its corner is that of the landscape
    std::mt19937 random(2);
    std::normal_distribution<double> noise(0, 1e-8);
    for (std::size_t i = 0; i < part.heights.size(); ++i)
        part.heights[i] = i % 31 == 0 ? c_missing : part.heights[i] + noise(random);
    const SShift shift = FindShift(first, part);
    EXPECT_NEAR(shift.x, -20.5e-6, 0.1e-6);
    EXPECT_NEAR(shift.y, -14.25e-6, 0.1e-6);
    EXPECT_NEAR(shift.coefficient, std::sqrt(15 / 16.0), 0.02); // of a variance of 15 with noise of 1
    SSurface turned = first;
    for (double& z : turned.heights)
        z = -z;
    EXPECT_LT(CCrossCorrelation(first, turned).GetValue(0, 0), -0.9999);
}

TEST(CrossCorrelation, TheShortestOfEqualShifts)
{
    const auto waves = [](double x, double y) {
        return std::sin(2 * c_pi * x / 20) * std::cos(c_pi * y / 10);
    };
    const auto grating = [](double x, double) { return std::sin(2 * c_pi * x / 20); };
    struct SCase {
        const char* what;
        SSurface first;
        SSurface second;
        double x;
    };
    SSurface narrow = MakeSurface(200, 100, waves); // a period is shorter along x
    narrow.dx /= 100;
    const auto plane = MakeSurface(200, 100, [](double x, double y) { return 3e-9 * x - 2e-9 * y; });
    for (const SCase& row : std::initializer_list<SCase>{
             {"waves", MakeSurface(200, 100, waves), MakeSurface(200, 100, waves), 0},
             {"narrow", narrow, narrow, 0},
             {"shifted", MakeSurface(200, 100, grating),
              MakeSurface(200, 100, [&](double x, double y) { return grating(x - 4, y); }), 4e-6},
             {"profile", MakeSurface(200, 1, grating), MakeSurface(200, 1, grating), 0},
             {"plane", plane, plane, 0}}) {
        const SShift shift = FindShift(row.first, row.second);
        EXPECT_NEAR(shift.x, row.x, 1e-9) << row.what;
        EXPECT_NEAR(row.first.IsProfile() ? 0 : shift.y, 0, 1e-9) << row.what;
        EXPECT_NEAR(shift.coefficient, 1, 1e-9) << row.what;
    }
}

// Each coefficient is that of the overlap.
TEST(CrossCorrelation, IsPearsonsCoefficient)
{
    const SSurface a = MakeView(9, 7, {}, 1);
    const SSurface b = MakeView(12, 6, {1, 2, 0}, 1);
    const CCrossCorrelation correlation(a, b);
    EXPECT_EQ(correlation.MakeMap().points, 9u);
    EXPECT_EQ(correlation.MakeMap().lines, 7u);
    for (std::ptrdiff_t sy = -3; sy <= 3; ++sy)
        for (std::ptrdiff_t sx = -4; sx <= 4; ++sx) {
            double n = 0, sa = 0, sb = 0, aa = 0, ab = 0, bb = 0;
            for (std::ptrdiff_t y = 0; y < 7; ++y)
                for (std::ptrdiff_t x = 0; x < 9; ++x) {
                    if (x + sx < 0 || x + sx >= 12 || y + sy < 0 || y + sy >= 6)
                        continue;
                    const double u = 1e8 * a.heights[static_cast<std::size_t>(y * 9 + x)];
                    const double v = 1e8 * b.heights[static_cast<std::size_t>((y + sy) * 12 + x + sx)];
                    ++n;
                    sa += u;
                    sb += v;
                    aa += u * u;
                    ab += u * v;
                    bb += v * v;
                }
            EXPECT_NEAR(correlation.GetValue(sx, sy),
                        (n * ab - sa * sb) / std::sqrt((n * aa - sa * sa) * (n * bb - sb * sb)), 1e-9);
        }
}

TEST(CrossCorrelation, OfProfilesAndWhatCannotBeCompared)
{
    const SSurface first = MakeView(128, 1, {}, 1);
    const SShift shift = FindShift(first, MakeView(128, 1, {9.4, 0, 0}, 1));
    EXPECT_NEAR(shift.x, 9.4e-6, 5e-9);
    EXPECT_TRUE(std::isnan(shift.y) && std::isnan(shift.rotation));
    const SSurface surface = MakeView(16, 16, {}, 1);
    SSurface fine = surface;
    fine.dx /= 2;
    const SSurface gone = MakeSurface(16, 16, [](double, double) { return c_missing; });
    const SSurface flat = MakeSurface(16, 16, [](double, double) { return 3.0; });
    for (const SSurface* other : std::initializer_list<const SSurface*>{&first, &fine, &gone, &flat})
        EXPECT_FALSE(FindShift(surface, *other).reason.empty());
    const SSurface tiny = MakeView(2, 2, {}, 1);
    EXPECT_NEAR(FindShift(tiny, tiny).coefficient, 1, 1e-9);
}

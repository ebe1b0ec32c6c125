#include "analysis/grain/GrainMeasures.h"

#include "tests/analysis/GrainPictures.h"
#include "tests/TestData.h"

#include <cmath>
#include <random>
#include <string>

using namespace CommonUI::Analysis;

namespace
{

std::vector<SValue> GetGrain(const SGrains& grains, std::size_t index)
{
    std::vector<SValue> values;
    for (const SValues& column : grains.columns)
        values.push_back({column.key, column.values[index]});
    return values;
}

std::vector<SValue> MeasureOnly(const SSurface& surface)
{
    const SGrains grains = MeasureGrains(surface, c_threshold, EGrainKind::Particle);
    EXPECT_EQ(grains.count, 1u);
    return GetGrain(grains, 0);
}

// A column in rising order, what is undefined as -1.
std::vector<double> Sort(const SGrains& grains, std::string_view key)
{
    std::vector<double> values = std::ranges::find(grains.columns, key, &SValues::key)->values;
    std::ranges::replace_if(
        values, [](double value) { return std::isnan(value); }, -1);
    std::ranges::sort(values);
    return values;
}

SSurface MakeDisc(double radius, double hole)
{
    const double centre = std::ceil(radius) + 1.5;
    const auto size = static_cast<std::size_t>(2 * centre);
    return MakeSurface(size, size, [&](double x, double y) {
        const double r = std::hypot(x + 0.5 - centre, y + 0.5 - centre);
        return r <= radius && r >= hole ? 100e-9 : 0;
    });
}

SSurface Transpose(const SSurface& surface)
{
    SSurface result{.points = surface.lines, .lines = surface.points, .dx = surface.dy, .dy = surface.dx};
    for (std::size_t x = 0; x < surface.points; ++x)
        for (std::size_t y = 0; y < surface.lines; ++y)
            result.heights.push_back(surface.heights[y * surface.points + x]);
    return result;
}

} // namespace

// A line of the record: what it is, its picture, dx, dy, the values by their keys.
TEST(GrainMeasures, Shapes)
{
    for (const std::string& row : ReadTestLines("grain-shapes.txt")) {
        const std::vector<std::string> cells = SplitText(row, '|');
        SCOPED_TRACE(cells[0]);
        const SSurface surface = MakePicture(cells[1].c_str(), std::stod(cells[2]), std::stod(cells[3]));
        ExpectText(MeasureOnly(surface), cells[4]);
    }
}

TEST(GrainMeasures, DiscsAndRings)
{
    for (const double radius : {25.0, 100.0, 400.0}) {
        const auto disc = MeasureOnly(MakeDisc(radius, 0));
        const double tolerance = 2 / radius; // twice a cell in the diameter
        EXPECT_NEAR(Get(disc, "Perimeter") / (2e-6 * c_pi * radius), 1, tolerance);
        EXPECT_NEAR(Get(disc, "HeywoodDiameter") / (2e-6 * radius), 1, tolerance / 10);
        EXPECT_NEAR(Get(disc, "MaxFeret") / (2e-6 * radius), 1, tolerance);
        for (const char* key : {"AspectRatio", "FormFactor", "Roundness", "Solidity"})
            EXPECT_NEAR(Get(disc, key), 1, tolerance) << key;
        EXPECT_NEAR(Get(disc, "Convexity"), 1, 1e-12);
        EXPECT_TRUE(std::isnan(Get(disc, "FiberLength"))); // rounder than a square

        const auto ring = MeasureOnly(MakeDisc(radius, radius / 2));
        EXPECT_EQ(Get(ring, "Perimeter"), Get(disc, "Perimeter"));
        EXPECT_NEAR(Get(ring, "AreaExHoles") / Get(disc, "AreaExHoles"), 0.75, tolerance / 10);
        EXPECT_NEAR(Get(ring, "FormFactor"), 0.75, tolerance);
    }
}

TEST(GrainMeasures, SlantingBar)
{
    // 200 by 20 µm at 30° from x to y, of cells of 1 by 0.5 µm
    SSurface surface = MakeSurface(220, 320, [](double column, double line) {
        const double x = column + 0.5 - 110;
        const double y = (line + 0.5) / 2 - 80;
        const double along = x * std::cos(c_pi / 6) + y * std::sin(c_pi / 6);
        const double across = y * std::cos(c_pi / 6) - x * std::sin(c_pi / 6);
        return std::abs(along) <= 100 && std::abs(across) <= 10 ? 100e-9 : 0;
    });
    surface.dy = 0.5e-6;
    const auto bar = MeasureOnly(surface);
    EXPECT_NEAR(Get(bar, "Orientation"), 30, 0.5);
    EXPECT_NEAR(Get(bar, "Length"), 200e-6, 2e-6);
    EXPECT_NEAR(Get(bar, "Breadth"), 20e-6, 1.5e-6);
    EXPECT_NEAR(Get(bar, "Perimeter"), 440e-6, 4e-6);
    EXPECT_NEAR(Get(bar, "FiberLength"), 200e-6, 3e-6);
    EXPECT_NEAR(Get(bar, "FiberWidth"), 20e-6, 1e-6);
    ExpectValues(bar,
                 {{"CGAreaX", 110e-6}, {"CGAreaY", 80e-6}, {"AreaExHoles", Get(bar, "AreaPixel") * 0.5e-12}});
}

// What a shape is made of: where a point lies, in cells.
TEST(GrainMeasures, SkeletonsAreAsLongAsTheirBranches)
{
    struct SRow {
        const char* what;
        bool (*isInside)(double x, double y);
        double length;
        double tolerance;
    };
    const SRow rows[] = {
        {"bar", [](double x, double y) { return std::abs(x - 60) < 40 && std::abs(y - 50) < 5; }, 80, 1},
        {"line", [](double x, double y) { return std::abs(x - 50.5) < 0.6 && y > 20 && y < 90; }, 70, 1e-9},
        {"at 30°",
         [](double x, double y) {
             const double c = std::sqrt(0.75);
             return std::abs((x - 60) * c + (y - 50) / 2) < 40 && std::abs((y - 50) * c - (x - 60) / 2) < 4;
         },
         80, 5.5},
        {"L with legs 60 and 40",
         [](double x, double y) {
             return (x > 20 && x < 26 && y > 20 && y < 80) || (x > 20 && x < 60 && y > 74 && y < 80);
         },
         60 + 40 - 6, 3},
        {"cross",
         [](double x, double y) {
             return std::min(std::abs(x - 60), std::abs(y - 60)) < 3 &&
                    std::max(std::abs(x - 60), std::abs(y - 60)) < 40;
         },
         160, 3},
        {"ring", [](double x, double y) { return std::abs(std::hypot(x - 60, y - 60) - 40) < 4; }, 80 * c_pi,
         5},
        {"disc", [](double x, double y) { return std::hypot(x - 60, y - 60) < 30; }, 60, 3},
    };
    for (const SRow& row : rows)
        for (const double dy : {1e-6, 2e-6}) {
            SSurface surface = MakeSurface(130, dy > 1e-6 ? 65 : 130, [&](double x, double y) {
                return row.isInside(x + 0.5, (y + 0.5) * dy / 1e-6) ? 100e-9 : 0;
            });
            surface.dy = dy;
            const double wider = dy > 1e-6 ? 2 : 1;
            EXPECT_NEAR(Get(MeasureOnly(surface), "TotalFiberLength") / 1e-6, row.length,
                        wider * row.tolerance)
                << row.what << " dy " << dy;
        }
}

TEST(GrainMeasures, GrainsThatMeetInACornerHaveSkeletonsOfTheirOwn)
{
    const std::string_view keys[] = {"TotalFiberLength"};
    const SGrains grains =
        MeasureGrains(MakePicture("#####.../.....###"), c_threshold, EGrainKind::Particle, keys);
    ASSERT_EQ(grains.columns.size(), 1u);
    EXPECT_EQ(grains.columns[0].values, (std::vector<double>{5, 3}));
}

TEST(GrainMeasures, PlateausAndAngles)
{
    const auto around = [](auto height) {
        return MeasureOnly(MakeSurface(401, 401, [&](double x, double y) {
            return c_threshold * (1 + height(std::hypot(x - 200, y - 200) / 200));
        }));
    };
    const auto index = [](const std::vector<SValue>& values) { return Get(values, "PlateauIndex"); };
    EXPECT_EQ(index(around([](double r) { return r < 1 ? 2.0 : -1; })), 1);
    EXPECT_NEAR(index(around([](double r) { return 1 - r * r; })), 0, 1e-3);
    EXPECT_NEAR(index(around([](double r) { return 1 - r; })), -1.0 / 3, 1e-3);
    EXPECT_NEAR(index(around([](double r) { return r < 1 ? std::exp(-r * 30) : -1; })), -1, 0.01);
    EXPECT_TRUE(std::isnan(index(MeasureOnly(MakePicture(".=.")))));

    // A wedge whose tip is far from the centre, turned by and by. Its length lies along one of its sides,
    // which slope 0.2.
    for (const double degrees : {0.0, 50.0, 90.0, 130.0, 179.0, -20.0, -90.0, -150.0}) {
        const double c = std::cos(degrees * c_pi / 180);
        const double s = std::sin(degrees * c_pi / 180);
        const auto wedge = MeasureOnly(MakeSurface(400, 400, [&](double x, double y) {
            const double along = (x - 200) * c + (y - 200) * s;
            const double across = (y - 200) * c - (x - 200) * s;
            return along > -50 && along < 90 && std::abs(across) < 30 - 0.2 * (along + 50) ? 100e-9 : 0;
        }));
        EXPECT_NEAR(std::remainder(Get(wedge, "Angle") - degrees, 360), 0, 12) << degrees;
        EXPECT_NEAR(std::remainder(Get(wedge, "Angle") - Get(wedge, "Orientation"), 180), 0, 1e-9);
    }
}

// A line of the record: the kind, the number of the grain, the values by their keys.
TEST(GrainMeasures, HeightsAndVolumes)
{
    // About a threshold of 10: particles of five points and of one, pores of two points and of three.
    SSurface surface{.points = 4, .lines = 3, .dx = 2, .dy = 1};
    surface.heights = {12, 20, -8, 2, 16, 13, 17, c_missing, -3, 4, -1, 11};
    const SGrains particles = MeasureGrains(surface, 10, EGrainKind::Particle);
    const SGrains pores = MeasureGrains(surface, 10, EGrainKind::Pore);
    ASSERT_EQ(particles.count, 2u);
    ASSERT_EQ(pores.count, 2u);
    EXPECT_NEAR(particles.coverage, 600.0 / 11, 1e-9);
    // The mean along the outline of the first particle is that of 12 12 20 20 17 17 17 13 16 16.
    for (const std::string& row : ReadTestLines("grain-heights.txt")) {
        const std::vector<std::string> cells = SplitText(row, '|');
        ExpectText(GetGrain(cells[0] == "pore" ? pores : particles, std::stoul(cells[1]) - 1), cells[2]);
    }
}

TEST(GrainMeasures, PoresAreTheParticlesUpsideDown)
{
    const std::pair<const char*, const char*> pairs[] = {
        {"MaxHeight", "MaxDepth"},   {"AverageHeight", "AverageDepth"}, {"MedianHeight", "MedianDepth"},
        {"StdHeight", "SDDepth"},    {"Volume", "VoidVolume"},          {"CGVolumeX", "CGVoidVolumeX"},
        {"MaxZPosX", "MinZPosX"},    {"MaxZPosY", "MinZPosY"},          {"Perimeter", "Perimeter"},
        {"Length", "Length"},        {"CGVolumeY", "CGVoidVolumeY"},    {"MatVoidVolume", "MatVoidVolume"},
        {"CGPolygonX", "CGPolygonX"}};
    SSurface surface = MakeSurface(60, 50, [](double x, double y) {
        return 1e-7 * (std::sin(0.3 * x) * std::cos(0.2 * y) + 0.3 * std::sin(1.9 * x + y));
    });
    surface.heights[777] = c_missing;
    const SGrains particles = MeasureGrains(surface, 4e-8, EGrainKind::Particle);
    for (double& z : surface.heights)
        z = -z;
    const SGrains pores = MeasureGrains(surface, -4e-8, EGrainKind::Pore);
    ASSERT_GT(particles.count, 5u);
    ASSERT_EQ(pores.count, particles.count);
    EXPECT_EQ(pores.coverage, particles.coverage);
    for (std::size_t i = 0; i < pores.count; ++i)
        for (const auto& [ofParticle, ofPore] : pairs)
            EXPECT_DOUBLE_EQ(Get(GetGrain(particles, i), ofParticle), Get(GetGrain(pores, i), ofPore))
                << ofPore;
}

TEST(GrainMeasures, AnyShapeKeepsToTheLimits)
{
    const struct {
        const char* key;
        double least;
        double most;
    } limits[] = {{"FormFactor", 0, 1},         {"Roundness", 0, 1},     {"Compactness", 0, 1},
                  {"Convexity", 0, 1},          {"Elongation", 0, 1},    {"Solidity", 0, 1},
                  {"AspectRatio", 1, HUGE_VAL}, {"Orientation", 0, 180}, {"PlateauIndex", -1, 1},
                  {"Angle", -180, 180}};
    std::mt19937 random(7);
    for (int i = 0; i < 300; ++i) {
        SSurface surface = MakeNoise(random, 1 + random() % 20, 1 + random() % 20, 0.65);
        surface.dx = 0.5 + 0.25 * (i % 5);
        const SGrains grains = MeasureGrains(surface, c_threshold, EGrainKind::Particle);
        for (std::size_t grain = 0; grain < grains.count; ++grain) {
            const auto values = GetGrain(grains, grain);
            for (const auto& [key, least, most] : limits) {
                EXPECT_GE(Get(values, key), least) << key;
                EXPECT_LE(Get(values, key), most) << key;
            }
            EXPECT_LT(Get(values, "Orientation"), 180);
            EXPECT_GE(Get(values, "MaxFeret"), Get(values, "Length") * (1 - 1e-12));
            EXPECT_GT(Get(values, "TotalFiberLength"), 0);
            // No cell has more than four half steps.
            EXPECT_LE(Get(values, "TotalFiberLength"), 2 * Get(values, "AreaPixel") * surface.dx);
        }
    }
}

TEST(GrainMeasures, TransposedMapsHaveTheSameGrains)
{
    std::mt19937 random(8);
    for (int i = 0; i < 50; ++i) {
        SSurface surface = MakeNoise(random, 1 + random() % 20, 1 + random() % 20, 0.7);
        surface.dx = 1e-6 + 0.25e-6 * (i % 3);
        const SGrains grains = MeasureGrains(surface, c_threshold, EGrainKind::Particle);
        const SGrains transposed = MeasureGrains(Transpose(surface), c_threshold, EGrainKind::Particle);
        for (const char* key : {"Perimeter", "Length", "Breadth", "MaxFeret", "Solidity", "Convexity",
                                "AreaExHoles", "AveCntrHeight", "NearestNeighbourDist"}) {
            const std::vector<double> expected = Sort(grains, key);
            const std::vector<double> actual = Sort(transposed, key);
            ASSERT_EQ(actual.size(), expected.size());
            for (std::size_t k = 0; k < expected.size(); ++k)
                ASSERT_NEAR(actual[k], expected[k], 1e-9 * std::abs(expected[k])) << key;
        }
    }
}

TEST(GrainMeasures, MissingPointsBoundGrains)
{
    ExpectValues(GetGrain(MeasureGrains(MakePicture("##?##/##?##"), c_threshold, EGrainKind::Particle), 1),
                 {{"Length", 2},
                  {"BoundRectMinX", 3},
                  {"NearestNeighbourID", 1},
                  {"NearestNeighbourDist", 3},
                  {"NearestNeighbourAngle", 180}});
    const SGrains none = MeasureGrains(MakePicture("??"), c_threshold, EGrainKind::Pore);
    EXPECT_EQ(none.count, 0u);
    EXPECT_TRUE(std::isnan(none.coverage));
    EXPECT_EQ(none.columns.size(), GetGrainKeys().size());
    EXPECT_EQ(MeasureGrains(SSurface(), c_threshold, EGrainKind::Particle).count, 0u);
}

TEST(GrainMeasures, PatternsOfManyPoints)
{
    constexpr std::size_t c_size = 512;
    const std::string_view keys[] = {"NearestNeighbourDist", "AreaPixel", "none of the keys"};
    const SGrains checks = MeasureGrains(
        MakeSurface(c_size, c_size, [](double x, double y) { return std::fmod(x + y, 2) < 1 ? 100e-9 : 0; }),
        c_threshold, EGrainKind::Particle, keys);
    EXPECT_EQ(checks.count, c_size * c_size / 2);
    ASSERT_EQ(checks.columns.size(), 2u); // in the order of all keys
    EXPECT_EQ(checks.columns[0].values, std::vector<double>(checks.count, 1));
    for (const double distance : checks.columns[1].values)
        ASSERT_NEAR(distance, std::sqrt(2) * 1e-6, 1e-15);

    // Lines that are joined at alternate ends: one grain without holes, whose string lies along every line.
    const auto meander = MeasureOnly(MakeSurface(c_size, c_size - 1, [](double x, double y) {
        const double end = std::fmod(y, 4) < 2 ? c_size - 1 : 0;
        return std::fmod(y, 2) < 1 || x == end ? 100e-9 : 0;
    }));
    EXPECT_EQ(Get(meander, "AreaPixel"), 256 * 512 + 255);
    EXPECT_NEAR(Get(meander, "FiberLength"), 256 * 512e-6, 256e-6);
    EXPECT_NEAR(Get(meander, "FiberWidth"), 1e-6, 0.01e-6);
}

TEST(GrainMeasures, Statistics)
{
    const SGrains grains = MeasureGrains(MakePicture("#.##.##"), 0.75 * c_threshold, EGrainKind::Particle);
    const auto lengths = std::ranges::find(grains.columns, "Length", &SValues::key);
    const double sd = std::sqrt(0.16);
    ExpectValues(ComputeGrainStatistics(grains, *lengths), {{"Count", 3},
                                                            {"Mean", 5.0 / 3},
                                                            {"Mode", 2},
                                                            {"MeanWeightArea", 1.8},
                                                            {"SDWeightArea", sd},
                                                            {"MeanWeightVolume", 1.8},
                                                            {"SDWeightVolume", sd}});
}

#include "analysis/feature/Features.h"

#include "analysis/feature/FeatureParameters.h"
#include "tests/analysis/TestSurfaces.h"

#include <cmath>
#include <map>
#include <random>
#include <set>
#include <string>

using namespace CommonUI::Analysis;

namespace
{

// A surface from lines of heights; "?" is missing.
SSurface MakeHeights(const std::vector<std::string>& lines, double dx = 1, double dy = 1)
{
    SSurface surface{.lines = lines.size(), .dx = dx, .dy = dy};
    for (const std::string& line : lines)
        std::ranges::copy(GetNumbers(line), std::back_inserter(surface.heights));
    surface.points = surface.heights.size() / surface.lines;
    return surface;
}

// z = A cos(2πx/a) cos(2πy/b) about 3 mm, with a peak at every corner and middle of the a by b cells, and
// four of them inside for each period along x and y of those that are counted.
SSurface MakeEggCrate(std::size_t perPeriodX, std::size_t perPeriodY, std::size_t periods, double dx,
                      double dy, double amplitude)
{
    const auto along = [](double i, std::size_t perPeriod) {
        return std::cos(2 * c_pi * i / static_cast<double>(perPeriod));
    };
    // From half a quarter of a period on, so that no extremum is at the border.
    SSurface surface = MakeSurface(perPeriodX * periods, perPeriodY * periods, [&](double x, double y) {
        return amplitude * along(x + std::floor(static_cast<double>(perPeriodX) / 8), perPeriodX) *
               along(y + std::floor(static_cast<double>(perPeriodY) / 8), perPeriodY);
    });
    surface.dx = dx;
    surface.dy = dy;
    return surface;
}

// Water rises over one point after the other. Where two pools meet, that of the higher pit ends, and counts
// if it is as deep as the least.
std::set<double> FindPits(const SSurface& surface, double least)
{
    std::map<double, std::size_t> rising;
    for (std::size_t i = 0; i < surface.heights.size(); ++i)
        if (!std::isnan(surface.heights[i]))
            rising[surface.heights[i]] = i;
    std::set<double> pits;
    std::map<std::size_t, double> pools; // the pit of the pool that a point is in
    const auto isBeside = [](std::size_t a, std::size_t b) { return a <= b + 1 && b <= a + 1; };
    for (const auto& [z, point] : rising) {
        pits.insert(pools[point] = z);
        for (const auto& [other, pit] : pools)
            if (isBeside(other % surface.points, point % surface.points) &&
                isBeside(other / surface.points, point / surface.points)) {
                const auto [lower, higher] = std::minmax({pit, pools[point]});
                if (lower != higher && z - higher < least)
                    pits.erase(higher);
                for (auto& [member, of] : pools)
                    of = of == higher ? lower : of;
            }
    }
    return pits;
}

} // namespace

TEST(Features, OfEggCrates)
{
    struct SRow {
        std::size_t perPeriodX, perPeriodY;
        double dx, dy, amplitude;
    };
    constexpr std::size_t c_periods = 6;
    // A hundred times larger and smaller, and of unequal spacings.
    for (const SRow& row :
         {SRow{48, 48, 1e-6, 1e-6, 1e-7}, SRow{48, 48, 1e-4, 1e-4, 1e-7}, SRow{48, 48, 1e-8, 1e-8, 1e-5},
          SRow{48, 48, 1e-6, 1e-6, 1e-9}, SRow{64, 40, 1e-6, 2e-6, 1e-7}, SRow{40, 80, 1e-6, 0.5e-6, 1e-7}}) {
        const SSurface surface =
            MakeEggCrate(row.perPeriodX, row.perPeriodY, c_periods, row.dx, row.dy, row.amplitude);
        const double a = static_cast<double>(row.perPeriodX) * row.dx;
        const double b = static_cast<double>(row.perPeriodY) * row.dy;
        const double kx = 2 * c_pi / a;
        const double ky = 2 * c_pi / b;
        const auto values = ComputeFeatureParameters(surface);
        // The differences of a cosine that is sampled are known, too.
        const auto bend = [](double k, double d) { return 2 * (1 - std::cos(k * d)) / (d * d); };
        ExpectValues(values, {{"Spd", 2 / (a * b)},
                              {"S5p", row.amplitude},
                              {"S5v", row.amplitude},
                              {"S10z", 2 * row.amplitude}});
        const double curvature = row.amplitude * (bend(kx, row.dx) + bend(ky, row.dy)) / 2;
        EXPECT_NEAR(Get(values, "Spc") / curvature, 1, 1e-9);
        EXPECT_NEAR(Get(values, "Spc") / (row.amplitude * (kx * kx + ky * ky) / 2), 1, 0.01);
        for (const char* key : {"Sda", "Sha"})
            EXPECT_NEAR(Get(values, key) / (a * b / 2), 1, 0.02) << key;
        for (const char* key : {"Sdv", "Shv"}) // of the half of a hill that is above its saddles
            EXPECT_NEAR(Get(values, key) / (row.amplitude * a * b / (c_pi * c_pi)), 1, 0.01) << key;
    }
}

TEST(Features, AreDividedAndPruned)
{
    struct SRow {
        std::vector<std::string> heights;
        EFeature kind;
        double leastExtent;
        std::string labels;
        std::vector<double> saddles;
    };
    const std::string high = "9 9 9 9 9 9 9";
    const std::vector<std::string> three{high, "9 1 5 2 7 3 9", high};
    const std::vector<std::string> nested{high, "9 1 6 3 5 4 9", high};
    const SRow rows[] = {
        {three, EFeature::Dale, 0, "1112233/1112233/1112233", {5, 5, 7}},
        {three, EFeature::Dale, 3, "1112233/1112233/1112233", {5, 5, 7}},
        {three, EFeature::Dale, 3.5, "1111122/1111122/1111122", {7, 7}},
        {three, EFeature::Dale, 4.5, "1111111/1111111/1111111", {c_undefined}},
        {nested, EFeature::Dale, 1, "1112233/1112233/1112233", {6, 5, 5}},
        {nested, EFeature::Dale, 2, "1112222/1112222/1112222", {6, 6}},
        {nested, EFeature::Dale, 3.1, "1111111/1111111/1111111", {c_undefined}},
        // A plateau belongs to the nearest way off it.
        {{"9 1 5 5 5 5 2 9"}, EFeature::Dale, 0, "11112222", {5, 5}},
        {{"2 2 2", "2 2 2"}, EFeature::Hill, 0, "111/111", {c_undefined}},
        {{"2 2 1 3 3 3 2", "2 2 1 3 3 3 1"}, EFeature::Hill, 0, "1122222/1122222", {1, 1}},
        // Points that only meet in a corner are neighbours.
        {{"1 9 9", "9 1 9", "9 9 1"}, EFeature::Dale, 0, "111/111/111", {c_undefined}},
        // What missing points part meets nowhere.
        {{"1 2 ? 2 1"}, EFeature::Dale, 9, "11.22", {c_undefined, c_undefined}},
        {{"? ?"}, EFeature::Dale, 0, "..", {}},
    };
    for (const SRow& row : rows) {
        const SSurface surface = MakeHeights(row.heights);
        const SFeatures found = FindFeatures(surface, row.kind, row.leastExtent);
        const std::string what =
            row.heights[row.heights.size() / 2] + " at " + std::to_string(row.leastExtent);
        EXPECT_EQ(DrawLabels(found.map), row.labels) << what;
        ASSERT_EQ(found.features.size(), row.saddles.size()) << what;
        for (std::size_t i = 0; i < row.saddles.size(); ++i)
            ExpectValues({{what, found.features[i].saddle}}, {{what, row.saddles[i]}});
    }
}

TEST(Features, SpacingDecidesWhichWayIsSteepest)
{
    const std::vector<std::string> heights{"9 9 9", "0 4 9", "9 1 9"};
    for (const auto& [dx, steepest] : {std::pair{0.5, 3}, {2.0, 7}}) {
        const SFeatureMap map = FindWatersheds(MakeHeights(heights, dx, 1), EFeature::Dale);
        EXPECT_EQ(map.labels[4], map.labels[static_cast<std::size_t>(steepest)]) << dx;
    }
}

TEST(Features, OfPyramids)
{
    // Three by three pyramids, four high, on squares of nine by nine points.
    const auto height = [](double x, double y) {
        return 4 - std::max(std::abs(std::fmod(x, 9) - 4), std::abs(std::fmod(y, 9) - 4));
    };
    SSurface surface = MakeSurface(27, 27, height);
    surface.dx = 2;
    surface.dy = 0.5;
    const double sum = 4 + 8 * 3 + 16 * 2 + 24 * 1;
    const auto values = ComputeFeatureParameters(surface);
    ExpectValues(values, {{"Spd", 9.0 / (27 * 27)},
                          {"Spc", 1 / 4.0 + 1 / 0.25}, // falls by 1 to all sides
                          {"S5p", 4 - sum / 81},
                          {"S5v", c_undefined},
                          {"Sda", c_undefined},
                          {"Sha", 81},
                          {"Sdv", c_undefined},
                          {"Shv", sum}});
    EXPECT_EQ(FindFeatures(surface, EFeature::Dale, 0.2).features.size(),
              1u); // the net of lines between them

    SSurface upsideDown = surface;
    for (double& z : upsideDown.heights)
        z = -z;
    ExpectValues(ComputeFeatureParameters(upsideDown),
                 {{"Spd", 0}, {"S5v", 4 - sum / 81}, {"Sda", 81}, {"Sha", c_undefined}, {"Sdv", sum}});

    // A missing point diagonally beside the middle one's square is an edge, and its own pyramid stays one.
    surface.heights[8 * 27 + 8] = c_missing;
    const auto beside = ComputeFeatureParameters(surface);
    EXPECT_TRUE(std::isnan(Get(beside, "Sha")));
    EXPECT_NEAR(Get(beside, "Spd"), 9.0 / (27 * 27 - 1), 1e-12);
    // At a peak it takes this away, and what is beside it is at the edge.
    surface.heights[4 * 27 + 4] = c_missing;
    EXPECT_NEAR(Get(ComputeFeatureParameters(surface), "Spd"), 8.0 / (27 * 27 - 2), 1e-12);
}

TEST(Features, PlateausAndSteps)
{
    // A mesa of 5 by 5 on the ground: its middle is level.
    const auto mesa = [](double x, double y) {
        return std::max(std::abs(x - 7), std::abs(y - 6)) <= 2 ? 3.0 : 1.0;
    };
    const SSurface surface = MakeSurface(15, 13, mesa);
    const SFeatures hills = FindFeatures(surface, EFeature::Hill, 0.1);
    ASSERT_EQ(hills.features.size(), 1u);
    EXPECT_EQ(hills.features[0].extremum.point, 6u * 15 + 7);
    ExpectValues(ComputeFeatureParameters(surface),
                 {{"Spd", 1 / (15e-6 * 13e-6)}, {"Spc", 0}, {"S5p", c_undefined}});
    // Of a step up to the border nobody knows where it ends.
    const SSurface step = MakeSurface(15, 13, [](double x, double) { return x < 6 ? 0.0 : 1.0; });
    ExpectValues(ComputeFeatureParameters(step), {{"Spd", 0}, {"Spc", c_undefined}});
}

TEST(Features, NoiseBelowFivePercentIsPruned)
{
    SSurface surface = MakeEggCrate(40, 40, 5, 1e-6, 1e-6, 1e-7);
    const double density = Get(ComputeFeatureParameters(surface), "Spd");
    std::mt19937 random(3);
    std::uniform_real_distribution<double> noise(-0.045e-7, 0.045e-7); // 0.09 of an Sz of 2
    for (double& z : surface.heights)
        z += noise(random);
    ASSERT_GT(FindWatersheds(surface, EFeature::Hill).GetCount(), 120u);
    EXPECT_DOUBLE_EQ(Get(ComputeFeatureParameters(surface), "Spd"), density);
    for (double& z : surface.heights)
        z += 3 * noise(random);
    EXPECT_GT(Get(ComputeFeatureParameters(surface), "Spd"), 1.5 * density);
}

TEST(Features, PruningLeavesThePitsOfPoolsThatAreDeepEnough)
{
    std::mt19937 random(4);
    std::uniform_real_distribution<double> height(0, 100);
    for (int trial = 0; trial < 40; ++trial) {
        SSurface surface = MakeSurface(3 + random() % 12, 2 + random() % 12, [&](double, double) {
            return random() % 12 == 0 ? c_missing : height(random);
        });
        const double least = height(random);
        const std::set<double> pits = FindPits(surface, least);
        for (const EFeature kind : {EFeature::Dale, EFeature::Hill}) {
            std::set<double> left;
            for (const SFeature& feature : FindFeatures(surface, kind, least).features)
                left.insert(kind == EFeature::Dale ? feature.height : -feature.height);
            EXPECT_EQ(left, pits) << trial;
            for (double& z : surface.heights)
                z = -z;
        }
    }
}

#include "analysis/filter/SurfaceFilter.h"

#include "tests/analysis/TestSurfaces.h"

#include <random>

using namespace CommonUI::Analysis;

namespace
{

// Random heights of `values` different values, one of `missingEvery` points missing.
SSurface MakeRandom(std::size_t points, std::size_t lines, unsigned values, unsigned missingEvery)
{
    std::mt19937 random(11);
    return MakeSurface(points, lines, [&](double, double) {
        return random() % missingEvery == 0 ? c_missing : 1e-9 * static_cast<double>(random() % values);
    });
}

// The heights in a window of odd size around a point, missing and outer ones as NaN, row after row.
std::vector<double> GetWindow(const SSurface& surface, std::size_t at, std::size_t columns, std::size_t rows)
{
    std::vector<double> window;
    for (std::size_t row = 0; row < rows; ++row)
        for (std::size_t column = 0; column < columns; ++column) {
            const std::size_t y = at / surface.points + row - rows / 2;
            const std::size_t x = at % surface.points + column - columns / 2;
            const bool isInside = x < surface.points && y < surface.lines;
            window.push_back(isInside ? surface.heights[y * surface.points + x] : c_missing);
        }
    return window;
}

double GetMedian(const SSurface& surface, std::size_t at, const SMedianFilter& filter)
{
    std::vector<double> window = GetWindow(surface, at, filter.columns, filter.rows);
    std::erase_if(window, [](double z) { return std::isnan(z); });
    std::sort(window.begin(), window.end());
    const std::size_t n = window.size();
    const double median = (window[(n - 1) / 2] + window[n / 2]) / 2;
    const double spread = (window[n - 1 - (n - 1) / 4] - window[(n - 1) / 4]) / 1.349;
    const double height = surface.heights[at];
    return filter.threshold == 0 || std::fabs(height - median) > filter.threshold * spread ? median : height;
}

double GetWeightedMean(const SSurface& surface, std::size_t at, const SKernel& kernel)
{
    const std::vector<double> window = GetWindow(surface, at, kernel.columns, kernel.rows);
    double sum = 0;
    double weights = 0;
    for (std::size_t i = 0; i < window.size(); ++i)
        if (!std::isnan(window[i])) {
            sum += kernel.weights[i] * window[i];
            weights += kernel.weights[i];
        }
    return sum / weights;
}

template<class FValue>
void ExpectEach(const SSurface& actual, const SSurface& original, double tolerance, const FValue& value)
{
    for (std::size_t i = 0; i < original.heights.size(); ++i) {
        if (std::isnan(original.heights[i]))
            EXPECT_TRUE(std::isnan(actual.heights[i])) << i;
        else
            ASSERT_NEAR(actual.heights[i], value(i), tolerance) << i;
    }
}

// Heights of two sines and a little noise, in µm.
SSurface MakeHills(std::size_t points, std::size_t lines)
{
    std::mt19937 random(3);
    return MakeSurface(points, lines, [&](double x, double y) {
        return std::sin(x / 20) + std::cos(y / 25) + 0.01 * static_cast<double>(random() % 100) / 100;
    });
}

struct SChange {
    std::size_t at;
    double by;
};

// Whether a filter gives a surface back as it was before some changes: the changed points within the
// tolerance, all others exactly.
void ExpectUndone(const SSurface& surface, const std::vector<SChange>& changes, const CSurfaceFilter& filter,
                  double tolerance)
{
    SSurface changed = surface;
    for (const auto& [at, by] : changes)
        changed.heights[at] += by;
    const SSurface filtered = Filter(changed, filter).value();
    for (std::size_t i = 0; i < surface.heights.size(); ++i) {
        const bool isChanged = changed.heights[i] != surface.heights[i];
        EXPECT_NEAR(filtered.heights[i], surface.heights[i], isChanged ? tolerance : 0) << i;
    }
}

} // namespace

TEST(SurfaceFilter, MedianIsThatOfTheWindow)
{
    const SMedianFilter filters[] = {{3, 3, 0}, {7, 7, 0}, {15, 15, 0}, {15, 15, 1.5}, {3, 3, 1.2},
                                     {1, 9, 0}, {9, 1, 2}, {255, 3, 0}, {1, 1, 0}};
    for (const unsigned values : {1000000U, 5U})
        for (const SMedianFilter& filter : filters) {
            const SSurface surface = MakeRandom(131, 70, values, 4);
            ExpectEach(FilterMedian(surface, filter), surface, 1e-24,
                       [&](std::size_t i) { return GetMedian(surface, i, filter); });
        }
}

TEST(SurfaceFilter, KernelsWeighTheWindow)
{
    const SSurface surface = MakeRandom(40, 30, 1000, 5);
    const auto expectMeans = [&](const CSurfaceFilter& filter, const SKernel& kernel) {
        ExpectEach(Filter(surface, filter).value(), surface, 1e-20,
                   [&](std::size_t i) { return GetWeightedMean(surface, i, kernel); });
    };
    expectMeans(SMeanFilter{5, 3}, {5, 3, std::vector(15, 1.0)});
    expectMeans(SMeanFilter{49, 1}, {49, 1, std::vector(49, 2.0)});
    const SKernel lopsided{3, 3, {9, 0, 1, 0, 2, 3, 0, 0, 7}};
    expectMeans(lopsided, lopsided);
    for (const double sd : {0.3, 1.0, 40.0}) {
        SKernel gauss{9, 5, {}};
        for (int y = -2; y <= 2; ++y)
            for (int x = -4; x <= 4; ++x)
                gauss.weights.push_back(std::exp(-(x * x + y * y) / (2 * sd * sd)));
        expectMeans(SGaussianSmoothing{9, 5, sd}, gauss);
    }
}

TEST(SurfaceFilter, KernelsWithNegativeWeights)
{
    SSurface bowl = MakeSurface(9, 9, [](double x, double y) { return 3 + x * x + 2 * y * y; });
    bowl.heights[3 * 9 + 3] = c_missing;
    const SSurface edges = ApplyKernel(bowl, {3, 3, {0, 1, 0, 1, -4, 1, 0, 1, 0}});
    EXPECT_EQ(edges.heights[5 * 9 + 5], 6);
    EXPECT_EQ(edges.heights[3 * 9 + 4], 6 - (9 - 16)); // without the point on the left
    EXPECT_EQ(edges.heights[0], 1 + 2);
    const SSurface sharp = ApplyKernel(bowl, {3, 1, {-1, 4, -1}}); // the sum is 2
    EXPECT_EQ(sharp.heights[5 * 9 + 5], bowl.heights[5 * 9 + 5] - 1);
}

TEST(SurfaceFilter, IsoGaussianTransmission)
{
    constexpr double c_dx = 0.5e-6;
    constexpr double c_dy = 0.8e-6;
    constexpr double c_length = 300e-6; // of each side
    struct SRow {
        EGaussianExtent extent;
        double cutoff; // 0 for a fifth
        double x, y;   // direction of the wave
    };
    const auto profile = EGaussianExtent::Profile;
    const auto areal = EGaussianExtent::Areal;
    for (const SRow& row : {SRow{profile, 25e-6, 1, 0},
                            {profile, 0, 1, 0},
                            {areal, 25e-6, 1, 0},
                            {areal, 25e-6, 0, 1},
                            {areal, 25e-6, 0.6, 0.8},
                            {areal, 0, 0.8, -0.6}}) {
        const double cutoff = row.cutoff > 0 ? row.cutoff : c_length / 5;
        for (const double ratio : {0.2, 0.5, 1.0, 2.0, 8.0}) { // of wave length and cut-off
            SSurface surface = MakeSurface(600, 375, [&](double x, double y) {
                const double s = row.x * (x - 300) * c_dx + row.y * (y - 187) * c_dy;
                return 1e-6 * std::cos(2 * c_pi * s / (ratio * cutoff));
            });
            surface.dx = c_dx;
            surface.dy = c_dy;
            const auto get = [&](EPass pass) {
                const SIsoGaussianFilter filter{row.extent, pass, row.cutoff, 1.0 / 5};
                return Filter(surface, filter).value().heights[187 * 600 + 300] / 1e-6;
            };
            const double expected = std::pow(0.5, 1 / (ratio * ratio)); // exp(-π (α λc / λ)²)
            EXPECT_NEAR(get(EPass::Low), expected, 1e-3) << ratio << " " << row.x << " " << row.y;
            EXPECT_NEAR(get(EPass::High), 1 - expected, 1e-3) << ratio << " " << row.x << " " << row.y;
        }
    }
}

TEST(SurfaceFilter, RemovesSpikesAndNothingElse)
{
    const SSurface surface = MakeHills(150, 90);
    ExpectUndone(surface, {{150 * 40 + 70, 3}, {0, -5}, {150 * 90 - 1, 4}, {150 * 41 + 90, 2}},
                 SMedianFilter{5, 5, 6}, 0.3);
    std::vector<SChange> block; // 4 by 4 points
    for (std::size_t i = 0; i < 16; ++i)
        block.push_back({150 * (50 + i / 4) + 60 + i % 4, 10});
    ExpectUndone(surface, block, SMedianFilter{9, 9, 6}, 0.6);
    ExpectUndone(surface, {{150 * 40 + 70, 3}, {150 * 41 + 70, -3}}, SLineSpikeFilter{3, 30}, 0.1);
    ExpectUndone(surface, {{150 * 40 + 70, 3}, {150 * 40 + 71, 2}, {150 * 40 + 72, 5}},
                 SLineSpikeFilter{7, 30}, 0.2);
}

TEST(SurfaceFilter, RemovesStreaksOfItsKind)
{
    const SSurface surface = MakeHills(150, 90);
    const auto makeStreak = [](std::size_t line, std::size_t lines, std::size_t length, double by) {
        std::vector<SChange> streak;
        for (std::size_t y = line; y < line + lines; ++y)
            for (std::size_t x = 30; x < 30 + length; ++x)
                streak.push_back({y * 150 + x, by});
        return streak;
    };
    ExpectUndone(surface, makeStreak(40, 1, 60, 1), SStreakFilter{.isBright = true, .width = 1}, 0.03);
    ExpectUndone(surface, makeStreak(40, 1, 60, -1), SStreakFilter{.isBright = false, .width = 3}, 0.03);
    ExpectUndone(surface, makeStreak(40, 2, 60, -1), SStreakFilter{.isBright = false, .width = 3}, 0.03);
    ExpectUndone(surface, makeStreak(87, 2, 8, 1), SStreakFilter{.isBright = true, .width = 3}, 0.03);

    struct SRow {
        std::vector<SChange> streak;
        SStreakFilter filter;
    };
    for (const SRow& row : {SRow{makeStreak(40, 1, 60, 1), {.isBright = false, .width = 3}},
                            {makeStreak(40, 2, 60, 1), {.isBright = true, .width = 1}},
                            {makeStreak(40, 4, 60, 1), {.isBright = true, .width = 3}},
                            {makeStreak(40, 1, 7, 1), {.isBright = true, .width = 3}},
                            {makeStreak(89, 1, 60, 1), {.isBright = true, .width = 3}}}) {
        SSurface streaked = surface;
        for (const auto& [at, by] : row.streak)
            streaked.heights[at] += by;
        EXPECT_EQ(RemoveStreaks(streaked, row.filter).heights, streaked.heights);
    }
}

TEST(SurfaceFilter, LeavesALevelSurfaceAndMissingPoints)
{
    const CSurfaceFilter filters[] = {SMeanFilter{9, 9},
                                      SGaussianSmoothing{9, 241, 2},
                                      SKernel{3, 1, {1, 2, 4}},
                                      SKernel{3, 1, {-1, 3, -1}},
                                      SMedianFilter{15, 15, 0},
                                      SMedianFilter{3, 3, 3},
                                      SLineSpikeFilter{7, 2},
                                      SStreakFilter{.width = 3},
                                      SIsoGaussianFilter{EGaussianExtent::Profile, EPass::Low, 10e-6},
                                      SIsoGaussianFilter{EGaussianExtent::Areal, EPass::Low, 10e-6}};
    SSurface level =
        MakeSurface(40, 30, [](double x, double y) { return x < 3 || x == y ? c_missing : 0.1; });
    for (const CSurfaceFilter& filter : filters)
        ExpectEach(Filter(level, filter).value(), level, 0, [](std::size_t) { return 0.1; });
    for (const auto& [points, lines] : {std::pair{1, 1}, {1, 9}, {9, 1}, {2, 2}, {0, 0}})
        for (const CSurfaceFilter& filter : filters) {
            SSurface surface = MakeSurface(static_cast<std::size_t>(points), static_cast<std::size_t>(lines),
                                           [](double x, double y) { return x - y; });
            EXPECT_EQ(Filter(surface, filter).has_value(), FindRefusal(surface, filter).empty());
            surface.heights.assign(surface.heights.size(), c_missing);
            ExpectEach(Filter(surface, filter).value_or(surface), surface, 0, [](std::size_t) { return 0; });
        }
}

TEST(SurfaceFilter, RefusesWhatDoesNotSuitTheSurface)
{
    struct SRow {
        CSurfaceFilter filter;
        std::string_view reason;
    };
    const auto iso = [](EGaussianExtent extent, double cutoff, double share = 0) {
        return SIsoGaussianFilter{extent, EPass::Low, cutoff, share};
    };
    constexpr std::string_view odd = "the sizes of the filter's window are not odd numbers from 1 to 255";
    constexpr std::string_view threshold = "the filter's threshold is not a number of 0 or more";
    constexpr std::string_view isShort =
        "the cut-off is not longer than two spacings of the surface's points";
    constexpr std::string_view isLong = "the cut-off is longer than the surface";
    constexpr std::string_view noLength =
        "the cut-off or the spacing of the surface's points is not a length above 0";
    const SRow rows[] = {
        {iso(EGaussianExtent::Profile, 50e-6), ""},
        {iso(EGaussianExtent::Profile, 51e-6), isLong},
        {iso(EGaussianExtent::Areal, 20e-6), ""},
        {iso(EGaussianExtent::Areal, 21e-6), isLong}, // across the lines
        {iso(EGaussianExtent::Profile, 2e-6), isShort},
        {iso(EGaussianExtent::Areal, 2.1e-6), ""},
        {iso(EGaussianExtent::Profile, 0, 1.0 / 7), ""},
        {iso(EGaussianExtent::Areal, 0, 1.0 / 5), ""}, // 4 µm
        {iso(EGaussianExtent::Areal, 0, 1.0 / 10), isShort},
        {iso(EGaussianExtent::Areal, 0), noLength},
        {iso(EGaussianExtent::Areal, c_missing), noLength},
        {iso(EGaussianExtent::Areal, std::numeric_limits<double>::infinity()), noLength},
        {SMeanFilter{4, 3}, odd},
        {SMeanFilter{3, 0}, odd},
        {SMedianFilter{257, 3, 0}, odd},
        {SMedianFilter{3, 1, 2}, "a median with a threshold needs a window of at least 5 points"},
        {SMedianFilter{3, 3, -1}, threshold},
        {SLineSpikeFilter{3, c_missing}, threshold},
        {SLineSpikeFilter{4, 1}, odd},
        {SStreakFilter{.length = 0}, "the size of the streaks is not 1 or more points and 1 to 255 lines"},
        {SGaussianSmoothing{7, 257, 1}, odd},
        {SGaussianSmoothing{7, 7, 0}, "the filter's standard deviation is not a number above 0"},
        {SKernel{65, 1, std::vector(65, 1.0)},
         "the sizes of the filter's kernel are not odd numbers from 1 to 63"},
        {SKernel{3, 1, {1, 2}}, "the filter has not one weight for each point of its window"},
        {SKernel{1, 1, {c_missing}}, "a weight of the filter is not a number"},
        {SKernel{1, 1, {0}}, "all weights of the filter are 0"},
    };
    const SSurface surface = MakeSurface(50, 20, [](double x, double) { return x; });
    for (const SRow& row : rows)
        EXPECT_EQ(FindRefusal(surface, row.filter), row.reason) << &row - rows;
}

#include "analysis/grain/Grains.h"

#include "analysis/grain/GrainThreshold.h"
#include "tests/analysis/GrainPictures.h"

using namespace CommonUI::Analysis;

TEST(Grains, AreConnectedAlongXAndY)
{
    struct SRow {
        const char* what;
        const char* picture;
        const char* particles;
        const char* pores;
    };
    const SRow rows[] = {
        {"nothing", "", "", ""},
        {"no particle", ".", ".", "1"},
        {"diagonal pair", "#./.#", "1./.2", ".1/2."},
        {"parts that meet below", "#.#/#.#/###", "1.1/1.1/111", ".1./.1./..."},
        {"numbered by first points", "..#/#.#/###/#.#", "..1/1.1/111/1.1", "11./.1./.../.2."},
        {"missing points belong to neither", "##?##/.?.?.", "11.22/.....", "...../1.2.3"},
        {"a height at the threshold is a particle's", "=.=", "1.2", ".1."},
        {"spiral", "#####/....#/###.#/#...#/#####", "11111/....1/111.1/1...1/11111",
         "...../1111./...1./.111./....."},
    };
    for (const SRow& row : rows) {
        const SSurface surface = MakePicture(row.picture);
        EXPECT_EQ(DrawLabels(FindGrains(surface, c_threshold, EGrainKind::Particle)), row.particles)
            << row.what;
        EXPECT_EQ(DrawLabels(FindGrains(surface, c_threshold, EGrainKind::Pore)), row.pores) << row.what;
        EXPECT_EQ(FindGrains(surface, c_missing, EGrainKind::Pore).count, 0u) << row.what;
    }
}

TEST(Grains, ThoseThatDoNotCountAreLeftOut)
{
    // The grains have 1, 3, 4 and 2 points; the first two and the last touch the border.
    const char* const four = "#..###/....../.##..#/.##..#";
    const struct {
        const char* picture;
        SGrainSelection selection;
        const char* map;
    } rows[] = {{four, {}, "1..222/....../.33..4/.33..4"},
                {four, {.minimumPoints = 2}, "...111/....../.22..3/.22..3"},
                {four, {.minimumArea = 18}, "...111/....../.22.../.22..."},
                {four, {.minimumPoints = 5}, "....../....../....../......"},
                {"..#../...../#.#.#/...../..#..", {.includesEdge = false}, "...../...../..1../...../....."}};
    for (const auto& row : rows) {
        SGrainMap map = FindGrains(MakePicture(row.picture), c_threshold, EGrainKind::Particle);
        SelectGrains(map, row.selection, 6);
        EXPECT_EQ(DrawLabels(map), row.map);
        EXPECT_EQ(map.count, *std::ranges::max_element(map.labels));
    }
}

TEST(GrainThreshold, HasTheHeightOfItsKind)
{
    const auto ramp = [](double scale, double offset) {
        return MakeSurface(101, 1, [=](double x, double) { return scale * x + offset; });
    };
    const auto step = MakeSurface(10, 10, [](double x, double) {
        return x < 3 ? 1e-6 : x < 4 ? c_missing : 3e-6;
    });
    // Levels of 0, 1 and 10 beside each other: the first two are one class.
    const auto levels = MakeSurface(30, 1, [](double x, double) {
        return x < 10 ? 0. : x < 20 ? 1e-6 : 1e-5;
    });
    const struct {
        SSurface surface;
        EGrainThreshold kind;
        double value;
        double height;
    } rows[] = {
        {step, EGrainThreshold::Absolute, 7e-9, 7e-9},
        {step, EGrainThreshold::Relative, 0, 1e-6},
        {step, EGrainThreshold::Relative, 25, 1.5e-6},
        {step, EGrainThreshold::Relative, 100, 3e-6},
        {step, EGrainThreshold::Relative, 101, c_missing},
        {step, EGrainThreshold::Percentile, 50, 3e-6},
        {ramp(1e-9, -4e-8), EGrainThreshold::Percentile, 30, -1e-8},
        {step, EGrainThreshold::Otsu, 0, 2e-6},
        {levels, EGrainThreshold::Otsu, 0, 5.5e-6},
        {ramp(1e-9, 0), EGrainThreshold::Otsu, 0, 5e-8},
        {ramp(1e-300, 1e-300), EGrainThreshold::Otsu, 0, 51e-300},
        {ramp(1e300, -5e301), EGrainThreshold::Otsu, 0, 0},
        {ramp(0, 4e-6), EGrainThreshold::Otsu, 0, 4e-6},
        {ramp(c_missing, 0), EGrainThreshold::Otsu, 0, c_missing},
        {ramp(c_missing, 0), EGrainThreshold::Relative, 50, c_missing},
    };
    for (const auto& row : rows) {
        const double found = FindThreshold(row.surface, row.kind, row.value);
        if (std::isnan(row.height))
            EXPECT_TRUE(std::isnan(found)) << found;
        else
            EXPECT_NEAR(found, row.height,
                        1e-9 * std::max(std::abs(row.height),
                                        std::abs(row.surface.heights[100 % row.surface.heights.size()])));
    }
}

#include "analysis/grain/Grains.h"

#include "tests/analysis/GrainPictures.h"

#include <random>

using namespace CommonUI::Analysis;

namespace
{

std::string Draw(const SGrainMap& map)
{
    std::string text;
    for (std::size_t i = 0; i < map.labels.size(); ++i) {
        if (i > 0 && i % map.points == 0)
            text += '/';
        text += map.labels[i] == 0 ? '.' : static_cast<char>('0' + map.labels[i]);
    }
    return text;
}

// The definition, point by point.
SGrainMap Flood(const SSurface& surface)
{
    SGrainMap map{.points = surface.points, .lines = surface.lines};
    map.labels.resize(surface.heights.size());
    const auto isFree = [&](std::size_t i) {
        return map.labels[i] == 0 && surface.heights[i] >= c_threshold;
    };
    for (std::size_t i = 0; i < map.labels.size(); ++i) {
        if (!isFree(i))
            continue;
        ++map.count;
        std::vector<std::size_t> open{i};
        while (!open.empty()) {
            const std::size_t at = open.back();
            open.pop_back();
            if (!isFree(at))
                continue;
            map.labels[at] = map.count;
            if (at % map.points > 0)
                open.push_back(at - 1);
            if ((at + 1) % map.points > 0)
                open.push_back(at + 1);
            if (at >= map.points)
                open.push_back(at - map.points);
            if (at + map.points < map.labels.size())
                open.push_back(at + map.points);
        }
    }
    return map;
}

} // namespace

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
        EXPECT_EQ(Draw(FindGrains(surface, c_threshold, EGrainKind::Particle)), row.particles) << row.what;
        EXPECT_EQ(Draw(FindGrains(surface, c_threshold, EGrainKind::Pore)), row.pores) << row.what;
        EXPECT_EQ(FindGrains(surface, c_missing, EGrainKind::Pore).count, 0u) << row.what;
    }
}

TEST(Grains, AreThoseOfTheDefinition)
{
    std::mt19937 random(1);
    for (int i = 0; i < 200; ++i) {
        const SSurface surface = MakeNoise(random, 1 + random() % 40, 1 + random() % 40, 0.6);
        const SGrainMap map = FindGrains(surface, c_threshold, EGrainKind::Particle);
        const SGrainMap expected = Flood(surface);
        ASSERT_EQ(map.count, expected.count);
        ASSERT_EQ(map.labels, expected.labels);
    }
}

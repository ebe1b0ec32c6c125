#include "analysis/grain/Neighbours.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <span>
#include <vector>

using namespace CommonUI::Analysis;

TEST(Neighbours, AreThoseOfTheDefinition)
{
    std::mt19937 random(2);
    const auto real = [&](double range) { return range * static_cast<double>(random()) / 4294967296.0; };
    const auto fill = [&](std::size_t count, const auto& make) {
        std::vector<SPosition> positions;
        for (std::size_t i = 0; i < count; ++i)
            positions.push_back(make(static_cast<double>(i)));
        return positions;
    };
    const auto at = [](double x, double y) { return SPosition{x, y}; };
    const std::vector<SPosition> sets[] = {
        fill(2, [&](double i) { return at(i, -i); }),
        fill(500, [&](double) { return at(real(1), real(1)); }),
        fill(500, [&](double) { return at(1e-6 + real(1e-4), 3); }),
        fill(500, [&](double i) { return at(3, i * i); }),
        fill(500, [&](double i) { return i < 3 ? at(1e3 * i, 700) : at(real(1), real(0.01)); }),
        fill(400, [&](double i) { return at(std::fmod(i, 20), std::floor(i / 20)); }), // all at several
        fill(5, [&](double) { return at(7, 7); }),
    };
    for (const auto& set : sets) {
        const auto neighbours = FindNeighbours(set);
        ASSERT_EQ(neighbours.size(), set.size());
        for (std::size_t i = 0; i < set.size(); ++i) {
            std::size_t nearest = i == 0 ? 1 : 0;
            const auto distance = [&](std::size_t k) {
                return std::hypot(set[k].x - set[i].x, set[k].y - set[i].y);
            };
            for (std::size_t k = 0; k < set.size(); ++k)
                if (k != i && distance(k) < distance(nearest))
                    nearest = k;
            ASSERT_EQ(neighbours[i].index, nearest);
            ASSERT_DOUBLE_EQ(neighbours[i].distance, distance(nearest));
        }
    }
    EXPECT_EQ(FindNeighbours(sets[0])[0].angle, -45);
    EXPECT_EQ(FindNeighbours(sets[0])[1].angle, 135);
    EXPECT_TRUE(std::isnan(FindNeighbours(sets[6])[0].angle));
    EXPECT_TRUE(FindNeighbours(std::span(sets[0]).first(1)).empty());
}

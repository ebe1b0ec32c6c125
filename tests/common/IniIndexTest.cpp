#include "common/ini/detail/IniIndex.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

using namespace CommonUI;

namespace
{

std::uint32_t Below(std::mt19937& random, unsigned int limit)
{
    return static_cast<std::uint32_t>(random() % limit);
}

} // namespace

TEST(IniIndex, NumbersComeAndGoInAnyOrderWithAnyHashes)
{
    // Few hashes make long clusters, and large ones let these run over the end.
    for (const std::uint32_t hashes : {3u, 40u, 5000u}) {
        std::mt19937 random(hashes);
        CIniIndex index;
        std::map<std::uint32_t, std::uint32_t> expected;
        const auto hashOf = [hashes](std::uint32_t number) { return 0u - number % hashes; };
        const auto find = [&](std::uint32_t number) {
            return index.Find(hashOf(number), [number](std::uint32_t other) { return other == number; });
        };
        index.Erase(1, 1);
        for (int step = 0; step < 4000; ++step) {
            const std::uint32_t number = Below(random, 300);
            if (expected.erase(number) != 0) {
                index.Erase(hashOf(number), number);
            } else {
                index.Insert(hashOf(number), number);
                expected[number] = number;
            }
            const std::uint32_t other = Below(random, 300);
            ASSERT_EQ(find(other) == other, expected.contains(other)) << "step " << step;
        }
        for (const auto& [number, same] : expected)
            ASSERT_EQ(find(number), same);
    }
}

TEST(IniIndex, ANumberThatComesAndGoesLeavesNothingToWalkOver)
{
    CIniIndex index;
    for (std::uint32_t number = 0; number < 20; ++number)
        index.Insert(number, number);
    for (int step = 0; step < 1000; ++step) {
        index.Erase(7, 7);
        index.Insert(7, 7);
    }
    int looks = 0;
    for (std::uint32_t number = 100; number < 110; ++number)
        index.Insert(7, number);
    index.Find(7, [&looks](std::uint32_t) { return ++looks > 1000; });
    EXPECT_EQ(looks, 11) << "those of its hash only";
}

#include "analysis/areal/MaterialRatio.h"

#include "tests/analysis/TestSurfaces.h"

#include <algorithm>
#include <cmath>
#include <random>

using namespace CommonUI::Analysis;

TEST(MaterialRatio, SortsAnyDistribution)
{
    std::mt19937 random(1);
    const auto heavyTailed = [&] {
        return std::tan(c_pi * (static_cast<double>(random()) / 4294967296.0 - 0.5));
    };
    std::vector<double> heights;
    for (int i = 0; i < 20000; ++i)
        heights.push_back(i % 7 == 0 ? c_missing : i % 5 == 0 ? 0.25 : heavyTailed());
    const CMaterialRatio curve(heights);
    std::erase_if(heights, [](double z) { return std::isnan(z); });
    std::sort(heights.rbegin(), heights.rend());
    EXPECT_TRUE(
        std::equal(heights.begin(), heights.end(), curve.GetHeights().begin(), curve.GetHeights().end()));
    for (const double percent : {0.0, 3.3, 50.0, 99.99, 100.0})
        EXPECT_NEAR(curve.GetHeight(curve.GetRatio(curve.GetHeight(percent))), curve.GetHeight(percent),
                    1e-9);
}

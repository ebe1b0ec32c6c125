#include "analysis/areal/Autocorrelation.h"

#include "tests/analysis/TestSurfaces.h"

#include <algorithm>
#include <cmath>
#include <random>

using namespace CommonUI::Analysis;

namespace
{

// The definition itself, for one shift.
double Correlate(const SSurface& surface, std::ptrdiff_t shiftX, std::size_t shiftY)
{
    const auto columns = static_cast<std::ptrdiff_t>(surface.points);
    double sum = 0;
    double count = 0;
    for (std::size_t y = shiftY; y < surface.lines; ++y)
        for (std::ptrdiff_t x = std::max<std::ptrdiff_t>(0, shiftX);
             x < columns + std::min<std::ptrdiff_t>(0, shiftX); ++x) {
            const double a = surface.GetLine(y)[static_cast<std::size_t>(x)];
            const double b = surface.GetLine(y - shiftY)[static_cast<std::size_t>(x - shiftX)];
            sum += std::isnan(a + b) ? 0 : a * b;
            ++count;
        }
    return sum / count;
}

} // namespace

TEST(Autocorrelation, IsTheMeanProductOfThePointsThatOverlap)
{
    std::mt19937 random(3);
    for (const auto& [points, lines] : {std::pair<std::size_t, std::size_t>{16, 16}, {21, 10}, {2, 7}}) {
        SSurface surface = MakeSurface(points, lines, [&](double, double) {
            return 1e-9 * (static_cast<double>(random() % 2001) - 1000);
        });
        surface.heights[points + 1] = c_missing;
        const CAutocorrelation autocorrelation(surface, 0);
        const double unshifted = Correlate(surface, 0, 0);
        const auto reach = static_cast<std::ptrdiff_t>(points / 2);
        for (std::size_t y = 0; y <= lines / 2; ++y)
            for (std::ptrdiff_t x = -reach; x <= reach; ++x)
                EXPECT_NEAR(autocorrelation.GetValue(static_cast<double>(x), static_cast<double>(y)),
                            Correlate(surface, x, y) / unshifted, 1e-13)
                    << x << " " << y << " of " << points << " by " << lines;
    }
}

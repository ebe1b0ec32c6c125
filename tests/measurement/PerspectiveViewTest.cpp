#include "measurement/charts/PerspectiveView.h"

#include "measurement/charts/SurfaceMap.h"
#include "tests/analysis/TestSurfaces.h"
#include "tests/TestData.h"

using namespace CommonUI;
using namespace CommonUI::Measurement;
using Analysis::MakeSurface;
using Analysis::SSurface;

namespace
{

constexpr double c_gap = Analysis::c_missing;

std::string Draw(const SSurface& surface)
{
    return DrawPerspective(surface, GetBuiltInColorScale(EBuiltInSetting::CSQuickLaunchDefault3D));
}

std::size_t Count(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != text.npos; ++at)
        ++count;
    return count;
}

} // namespace

TEST(PerspectiveView, BlockFitsThePictureWhateverTheHeights)
{
    const auto ripples = [](double scale) {
        return [scale](double x, double y) { return scale * std::sin(x * y); };
    };
    SSurface narrow = MakeSurface(300, 4, ripples(1e-6));
    narrow.dy = 1e-9;
    const std::pair<const char*, SSurface> rows[]{
        {"usual", MakeSurface(64, 48, ripples(1e-7))},
        {"tiny", MakeSurface(20, 20, ripples(1e-100))},
        {"huge", MakeSurface(20, 20, ripples(1e90))},
        {"flat", MakeSurface(20, 20, [](double, double) { return 3e-6; })},
        {"large", MakeSurface(700, 300, ripples(1e-6))},
        {"holes", MakeSurface(30, 30, [](double x, double y) { return x + y > 40 ? c_gap : x * 1e-9; })},
        {"narrow", narrow},
    };
    for (const auto& [name, surface] : rows) {
        SCOPED_TRACE(name);
        const std::string svg = Draw(surface);
        EXPECT_LT(svg.size(), 300'000u);
        EXPECT_FALSE(Has(svg, "nan") || Has(svg, "inf") || Has(svg, "M-") || Has(svg, "L-")) << "outside";
        EXPECT_EQ(Has(svg, "heights ×"), std::string_view(name) != "flat");
    }
}

TEST(PerspectiveView, PiecesWithTwoMissingCornersAreHoles)
{
    const auto pieces = [](auto isMissing) {
        const std::string svg =
            Draw(MakeSurface(4, 4, [&](double x, double y) { return isMissing(x, y) ? c_gap : 1e-9 * x; }));
        return Count(svg, "<path") - 2; // the walls
    };
    EXPECT_EQ(pieces([](double, double) { return false; }), 9u);
    EXPECT_EQ(pieces([](double x, double y) { return x == 1 && y == 1; }), 9u);
    EXPECT_EQ(pieces([](double x, double) { return x == 1; }), 3u);
}

TEST(PerspectiveView, NothingIsDrawnOfALine)
{
    for (const auto& surface : {MakeSurface(9, 1, [](double x, double) { return x; }),
                                MakeSurface(1, 9, [](double, double y) { return y; }),
                                MakeSurface(9, 9, [](double, double) { return c_gap; })})
        EXPECT_EQ(Draw(surface), "");
}

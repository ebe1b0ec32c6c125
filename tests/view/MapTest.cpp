#include "view/MapPicture.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace SurfaceView;
using CommonUI::Analysis::SSurface;

namespace
{

SSurface MakeSurface(std::size_t points, std::vector<double> heights)
{
    SSurface surface{.points = points, .lines = heights.size() / points, .dx = 1e-6, .dy = 2e-6};
    surface.heights = std::move(heights);
    return surface;
}

} // namespace

TEST(MapPlace, ShowsTheSurfaceInItsShapeAndKeepsWhatIsUnderThePointer)
{
    const SSurface surface = MakeSurface(200, std::vector<double>(200 * 50, 0.0));
    CMapPlace place(surface);
    place.SetRoom({10, 20, 410, 320});
    EXPECT_EQ(place.GetShown(), (CommonUI::SRect{10, 70, 410, 270})); // 200 µm by 100 µm
    const SPixel at{100, 170};
    const SMapPoint under = place.ToPoint(at);
    EXPECT_NEAR(under.x, (45 - 0.5) * 1e-6, 1e-12);
    for (int i = 0; i < 5; ++i)
        place.Zoom(at, 2);
    EXPECT_EQ(place.GetZoom(), 32);
    EXPECT_NEAR(place.ToPixel(under).x, at.x, 1e-6);
    EXPECT_NEAR(place.ToPixel(under).y, at.y, 1e-6);
    EXPECT_EQ(place.GetShown(), (CommonUI::SRect{10, 20, 410, 320}));
    place.Pan(1e9, 1e9); // no further than to a corner
    EXPECT_NEAR(place.ToPixel(place.GetLower()).x, 10, 1e-6);
    EXPECT_NEAR(place.ToPixel(place.GetUpper()).y, 20, 1e-6);
    place.Zoom(at, 1e-9);
    EXPECT_EQ(place.GetZoom(), 1);
    place.Zoom(at, 1e9);
    EXPECT_EQ(place.GetZoom(), CMapPlace::c_greatestZoom);
    place.Fit();
    EXPECT_EQ(place.GetShown(), (CommonUI::SRect{10, 70, 410, 270}));
}

TEST(MapPlace, HasAPlaceForEveryShapeAndRoom)
{
    const SSurface surfaces[]{MakeSurface(5, std::vector<double>(5, 0.0)), MakeSurface(1, {0, 0, 0, 0}),
                              MakeSurface(1, {0}), MakeSurface(9000, std::vector<double>(18000, 0.0))};
    for (const SSurface& surface : surfaces) {
        for (const CommonUI::SRect room : {CommonUI::SRect{0, 0, 500, 300}, {5, 5, 6, 6}, {9, 9, 0, 0}}) {
            CMapPlace place(surface);
            place.SetRoom(room);
            place.Zoom({3, 3}, 3);
            const CommonUI::SRect shown = place.GetShown();
            const auto pixels =
                DrawMap(surface, {.table = std::vector<CommonUI::SColor>(2), .heights = {0, 1}}, place, 2);
            EXPECT_EQ(pixels.size(), static_cast<std::size_t>(4 * std::max(0, shown.GetWidth()) *
                                                              std::max(0, shown.GetHeight())));
        }
    }
    CMapPlace strip(surfaces[3]);
    strip.SetRoom({0, 0, 500, 300});
    EXPECT_EQ(strip.GetShown().GetHeight(), 60); // which would be less than a pixel
}

TEST(MapPicture, PixelsHaveTheColorsOfTheirPointsAndOfTheMeansOfMany)
{
    constexpr double c_hole = CommonUI::Analysis::c_missing;
    const std::vector<CommonUI::SColor> table{{0, 0, 0}, {100, 100, 100}, {200, 200, 200}};
    SSurface surface = MakeSurface(2, {0, 1, 2, c_hole}); // the second line is the upper one
    surface.dy = 1e-6;
    CMapPlace place(surface);
    place.SetRoom({0, 0, 4, 4});
    const std::uint32_t black = 0xFF000000;
    const std::uint32_t grey = 0xFF646464;
    const std::uint32_t white = 0xFFC8C8C8;
    const std::uint32_t hole = 0;
    EXPECT_EQ(DrawMap(surface, {.table = table, .heights = {0, 2}}, place, 1),
              (std::vector<std::uint32_t>{white, white, hole, hole, white, white, hole, hole, black, black,
                                          grey, grey, black, black, grey, grey}));
    SSurface many = MakeSurface(400, {});
    many.dy = 1e-6;
    many.lines = 400;
    for (int i = 0; i < 400 * 400; ++i)
        many.heights.push_back(i % 400 == 399 ? c_hole : i % 2 == 0 ? 0.0 : 2.0);
    CMapPlace far(many);
    far.SetRoom({0, 0, 100, 100});
    for (const std::uint32_t pixel : DrawMap(many, {.table = table, .heights = {0, 2}}, far, 1))
        ASSERT_TRUE(pixel == grey) << std::hex << pixel;
}

TEST(MapPicture, PointsAreToldInUnitsOfTheSurface)
{
    SSurface surface = MakeSurface(2000, std::vector<double>(4000, 0.0));
    surface.heights[1] = -1.23456e-6;
    surface.heights[2002] = CommonUI::Analysis::c_missing;
    const std::tuple<SMapPoint, const char*> rows[]{
        {{.x = 0, .y = 0}, "x = 0.000 mm, y = 0.000000 mm, z = 0.000 µm"},
        {{.x = 1.4e-6, .y = 0.9e-6}, "x = 0.001 mm, y = 0.000000 mm, z = −1.235 µm"},
        {{.x = 2e-6, .y = 2.5e-6}, "x = 0.002 mm, y = 0.002000 mm, z = –"},
        {{.x = 1999.4e-6, .y = 0}, "x = 1.999 mm, y = 0.000000 mm, z = 0.000 µm"},
        {{.x = 1999.6e-6, .y = 0}, ""},
        {{.x = 0, .y = -1.1e-6}, ""},
    };
    for (const auto& [point, text] : rows)
        EXPECT_EQ(DescribePoint(surface, {-1.3e-6, 0}, point).ToUtf8(), text);
}

#include "measurement/marks/MarkMeasures.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace CommonUI;
using namespace CommonUI::Measurement;
using Analysis::SPlace;

namespace
{

// 11 x 6 points 1 µm apart that rise by 0.1 nm for each of them along x.
Analysis::SSurface MakeRamp()
{
    Analysis::SSurface surface{.points = 11, .lines = 6, .dx = 1e-6, .dy = 1e-6};
    for (int i = 0; i < 66; ++i)
        surface.heights.push_back(1e-10 * (i % 11));
    return surface;
}

} // namespace

TEST(SurfaceMarks, MovesStayOnTheSurface)
{
    CSurfaceMarks marks(MakeRamp());
    const std::size_t first = marks.Add(EMark::Profile, {1e-6, 1e-6});
    marks.MovePoint(first, 1, {99, -99});
    EXPECT_NEAR(marks.GetAll()[0].points[1].x, 10e-6, 1e-18);
    EXPECT_EQ(marks.GetAll()[0].points[1].y, 0);
    marks.MovePoint(first, 1, {3e-6, 2e-6});
    marks.MoveBy(first, 99, -0.5e-6); // keeps its length at the border
    EXPECT_NEAR(marks.GetAll()[0].points[0].x, 8e-6, 1e-18);
    EXPECT_NEAR(marks.GetAll()[0].points[1].x, 10e-6, 1e-18);
    EXPECT_NEAR(marks.GetAll()[0].points[0].y, 0.5e-6, 1e-18);

    EXPECT_EQ(marks.GetAll()[marks.Add(EMark::Angle, {})].points.size(), 3u);
    EXPECT_EQ(marks.GetAll()[marks.Add(EMark::Profile, {})].number, 2);
    marks.Remove(0);
    EXPECT_EQ(marks.GetAll()[marks.Add(EMark::Profile, {})].number, 1);

    Analysis::SSurface small = MakeRamp();
    small.points = 3;
    marks.SetSurface(small);
    for (const SMark& mark : marks.GetAll())
        for (const SPlace& point : mark.points)
            EXPECT_LE(point.x, 2e-6);
}

TEST(SurfaceMarks, AreFoundByPointsThenLines)
{
    CSurfaceMarks marks(MakeRamp());
    marks.Add(EMark::Profile, {0, 2e-6});
    marks.MovePoint(0, 1, {10e-6, 2e-6});
    marks.Add(EMark::Distance, {5e-6, 0});
    marks.MovePoint(1, 1, {5e-6, 5e-6});
    using SHit = CSurfaceMarks::SHit;
    struct SRow {
        SPlace place;
        std::optional<SHit> hit;
    };
    for (const auto& [place, hit] : {SRow{{0.2e-6, 2.1e-6}, SHit{0, 0}},
                                     {{9.8e-6, 2e-6}, SHit{0, 1}},
                                     {{3e-6, 2.3e-6}, SHit{0, {}}},
                                     {{5.1e-6, 4e-6}, SHit{1, {}}},
                                     {{5e-6, 2e-6}, SHit{1, {}}},
                                     {{3e-6, 2.6e-6}, {}},
                                     {{-1, -1}, {}}})
        EXPECT_EQ(marks.Find(place, 0.5e-6, 0.5e-6), hit) << place.x << " " << place.y;
    EXPECT_EQ(marks.Find({3e-6, 2.6e-6}, 0.1e-6, 1e-6), (SHit{0, {}}));
}

TEST(SurfaceMarks, MeasureWhatFormulasSay)
{
    Analysis::SSurface surface = MakeRamp();
    for (double& height : surface.heights)
        height *= 1e4; // a slope of 45 degrees
    const SDistance distance = MeasureDistance(surface, {1e-6, 1e-6}, {4e-6, 5e-6});
    EXPECT_NEAR(distance.dz, 3e-6, 1e-15);
    EXPECT_NEAR(distance.inPlane, 5e-6, 1e-15);
    EXPECT_NEAR(distance.inSpace, std::sqrt(34.0) * 1e-6, 1e-15);
    EXPECT_NEAR(distance.slope, 30.963756532, 1e-8);
    EXPECT_TRUE(std::isnan(MeasureDistance(surface, {}, {}).slope));

    const SAngle angle = MeasureAngle(surface, {4e-6, 0}, {2e-6, 0}, {2e-6, 3e-6});
    EXPECT_NEAR(angle.inPlane, 90, 1e-9);
    EXPECT_NEAR(angle.inSpace, 90, 1e-9);
    EXPECT_NEAR(MeasureAngle(surface, {4e-6, 0}, {2e-6, 0}, {4e-6, 2e-6}).inPlane, 45, 1e-9);
    EXPECT_NEAR(MeasureAngle(surface, {4e-6, 0}, {2e-6, 0}, {4e-6, 2e-6}).inSpace, 35.264389683, 1e-8);
    EXPECT_TRUE(std::isnan(MeasureAngle(surface, {}, {}, {1e-6, 0}).inSpace));
}

TEST(SurfaceMarks, TextsHaveUnitsThatGoByTheSurface)
{
    Analysis::SSurface surface = MakeRamp();
    const SLengthFormat width = GetWidthFormat(surface);
    const SLengthFormat height = GetHeightFormat(surface);
    CSurfaceMarks marks(surface);
    marks.Add(EMark::Distance, {4e-6, 0});
    marks.MovePoint(0, 1, {1e-6, 4e-6});
    marks.Add(EMark::Angle, {2e-6, 0});
    marks.MovePoint(1, 0, {4e-6, 0});
    marks.MovePoint(1, 2, {2e-6, 1e-6});
    const auto describe = [&](std::size_t mark) {
        return DescribeMark(surface, marks.GetAll()[mark], width, height).ToUtf8();
    };
    EXPECT_EQ(describe(0), "1: 5.00 µm, Δz −0.300 nm");
    EXPECT_EQ(describe(1), "1: 90.00°");
    surface.heights[4] = Analysis::c_missing;
    EXPECT_EQ(describe(0), "1: 5.00 µm, Δz – nm");
    const auto table = MakeMarkTable(surface, marks.GetAll(), width, height);
    std::string text;
    for (const auto& row : table)
        for (const CStr& cell : row)
            text += cell.ToUtf8() + (&cell == &row.back() ? "\n" : "|");
    EXPECT_EQ(text, "|dx / µm|dy / µm|dz / nm|Length in the plane / µm|Length in space / µm|Slope / °|"
                    "Angle in the plane / °|Angle in space / °\n"
                    "Distance 1|−3.00|4.00|–|5.00|–|–||\nAngle 1|||||||90.00|–\n");
}

#include "view/Layout.h"

#include "programs/surface_view/FreeTypeFont.h"
#include "tests/view/Looks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace SurfaceView;

TEST(Layout, NothingOverlapsAndAllIsInThePicture)
{
    const CFreeTypeFont font;
    const SPictureText text{.title = u"a surface with a name that is longer than a small picture is wide.sdf",
                            .subtitle = u"64 µm × 48 µm, heights × 6.4"};
    for (const CommonUI::SSize size : {CommonUI::SSize{2700, 1800}, {900, 600}, {900, 1800}, {300, 300}}) {
        for (const SLook& look : c_looks) {
            const SLayout layout = MakeLayout(c_box, look.direction, look.orthographic, text, size, 3, font);
            EXPECT_GE(layout.labels.size(), 4u); // two lines, the name of the legend and a mark
            std::vector<CommonUI::SRect> places{layout.legend};
            for (const SLabel& label : layout.labels)
                places.push_back(label.place);
            for (std::size_t i = 0; i < places.size(); ++i) {
                EXPECT_GE(places[i].left, 0);
                EXPECT_GE(places[i].top, 0);
                EXPECT_LE(places[i].right, size.cx);
                EXPECT_LE(places[i].bottom, size.cy);
                for (std::size_t j = 0; j < i; ++j)
                    EXPECT_TRUE(places[i].left >= places[j].right || places[j].left >= places[i].right ||
                                places[i].top >= places[j].bottom || places[j].top >= places[i].bottom)
                        << i << " " << j << " of " << size.cx << " x " << size.cy;
            }
        }
    }
}

TEST(Layout, EveryAxisThatIsSeenHasMarksAndAName)
{
    const CFreeTypeFont font;
    for (const SLook& look : {c_looks[0], c_looks[1], c_looks[3], c_looks[8]}) {
        const SLayout layout = MakeLayout(c_box, look.direction, look.orthographic, {}, {900, 600}, 1, font);
        for (const SAxis& axis : layout.axes)
            EXPECT_GE(axis.ticks.size(), 2u) << look.direction.azimuth;
        for (const char16_t* name : {u"x / µm", u"y / µm"})
            EXPECT_EQ(std::ranges::count(layout.labels, name, &SLabel::text), 1) << look.direction.azimuth;
    }
}

TEST(Layout, TitleOfAnyLengthIsCutToTheWidthOfThePicture)
{
    const CFreeTypeFont font;
    for (const std::size_t length : {200u, 500'000u}) { // the second takes minutes when cut letter by letter
        const SPictureText text{.title = CommonUI::CStr(length, u'i')};
        const SLabel title = MakeLayout(c_box, {30, 35}, false, text, {300, 300}, 1, font).labels[0];
        const CommonUI::CStr wider = CommonUI::CStr(title.text.GetLength(), u'i') + u"…";
        EXPECT_EQ(title.text.Right(2), u"i…");
        EXPECT_LE(title.place.right, 300 - 9);
        EXPECT_GT(title.place.left + font.Measure(wider, title.height).cx, 300 - 9);
    }
}

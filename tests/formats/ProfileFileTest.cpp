#include "tests/formats/SurfaceFile.h"

using namespace CommonUI::Formats;
using CommonUI::Analysis::c_missing;
using CommonUI::Analysis::SSurface;

namespace
{

class ProfileFile : public SurfaceFile
{
};

} // namespace

TEST_F(ProfileFile, ReadsColumns)
{
    const std::string texts[] = {
        "x [mm]\tz [\u00B5m]\n0\t1.5\n0.001\t-2\n0.002\tBAD\n0.003\t4\n",
        "\xEF\xBB\xBFPosition ( mm );H\xF6he (\xB5m)\r\n1,000;1,5\r\n1,001;-2\r\n\r\n1,002;nan\r\n1,003;4",
        "x [um],z [nm]\n-2,1500\n-1.0,-2e3\n0,NaN\n1 , 4000\n",
        "# x [um] z [nm]\n0 1500\n  1.04 -2000\n2.03 BAD\n3 4000\n",
    };
    for (const std::string& text : texts) {
        SCOPED_TRACE(text);
        const SSurface profile = Read(text);
        EXPECT_EQ(profile.points, 4u);
        EXPECT_EQ(profile.lines, 1u);
        EXPECT_NEAR(profile.dx, 1e-6, 1e-18);
        EXPECT_EQ(profile.dy, profile.dx);
        EXPECT_EQ(profile.missing, 1u);
        ExpectHeights(profile, {1.5e-6, -2e-6, c_missing, 4e-6});
    }
}

TEST_F(ProfileFile, HeightsAloneAreReadWithASpacing)
{
    const SSurface profile = Read("z [um]\n1,5\n-2\n", {.spacing = 5e-7});
    EXPECT_EQ(profile.dx, 5e-7);
    ExpectHeights(profile, {1.5e-6, -2e-6});
    const SReadOptions given{.spacing = 1e-6};
    ExpectRefused("z [um]\n1\n2\n", "a.sdf:1: the file has heights alone, so a spacing has to be given");
    ExpectRefused("z [um]\n1\n2\n", "a.sdf:1: a spacing from", {.spacing = -1});
    ExpectRefused("z [um]\n1\n2\n", "a.sdf:1: a spacing from", {.spacing = c_missing});
    ExpectRefused("x [um] z [um]\n1 1\n2 2\n", "a.sdf:1: the file has positions of its own", given);
    ExpectRefused("# Width: 1 m\n# Height: 1 m\n# Value units: m\n3\n",
                  "a.sdf: the file has spacings of its own", given);
}

TEST_F(ProfileFile, RefusesBadFiles)
{
    const std::string head = "x [um] z [um]\n";
    const std::pair<std::string, const char*> rows[] = {
        {"x y\n1 2\n", "a.sdf: not a surface"},
        {"x [V] y [A]\n1 2\n", "a.sdf: not a surface"},
        {"1.0 2.0\n3.0 4.0\n", "a.sdf: not a surface"},
        {"x [um] y [um] z [um]\n1 2 3\n", "a.sdf:1: more than two columns"},
        {head, "a.sdf:2: no values after the first line"},
        {head + "1 2", "a.sdf:2: a profile needs two points"},
        {head + "0 1\n1\n2 3\n", "a.sdf:3: a position and a height expected"},
        {head + "0 1\n1 2 3\n", "a.sdf:3: a number more than there are columns"},
        {head + "0 1\n1 x\n", "a.sdf:3: a finite number expected where 'x' stands"},
        {head + "0 1\nBAD 2\n", "a.sdf:3: a position is missing"},
        {head + "0 1\n1 inf\n", "a.sdf:3: a finite number expected"},
        {head + "0 1\n0 2\n", "a.sdf:4: the positions have to grow"},
        {head + "1 1\n0 2\n", "a.sdf:4: the positions have to grow"},
        {head + "0 1\n1e-13 2\n", "a.sdf:4: the positions have to grow"},
        {head + "0 1\n1 1\n2 1\n4 1\n", "a.sdf:6: the positions are not evenly spaced: point 2"},
        {head + "0 1\n1 1\n1 1\n3 1\n", "a.sdf:6: the positions are not evenly spaced: point 3"},
        {"x [um];z [um]\n0;1;\n", "a.sdf:2: a number more"},
    };
    for (const auto& [text, expected] : rows)
        ExpectRefused(text, expected);
}

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

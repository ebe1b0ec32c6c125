#include "formats/SurfaceWriter.h"

#include "tests/formats/SurfaceFile.h"

#include <cstring>
#include <limits>

using namespace CommonUI::Formats;
using CommonUI::Analysis::c_missing;
using CommonUI::Analysis::SSurface;

namespace
{

class SurfaceWriter : public SurfaceFile
{
};

// 2024-03-05 07:08:09
constexpr std::chrono::sys_seconds c_time(std::chrono::seconds(1709622489));

// Heights whose shortest texts have up to 17 digits.
std::vector<double> OddHeights(std::size_t count)
{
    std::vector<double> heights(count);
    for (std::size_t i = 0; i < count; ++i)
        heights[i] = std::sin(static_cast<double>(i)) * 1e-6 / 3;
    heights[count / 2] = c_missing;
    heights[0] = -0.0;
    heights[1] = 1e9;
    heights[2] = std::numeric_limits<double>::denorm_min();
    return heights;
}

} // namespace

TEST_F(SurfaceWriter, HeightsComeBackToTheBit)
{
    const SSurface surface{.points = 70,
                           .lines = 3,
                           .dx = 1e-6 / 3,
                           .dy = 2e-6 / 7,
                           .heights = OddHeights(210),
                           .missing = 1,
                           .channel = "H\u00F6he\n2"};
    SSurface profile = surface;
    profile.lines = 1;
    profile.points = 210;
    const struct {
        EFormat format;
        bool hasSpacing; // to the bit
        bool isForSurfaces;
    } rows[] = {{EFormat::Sdf, true, true},
                {EFormat::BinarySdf, true, true},
                {EFormat::X3p, true, true},
                {EFormat::Matrix, false, true},
                {EFormat::Profile, false, false}};
    for (const auto& row : rows) {
        if (row.format == EFormat::X3p && !HasX3p())
            continue;
        SCOPED_TRACE(static_cast<int>(row.format));
        for (const SSurface& written : {surface, profile}) {
            if (written.lines != 1 && !row.isForSurfaces)
                continue;
            const SSurface read = Read(WriteSurface(written, row.format, c_time));
            EXPECT_EQ(read.points, written.points);
            EXPECT_EQ(read.lines, written.lines);
            EXPECT_EQ(read.missing, 1u);
            const double tolerance = row.hasSpacing ? 0 : 1e-21;
            EXPECT_NEAR(read.dx, written.dx, tolerance);
            if (written.lines != 1) {
                EXPECT_NEAR(read.dy, written.dy, tolerance);
            }
            ASSERT_EQ(read.heights.size(), written.heights.size());
            EXPECT_EQ(std::memcmp(read.heights.data(), written.heights.data(), 210 * sizeof(double)), 0);
        }
    }
    EXPECT_EQ(Read(WriteSurface(surface, EFormat::Matrix, c_time)).channel, "H\u00F6he 2");
}

TEST_F(SurfaceWriter, TextsAreAsOthersReadThem)
{
    const SSurface surface{.points = 2, .lines = 1, .dx = 5e-7, .dy = 5e-7, .heights = {1e-9, c_missing}};
    EXPECT_EQ(WriteSurface(surface, EFormat::Sdf, c_time),
              "aISO-1.0\r\nManufacID = CommonUI\r\nCreateDate = 050320240708\r\nModDate = 050320240708\r\n"
              "NumPoints = 2\r\nNumProfiles = 1\r\nXscale = 5e-07\r\nYscale = 5e-07\r\nZscale = 1\r\n"
              "Zresolution = -1\r\nCompression = 0\r\nDataType = 7\r\nCheckType = 0\r\n*\r\n"
              "1e-09\r\nBAD\r\n*\r\n");
    EXPECT_EQ(WriteSurface(surface, EFormat::BinarySdf, c_time).substr(0, 42),
              "bISO-1.0CommonUI  050320240708050320240708");
    EXPECT_EQ(WriteSurface(surface, EFormat::Matrix, c_time),
              "# Width: 1e-06 m\n# Height: 5e-07 m\n# Value units: m\n1e-09\tNaN\n");
    EXPECT_EQ(WriteSurface(surface, EFormat::Profile, c_time), "x [m]\tz [m]\n0\t1e-09\n5e-07\tNaN\n");
}

TEST_F(SurfaceWriter, DateOfTheFileIsKept)
{
    // What the file states, and what is made of it.
    const std::pair<const char*, const char*> cases[] = {
        {"310520241430", "2024-05-31T14:30"},
        {"290220240000", "2024-02-29T00:00"},
        {"290220230000", ""},
        {"000000000000", ""},
        {"310520242430", ""},
        {"31.05.202414", ""},
        {"3105202414300", ""},
    };
    for (const auto& [stated, date] : cases) {
        const SSurface surface = Read("aISO-1.0\nCreateDate = " + std::string(stated) +
                                      "\nModDate = 010120250000\nNumPoints = 1\nNumProfiles = 1\nXscale = 1\n"
                                      "Yscale = 1\nZscale = 1\n*\n1\n*\n");
        EXPECT_EQ(surface.date, date) << stated;
        const std::string binary = WriteSurface(surface, EFormat::BinarySdf, c_time);
        EXPECT_EQ(binary.substr(18, 24), (*date ? stated : "050320240708") + std::string("050320240708"));
        EXPECT_EQ(Read(binary).date, *date ? date : "2024-03-05T07:08");
    }
}

TEST_F(SurfaceWriter, DateOfTheFileIsKeptByX3p)
{
    if (!HasX3p())
        GTEST_SKIP() << "built without X3P";
    const std::pair<const char*, const char*> cases[] = {
        {"2024-05-31T14:30", "2024-05-31T14:30:00"},
        {"2024-05-31T14:30+02:00", "2024-05-31T14:30:00+02:00"},
        {"2024-05-31T14:30:05.5Z", "2024-05-31T14:30:05.5Z"},
        {"31.05.2024 <", ""},
        {"", ""},
    };
    for (const auto& [stated, date] : cases) {
        SSurface surface{.points = 2, .lines = 1, .dx = 1e-6, .dy = 1e-6, .heights = {0, 1e-9}};
        surface.date = stated;
        EXPECT_EQ(Read(WriteSurface(surface, EFormat::X3p, {})).date, date) << stated;
    }
}

TEST_F(SurfaceWriter, RefusesWhatAFormatDoesNotHold)
{
    SSurface wide{.points = 65536, .lines = 1, .dx = 1, .dy = 1};
    wide.heights.resize(65536);
    SSurface tall{.points = 1, .lines = 2, .dx = 1, .dy = 1, .heights = {1, 2}};
    SSurface single{.points = 1, .lines = 1, .dx = 1, .dy = 1, .heights = {1}};
    EXPECT_THROW(WriteSurface(wide, EFormat::BinarySdf, c_time), EWriteError);
    EXPECT_THROW(WriteSurface(tall, EFormat::Profile, c_time), EWriteError);
    EXPECT_THROW(WriteSurface(single, EFormat::Profile, c_time), EWriteError);
    EXPECT_THROW(WriteSurface({}, EFormat::Sdf, c_time), EWriteError);
    if (!HasX3p()) {
        EXPECT_THROW(WriteSurface(single, EFormat::X3p, c_time), EWriteError);
    }
}

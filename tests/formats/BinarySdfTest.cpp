#include "tests/formats/SurfaceFile.h"

#include <cstdint>
#include <limits>

using namespace CommonUI::Formats;
using CommonUI::Analysis::c_missing;
using CommonUI::Analysis::SSurface;

namespace
{

class BinarySdf : public SurfaceFile
{
};

// The header of a file as the standard has it.
struct SHeader {
    std::string version = "bISO-1.0";
    std::uint16_t points = 3;
    std::uint16_t lines = 2;
    double dx = 1e-6;
    double dy = 2e-6;
    double scale = 1e-9;
    char compression = 0;
    char type = 7;
    char check = 0;

    std::string Get() const
    {
        return version + "a maker   " + "010220241530" + "010220241531" + Numbers({points, lines}) +
               Numbers({dx, dy, scale, -1.0}) + compression + type + check;
    }
};

// Six values of a type, of which the third is missing.
template<class T>
std::string Data(T missing)
{
    return Numbers<T>({1, 2, missing, 0, 100, 7});
}

} // namespace

TEST_F(BinarySdf, ReadsAllTypes)
{
    const std::string rows[] = {
        Data<std::uint8_t>(255),
        Data<std::uint16_t>(65535),
        Data<std::uint32_t>(4294967295u),
        Data<float>(std::numeric_limits<float>::quiet_NaN()),
        Data<std::int8_t>(-128),
        Data<std::int16_t>(-32768),
        Data<std::int32_t>(std::numeric_limits<std::int32_t>::min()),
        Data<double>(std::numeric_limits<double>::lowest()),
    };
    for (std::size_t type = 0; type < std::size(rows); ++type) {
        SCOPED_TRACE(type);
        const SHeader fields{.version = type % 2 ? "bISO-1.0" : "bBCR-1.0", .type = static_cast<char>(type)};
        const std::string header = fields.Get();
        ASSERT_EQ(header.size(), 81u);
        const SSurface surface = Read(header + rows[type] + "\r\n*\r\na trailer");
        ExpectThreeByTwo(surface, {1e-9, 2e-9, c_missing, 0, 1e-7, 7e-9});
    }
    EXPECT_EQ(Read(SHeader{.type = 5}.Get() + Numbers<std::int16_t>({-1, 0, 0, 0, 0, 0})).heights[0], -1e-9);
}

TEST_F(BinarySdf, ProfileNeedsNoSpacingOfLines)
{
    const SSurface profile = Read(SHeader{.lines = 1, .dy = 0}.Get() + Numbers({1.0, 2.0, 3.0}));
    EXPECT_EQ(profile.lines, 1u);
    EXPECT_EQ(profile.dy, profile.dx);
    const std::string text = "aISO-1.0\nYscale = 0\nXscale = 1e-6\nZscale = 1\nNumPoints = 2\nNumProfiles = ";
    EXPECT_EQ(Read(text + "1\n*\n1 2 *").dy, 1e-6);
    ExpectRefused(text + "2\n*\n1 2 3 4 *", "a.sdf:7: the header ends without Yscale above 0");
}

TEST_F(BinarySdf, RefusesBadFiles)
{
    constexpr double c_infinite = std::numeric_limits<double>::infinity();
    const std::string data = Numbers({1.0, 2.0, 3.0, 4.0, 5.0, 6.0});
    const std::string short80 = SHeader().Get().substr(0, 80);
    const std::pair<std::string, const char*> rows[] = {
        {"bISO-1.0", "a.sdf: the file ends within its header"},
        {short80, "a.sdf: the file ends within its header"},
        {SHeader{.version = "bISO-2.0"}.Get() + data, "a.sdf: not a surface"},
        {SHeader{.points = 0}.Get() + data, "a.sdf: byte 42: a number of points"},
        {SHeader{.lines = 0}.Get() + data, "a.sdf: byte 44: a number of points"},
        {SHeader{.points = 65535, .lines = 65535}.Get() + data,
         "a.sdf: 4294836225 values promised, only 6 found"},
        {SHeader().Get() + data.substr(1), "a.sdf: 6 values promised, only 5 found"},
        {SHeader{.dx = 0}.Get() + data, "a.sdf: byte 46: a scale"},
        {SHeader{.dx = c_missing}.Get() + data, "a.sdf: byte 46: a scale"},
        {SHeader{.dy = 0}.Get() + data, "a.sdf: byte 54: a scale"},
        {SHeader{.dy = -1e-6}.Get() + data, "a.sdf: byte 54: a scale"},
        {SHeader{.scale = c_infinite}.Get() + data, "a.sdf: byte 62: a scale"},
        {SHeader{.compression = 1}.Get() + data, "a.sdf: byte 78: compressed data"},
        {SHeader{.type = 8}.Get() + data, "a.sdf: byte 79: a data type"},
        {SHeader{.type = '\xFF'}.Get() + data, "a.sdf: byte 79: a data type from 0 to 7 expected, not 255"},
        {SHeader{.check = 1}.Get() + data, "a.sdf: byte 80: a check sum"},
        {SHeader().Get() + Numbers({1.0, 2.0, 3.0, c_infinite, 5.0, 6.0}), "a.sdf: byte 105: a height"},
        {SHeader{.scale = 1}.Get() + Numbers({1.0, 2e9, 3.0, 4.0, 5.0, 6.0}), "a.sdf: byte 89: a height"},
    };
    for (const auto& [bytes, expected] : rows)
        ExpectRefused(bytes, expected);
}

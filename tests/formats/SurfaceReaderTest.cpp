#include "formats/SurfaceReader.h"

#include "tests/formats/SurfaceFile.h"

#include <algorithm>

using namespace CommonUI::Formats;
using CommonUI::Analysis::c_missing;
using CommonUI::Analysis::SSurface;

namespace
{

const std::string c_sdf =
    "aISO-1.0\nNumPoints = 3\nNumProfiles = 2\nXscale = 1e-6\nYscale = 2e-6\nZscale = 1e-9\n*\n";
const std::string c_matrix = "# Channel: Z\n# Width: 3.00 um\n# Height: 2.00 um\n# Value units: nm\n";

class SurfaceReader : public SurfaceFile
{
};

} // namespace

TEST_F(SurfaceReader, ReadsSdf)
{
    const std::vector<double> heights = {1e-9, -2e-9, c_missing, 4.5e-9, 0, 6e-9};
    const std::string variants[] = {
        c_sdf + "1 -2 BAD\n4.5 0 6\n*\n",
        c_sdf + "1\n-2\nbad 4,5\t+0 6 *trailer = 12 * x",
        "\xEF\xBB\xBF" + c_sdf + "1 -2 NaN 4.5 0 6 *",
        "aISO-1.0\r\nManufacID = a*b = c\r\n\r\nnumpoints=3\r\nNUMPROFILES =2\r\nXscale=1E-6\r\nYscale = "
        "0.000002\r\nZscale= 1e-9\r\nCompression = 0\r\n*\r\n1 -2 BAD\r\n45e-1 -0 6\r\n*\r\n",
    };
    for (const std::string& text : variants) {
        const SSurface surface = Read(text);
        EXPECT_EQ(surface.points, 3u);
        EXPECT_EQ(surface.lines, 2u);
        EXPECT_EQ(surface.dx, 1e-6);
        EXPECT_EQ(surface.dy, 2e-6);
        EXPECT_EQ(surface.missing, 1u);
        EXPECT_EQ(surface.fileName, "a.sdf");
        ExpectHeights(surface, heights);
    }
}

TEST_F(SurfaceReader, ReadsMatrix)
{
    const SSurface surface = Read("# channel: Z\r\n#\r\n# Anything else\r\n# WIDTH: 6,00 \xB5m\r\n"
                                  "# Height: 8.0e-3mm\r\n# Value units: \xB5m\r\n"
                                  " 1,5e-003\t2 3 \r\n\r\nNaN -4 +5.25");
    EXPECT_EQ(surface.channel, "Z");
    EXPECT_EQ(surface.points, 3u);
    EXPECT_EQ(surface.lines, 2u);
    EXPECT_DOUBLE_EQ(surface.dx, 2e-6);
    EXPECT_DOUBLE_EQ(surface.dy, 4e-6);
    EXPECT_EQ(surface.missing, 1u);
    ExpectHeights(surface, {1.5e-9, 2e-6, 3e-6, c_missing, -4e-6, 5.25e-6});
}

TEST_F(SurfaceReader, TakesChannelForLatin1IfItIsNoUtf8)
{
    const std::pair<const char*, const char*> rows[] = {
        {"H\u00F6he \u20AC \U0001D11E", "H\u00F6he \u20AC \U0001D11E"},
        {"H\xF6he", "H\u00F6he"},
        {"\xC3", "\u00C3"},                               // cut off
        {"\xE0\x82\xB5", "\u00E0\u0082\u00B5"},           // longer than need be
        {"\xED\xA0\x80", "\u00ED\u00A0\u0080"},           // half a surrogate pair
        {"\xF4\x90\x80\x80", "\u00F4\u0090\u0080\u0080"}, // beyond Unicode
    };
    for (const auto& [bytes, text] : rows)
        EXPECT_EQ(Read(c_matrix + "# Channel: " + bytes + "\n1\n").channel, text);
}

TEST_F(SurfaceReader, KnowsUnits)
{
    const std::pair<const char*, double> rows[] = {
        {"m", 1},          {"mm", 1e-3},   {"\u00B5m", 1e-6}, {"\u03BCm", 1e-6},     {"\xB5m", 1e-6},
        {"um", 1e-6},      {"nm", 1e-9},   {"pm", 1e-12},     {"\u00C5", 1e-10},     {"\xC5", 1e-10},
        {"\u212B", 1e-10}, {"in", 0.0254}, {"mil", 25.4e-6},  {"\u00B5in", 25.4e-9},
    };
    for (const auto& [unit, metres] : rows) {
        const SSurface surface =
            Read(std::string("# Width: 1 ") + unit + "\n# Height: 1 m\n# Value units: " + unit + "\n3\n");
        EXPECT_DOUBLE_EQ(surface.dx, metres) << unit;
        EXPECT_DOUBLE_EQ(surface.heights[0], 3 * metres) << unit;
    }
}

TEST_F(SurfaceReader, RefusesBadFiles)
{
    const std::string sdf = "aISO-1.0\nNumPoints = ";
    const std::pair<std::string, const char*> rows[] = {
        {"", "a.sdf: the file is empty"},
        {std::string("\0\1\2", 3), "a.sdf: not a surface"},
        {"aISO-1.0\nNumPoints = 3\n", "a.sdf:3: the file ends within its header"},
        {c_sdf + "1 2 3\n4 5\n*\n", "a.sdf:10: 6 values promised, only 5 found"},
        {c_sdf + "1 2 3\n4 5 6\n7\n*\n", "a.sdf:10: 6 values promised, more found"},
        {c_sdf + "1 2 3\n4 5", "a.sdf:9: 6 values promised, only 5 found"},
        {c_sdf + "1 2 3\n4 5 6\n", "a.sdf:10: the '*' after the values is missing"},
        {c_sdf + "1 2 3\n4 x5 6\n*", "a.sdf:9: a finite number expected where 'x5' stands"},
        {c_sdf + "1 2 3\n4 5e 6\n*", "a.sdf:9: a finite number expected where '5e' stands"},
        {c_sdf + "1 inf 3\n4 5 6\n*", "a.sdf:8: a finite number expected where 'inf' stands"},
        {c_sdf + "1 1e999 3\n4 5 6\n*", "a.sdf:8: a finite number expected where '1e999' stands"},
        {c_sdf + "1 1e200 3\n4 5 6\n*", "a.sdf:8: a length of '1e200' times the scale is beyond 1e9 m"},
        {c_sdf + "0 1e-300 0 0 0 0\n*", "a.sdf: the heights differ by less than 1e-100 m"},
        {c_sdf + "1 1.2.3 1,2,3 4 5 6\n*", "a.sdf:8: a finite number expected where '1.2.3' stands"},
        {c_sdf + "1 " + std::string(1000, '\7'),
         "a.sdf:8: a finite number expected where '????????????????????????...'"},
        {sdf + "0\n", "a.sdf:2: a number of points"},
        {sdf + "99999999999\n", "a.sdf:2: a number of points"},
        {sdf + "4294967295\nNumProfiles = 4294967295\nXscale = 1\nYscale = 1\nZscale = 1\n*\n1 2 *",
         "a.sdf:8: 18446744065119617025 values promised, only 2 found"},
        {sdf + "3\nNumPoints = 3\n", "a.sdf:3: the second line for 'NumPoints'"},
        {sdf + "3\nhello\n", "a.sdf:3: 'Key = value'"},
        {sdf + "3\nNumProfiles = 2\nXscale = 1\nZscale = 1\n*\n1 2 3\n",
         "a.sdf:6: the header ends without Yscale"},
        {"aISO-1.0\nXscale = 0\n", "a.sdf:2: a scale"},
        {"aISO-1.0\nYscale = -1e-6\n", "a.sdf:2: a scale"},
        {"aISO-1.0\nZscale = NaN\n", "a.sdf:2: a scale"},
        {"aISO-1.0\nZscale = 1e-300\n", "a.sdf:2: a scale"},
        {"aISO-1.0\nCompression = 1\n", "a.sdf:2: compressed"},
        {c_matrix, "a.sdf:5: no values after the header"},
        {c_matrix + "1 2 3\n4 5\n6 7 8\n", "a.sdf:6: 2 values in a row, 3 in the first"},
        {c_matrix + "1 2 3\n\n4 5 6 7", "a.sdf:7: 4 values in a row, 3 in the first"},
        {c_matrix + "1 2 3\n4 # 6\n", "a.sdf:6: a finite number expected where '#' stands"},
        {"# Width: 1 m\n# Height: 1 m\n1 2\n", "a.sdf:3: the header ends without Value units"},
        {"# Width: 0 m\n", "a.sdf:1: a length from"},
        {"# Width: 1e300 m\n", "a.sdf:1: a length from"},
        {"# Width: wide\n", "a.sdf:1: a length such as"},
        {"# Width: 10.00\n", "a.sdf:1: a unit of length expected, not ''"},
        {"#\n# Value units: V\n", "a.sdf:2: a unit of length expected, not 'V'"},
    };
    for (const auto& [text, expected] : rows) {
        ExpectRefused(text, expected);
    }
    EXPECT_EQ(ReadBad(GetPath() / "none.sdf"), "none.sdf: no such file");
    EXPECT_EQ(ReadBad(GetPath() / u8"a\n\u007F\u009Bé.sdf"), "a???é.sdf: no such file");

    // A file with a hole, of more bytes than there is memory for, were it read before it is looked at.
    constexpr std::uintmax_t c_tooLarge = std::uintmax_t{1} << 43;
    m_folder.Write("a.sdf", "no surface");
    std::filesystem::resize_file(GetPath() / "a.sdf", c_tooLarge);
    EXPECT_TRUE(ReadBad(GetPath() / "a.sdf").starts_with("a.sdf: not a surface"));
// The sanitizers end a program that asks for so much.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    m_folder.Write("a.sdf", c_sdf);
    std::filesystem::resize_file(GetPath() / "a.sdf", c_tooLarge);
    EXPECT_EQ(ReadBad(GetPath() / "a.sdf"), "a.sdf: there is not enough memory for the file");
#endif
    EXPECT_EQ(ReadBad(GetPath()), GetPath().string() + ": not a file");
}

TEST_F(SurfaceReader, ReportsProgressAndCanBeCancelled)
{
    std::string text = c_matrix;
    for (int i = 0; i < 300000; ++i)
        text += "1.2345e-008\n";
    std::vector<double> fractions;
    Read(text, {.progress = [&](double fraction) { fractions.push_back(fraction); }});
    EXPECT_GE(fractions.size(), 4u);
    EXPECT_TRUE(std::is_sorted(fractions.begin(), fractions.end()));
    EXPECT_EQ(fractions.back(), 1);
    EXPECT_THROW(Read(text, {.progress = [](double) { throw 1; }}), int);
}

TEST_F(SurfaceReader, ReadsSurfaceWithoutValidPoint)
{
    EXPECT_EQ(Read(c_sdf + "BAD BAD BAD BAD BAD BAD *").missing, 6u);
}

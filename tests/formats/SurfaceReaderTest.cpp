#include "formats/SurfaceReader.h"

#include "tests/formats/SurfaceFile.h"
#include "tests/TestData.h"

using namespace CommonUI::Formats;
using CommonUI::Analysis::c_missing;
using CommonUI::Analysis::SSurface;

namespace
{

const std::string c_sdf =
    "aISO-1.0\nNumPoints = 3\nNumProfiles = 2\nXscale = 1e-6\nYscale = 2e-6\nZscale = 1e-9\n*\n";
const std::string c_matrix = "# Channel: Z\n# Width: 3.00 um\n# Height: 2.00 um\n# Value units: nm\n";

// The text with what its names of headers and its line ends stand for.
std::string Expand(std::string text)
{
    const std::pair<std::string, std::string> names[] = {
        {"{sdf}", c_sdf}, {"{matrix}", c_matrix}, {"{profile}", "x [um] z [um]\n"}, {"\\n", "\n"}};
    for (const auto& [name, meaning] : names)
        for (std::size_t at = text.find(name); at != text.npos; at = text.find(name, at))
            text.replace(at, name.size(), meaning);
    return text;
}

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
        EXPECT_EQ(surface.fileName, "a.sdf");
        ExpectThreeByTwo(surface, heights);
    }
    EXPECT_EQ(Read(c_sdf + "BAD BAD BAD BAD BAD BAD *").missing, 6u);
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

// A line of the record: the file, and how the message begins.
TEST_F(SurfaceReader, RefusesBadFiles)
{
    for (const std::string& row : ReadTestLines("refused-surface-files.txt")) {
        const std::vector<std::string> cells = SplitText(row, '|');
        ExpectRefused(Expand(cells[0]), cells[1]);
    }
    ExpectRefused(std::string("\0\1\2", 3), "a.sdf: not a surface");
    ExpectRefused(c_sdf + "1 " + std::string(1000, '\7'),
                  "a.sdf:8: a finite number expected where '????????????????????????...'");
    EXPECT_EQ(ReadBad(GetPath() / "none.sdf"), "none.sdf: no such file");
    EXPECT_EQ(ReadBad(GetPath() / u8"a\n\u007F\u009Bé.sdf"), "a???é.sdf: no such file");

#if !defined(_WIN32) // where a file has no holes unless it is asked for
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
#endif
    EXPECT_EQ(ReadBad(GetPath()), GetPath().string() + ": not a file");
}

TEST_F(SurfaceReader, ReportsProgressAndCanBeCancelled)
{
    std::string text = c_matrix;
    for (int i = 0; i < 300000; ++i)
        text += "1.2345e-008\n";
    ExpectProgress(text, 4);
}

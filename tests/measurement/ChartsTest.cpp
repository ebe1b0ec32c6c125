#include "analysis/areal/ArealParameters.h"
#include "measurement/charts/Curve.h"
#include "measurement/charts/GrainOutlines.h"
#include "measurement/charts/HeightCharts.h"
#include "measurement/charts/Plot.h"
#include "measurement/charts/PngText.h"
#include "measurement/charts/ProfileChart.h"
#include "measurement/charts/SpectrumChart.h"
#include "measurement/charts/SurfaceMap.h"

#include "tests/analysis/TestSurfaces.h"
#include "tests/TestData.h"

using namespace CommonUI;
using namespace CommonUI::Measurement;
using Analysis::CMaterialRatio;
using Analysis::EGrainKind;
using Analysis::Get;
using Analysis::MakeSurface;
using Analysis::SSurface;

namespace
{

constexpr double c_gap = Analysis::c_missing;

std::size_t Count(std::string_view text, std::string_view part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

// A surface of some lines of digits, each a height in m; "." is missing.
SSurface SurfaceOf(const std::vector<std::string>& lines)
{
    return MakeSurface(lines[0].size(), lines.size(), [&](double x, double y) {
        const char digit = lines[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
        return digit == '.' ? c_gap : digit - '0';
    });
}

} // namespace

TEST(Svg, WritesCoordinatesShortAndTextsWithoutMarkup)
{
    const std::pair<double, const char*> numbers[]{{12, "12"},   {0.5, "0.5"},  {-3.254, "-3.25"},
                                                   {100, "100"}, {-0.001, "0"}, {1e300, "100000"},
                                                   {c_gap, "0"}};
    for (const auto& [value, text] : numbers)
        EXPECT_EQ(CoordinateText(value), text);
    const std::pair<std::string, const char*> texts[]{
        {"plain µ", "plain µ"},
        {"<b>&\"x\"", "&lt;b&gt;&amp;&quot;x&quot;"},
        {"a\x1B\n\xC2\x9B!", "a   !"},
        {"\xFF\xEF\xBF\xBF", "\xEF\xBF\xBD\xEF\xBF\xBD"},
    };
    for (const auto& [text, escaped] : texts)
        EXPECT_EQ(EscapeXml(text), escaped);
    CSvg svg(10, 2.5, u"</svg><script>", u"d");
    svg.Open("g", {{"class", "\"><"}});
    EXPECT_EQ(svg.Finish(),
              "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"chart\" viewBox=\"0 0 10 2.5\" "
              "width=\"100%\" role=\"img\">\n<title>&lt;/svg&gt;&lt;script&gt;</title>\n"
              "<desc>d</desc>\n<g class=\"&quot;&gt;&lt;\">\n</g>\n</svg>\n");
}

TEST(Plot, PlacesPointsAndInterruptsTheCurveAtGaps)
{
    const SPlot plot{.x = {.range = {0, 4}, .from = 100, .to = 300},
                     .y = {.range = {1, 100}, .from = 200, .to = 0, .isLogarithmic = true}};
    CSvg svg(1, 1, u"", u"");
    DrawCurve(svg, plot, {{0, 1}, {1, 10}, {2, c_gap}, {3, 100}, {4, c_gap}}, "curve");
    EXPECT_TRUE(Has(svg.Finish(), "d=\"M100 200L150 100M250 0L250 0\"")) << "a lone point is a dot";
}

TEST(Plot, FlatRangesHaveRoom)
{
    for (const double height : {0.0, 1e-100, -1e90, 3.0}) {
        const CRange<double> room = MakeRoom({height, height});
        EXPECT_TRUE(room.GetLower() < height && height < room.GetUpper()) << height;
    }
    EXPECT_EQ(MakeRoom({1, 1.001}), CRange<double>(1, 1.001));
}

TEST(Plot, MarksBelowHaveRoomForTheirTexts)
{
    const CRange<double> rows[]{{0, 60e-6}, {1, 1 + 1e-6}, {-3e-9, 8e-4}, {1e-100, 2e-100}};
    for (const CRange<double>& range : rows) {
        for (const double room : {200.0, 600.0}) {
            const SAxis axis = MakeAxisBelow(range, room, 8);
            EXPECT_LE(static_cast<double>(axis.ticks.size()) * LabelWidth(axis), room);
            EXPECT_FALSE(axis.ticks.empty()) << range.GetLower() << ' ' << room;
        }
    }
}

TEST(Curve, LongProfileKeepsSpikesAndGaps)
{
    std::vector<double> heights(1'000'000, 1);
    heights[500'123] = 9;
    heights[500'124] = -9;
    std::fill_n(heights.begin() + 200'000, 100'000, c_gap);
    const std::vector<SSample> samples = ThinOut(heights, 500);
    EXPECT_LE(samples.size(), 1000u);
    const auto [low, high] = std::ranges::minmax_element(
        samples, {}, [](const SSample& sample) { return std::isnan(sample.height) ? 0 : sample.height; });
    EXPECT_EQ(low->index, 500'124u);
    EXPECT_EQ(high->index, 500'123u);
    EXPECT_TRUE(std::ranges::is_sorted(samples, {}, &SSample::index));
    EXPECT_EQ(std::ranges::count_if(samples, [](const SSample& s) { return std::isnan(s.height); }), 50);
    EXPECT_EQ(ThinOut(std::span(heights).first(1000), 500).size(), 1000u);
}

TEST(MaterialRatioChart, MarksAreTheParametersOfTheSurface)
{
    std::uint32_t state = 1;
    const SSurface surface = MakeSurface(50, 40, [&](double x, double) {
        state = state * 1664525u + 1013904223u;
        return 1e-6 * static_cast<double>(state >> 8) / (1 << 24) + (x > 45 ? 8e-7 : 0) - (x < 3 ? 3e-6 : 0);
    });
    const auto parameters = Analysis::ComputeAreal(surface);
    const std::string svg = DrawMaterialRatio(CMaterialRatio(surface.heights));
    for (const char* const key : {"Sk", "Spk", "Svk"}) {
        const CStr text = CStr::FromUtf8(key) + u" " + LengthText(Get(parameters, key));
        EXPECT_TRUE(Has(svg, ">" + text.ToUtf8() + "</text>")) << text.ToUtf8();
    }
    // The straight line goes from one side of the frame to the other; its dashed ends lie where peaks end and
    // dales begin.
    const auto attribute = [&](std::string_view tag, std::string_view name) {
        const std::size_t at = svg.find(name, svg.find(tag)) + name.size() + 2;
        return std::stod(svg.substr(at));
    };
    const double left = attribute("<rect class=\"axis\"", " x");
    const double width = attribute("<rect class=\"axis\"", " width");
    for (const char* const key : {"Smr1", "Smr2"}) {
        const double x = left + width * Get(parameters, key) / 100;
        const std::string line = "x1=\"" + CoordinateText(x) + "\"";
        EXPECT_TRUE(Has(svg, line)) << line;
    }
    EXPECT_FALSE(Has(DrawMaterialRatio(CMaterialRatio(std::vector<double>{1, 2, 3})), "Sk"));
}

TEST(Histogram, BarsAreSharesOfThePoints)
{
    // Seven classes of 1 m: three, none ... and one of the points; the axis reaches to 75 % and a little.
    const std::string svg = DrawHistogram(CMaterialRatio(std::vector<double>{0, 0, 0.5, 7}), 3);
    const std::size_t at = svg.find("class=\"area\"");
    EXPECT_EQ(Count(std::string_view(svg).substr(at, svg.find("/>", at) - at), "L"), 15u);
    EXPECT_TRUE(Has(svg, ">threshold</text>"));
    EXPECT_FALSE(Has(DrawHistogram(CMaterialRatio(std::vector<double>{0, 7}), 8), ">threshold</text>"));
}

TEST(ProfileChart, HasSamplingLengthsWhereItIsFiltered)
{
    std::vector<double> heights;
    for (int i = 0; i < 500; ++i)
        heights.push_back(1e-9 * std::sin(i));
    const std::string filtered = DrawProfile(heights, 1e-6, 100e-6);
    EXPECT_TRUE(Has(filtered, ">λc 100 µm</text>"));
    EXPECT_EQ(Count(filtered, "class=\"mark\""), 6u) << "borders of five sampling lengths";
    for (const char* const curve : {"\"curve\"", "\"second\"", "\"third\""})
        EXPECT_EQ(Count(filtered, curve), 1u);
    EXPECT_FALSE(Has(DrawProfile(heights, 1e-6, 1e-6), "roughness"));
    EXPECT_EQ(DrawProfile(std::vector<double>(9, c_gap), 1e-6, 1), "");
}

TEST(GrainOutlines, GoAroundGrainsAndTheirHoles)
{
    // The last line of the surface is the first of the picture.
    const std::pair<std::vector<std::string>, const char*> rows[]{
        {{"010", "000"}, "M1 2h1v-1h-1v1z"},
        {{"111", "101", "111"}, "M0 3h3v-3h-3v3zM1 1h1v1h-1v-1z"},
        {{"10", "01"}, "M0 2h1v-1h-1v1zM1 1h1v-1h-1v1z"}, // cells that meet in a corner
        {{"11", "10"}, "M0 2h2v-1h-1v-1h-1v2z"},
        {{"..", "00"}, ""},
    };
    for (const auto& [lines, path] : rows) {
        const auto map = Analysis::FindGrains(SurfaceOf(lines), 0.5, EGrainKind::Particle);
        EXPECT_EQ(MakeGrainOutlines(map, 9).path, path);
    }
}

TEST(GrainOutlines, OfManyPointsHaveFewerCells)
{
    const SSurface half = MakeSurface(1024, 600, [](double x, double) { return x < 512 ? 1 : 0; });
    const SGrainOutlines outlines =
        MakeGrainOutlines(Analysis::FindGrains(half, 0.5, EGrainKind::Particle), 9);
    EXPECT_EQ(outlines.columns, 512u);
    EXPECT_EQ(outlines.rows, 512u);
    EXPECT_EQ(outlines.path, "M0 512h256v-512h-256v512z");
    EXPECT_NEAR(outlines.numbers.at(0).x, 128, 0.5);
}

TEST(GrainOutlines, NumbersAreThoseOfTheLargestAndLieInThem)
{
    const auto map =
        Analysis::FindGrains(SurfaceOf({"1011111", "0010001", "1010001"}), 0.5, EGrainKind::Particle);
    const SGrainOutlines outlines = MakeGrainOutlines(map, 2);
    ASSERT_EQ(outlines.numbers.size(), 2u);
    EXPECT_EQ(outlines.numbers[0].label, 2u);
    EXPECT_EQ(outlines.numbers[0].y, 2.5) << "not in the middle between its legs";
    EXPECT_EQ(outlines.numbers[1].label, 1u);
    EXPECT_EQ(outlines.numbers[1].x, 0.5);
}

TEST(GrainOutlines, AreBoundedForAnyPattern)
{
    for (const std::size_t size : {700u, 1000u}) {
        const SSurface checkered =
            MakeSurface(size, size, [](double x, double y) { return std::fmod(x + y, 2); });
        const auto map = Analysis::FindGrains(checkered, 0.5, EGrainKind::Particle);
        EXPECT_LT(MakeGrainOutlines(map, 9).path.size(), 600'000u) << size;
    }
}

TEST(PngText, DataAreInBase64)
{
    const std::pair<std::string, const char*> rows[]{
        {"", ""}, {"f", "Zg=="}, {"fo", "Zm8="}, {"foo", "Zm9v"}, {"\xFF\xFE\xFD\x01", "//79AQ=="}};
    for (const auto& [bytes, text] : rows)
        EXPECT_EQ(DataUri("a/b", bytes), std::string("data:a/b;base64,") + text);
}

TEST(SurfaceMap, HasARasterOfBoundedSizeAndHatchesWhatIsMissing)
{
    const auto scale = GetBuiltInColorScale(EBuiltInSetting::CSQuickLaunchDefault2D);
    const std::string whole =
        DrawSurfaceMap(MakeSurface(2000, 900, [](double x, double) { return x; }), scale);
    if (MakePng({.width = 1, .height = 1, .colors = {{}}, .numbers = {1}}).empty())
        GTEST_SKIP() << "built without libpng";
    const std::string png = "href=\"data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAA";
    EXPECT_TRUE(Has(whole, png + "AgAAAAIA")) << "512 by 512";
    EXPECT_FALSE(Has(whole, "L0 0"));
    const SSurface gap = SurfaceOf({"123", "4.6"});
    const std::string holed = DrawSurfaceMap(gap, scale);
    EXPECT_TRUE(Has(holed, png + "AAMAAAAC")) << "3 by 2";
    EXPECT_GT(Count(holed, "<svg"), Count(whole, "<svg"));
    EXPECT_EQ(DrawSurfaceMap(SurfaceOf({".."}), scale), "");
}

TEST(SurfaceMap, HasTheLastLineAtTheTopInTheColoursOfItsHeights)
{
    SIndexedPicture expected{.width = 3, .height = 2, .numbers = {128, 0, 255, 1, 52, 103}};
    const SColorScale scale = GetBuiltInColorScale(EBuiltInSetting::CSQuickLaunchGrey);
    expected.colors = scale.MakeTable(255);
    if (MakePng(expected).empty())
        GTEST_SKIP() << "built without libpng";
    const std::string svg =
        DrawSurfaceMap(MakeSurface(3, 2,
                                   [](double x, double y) {
                                       return y == 0 ? x / 5 : x == 0 ? 0.5 : x == 1 ? c_gap : 1;
                                   }),
                       scale);
    EXPECT_TRUE(Has(svg, DataUri("image/png", MakePng(expected))));
    // Twice as high as wide, and both axes begin at the corner.
    const std::string high =
        DrawSurfaceMap(MakeSurface(50, 100, [](double x, double y) { return x * y; }), scale);
    EXPECT_TRUE(Has(high, "width=\"220\" height=\"440\" preserveAspectRatio=\"none\""));
}

TEST(SpectrumChart, IsLogarithmicAndLeavesOutWhatIsRounding)
{
    // Three decades of frequency, equally far apart; the second power is lost.
    const std::string svg = DrawSpectrum({{1e3, 1e-20}, {1e4, 1e-40}, {1e5, 1e-20}, {1e6, 1e-22}});
    const std::size_t at = svg.find("d=\"M") + 4;
    double x[3]{};
    double y[3]{};
    ASSERT_EQ(std::sscanf(svg.c_str() + at, "%lf %lfL%*f %*fM%lf %lfL%lf %lf", &x[0], &y[0], &x[1], &y[1],
                          &x[2], &y[2]),
              6)
        << svg.substr(at, 100);
    EXPECT_NEAR(x[1] - x[0], 2 * (x[2] - x[1]), 0.02);
    EXPECT_EQ(y[0], y[1]);
    EXPECT_GT(y[2], y[1]);
    EXPECT_TRUE(Has(svg, ">frequency / µm⁻¹</text>") || Has(svg, ">frequency / mm⁻¹</text>"));
    EXPECT_EQ(DrawSpectrum({{1e3, 1}}), "");
}

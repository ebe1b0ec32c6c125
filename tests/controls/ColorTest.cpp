#include "controls/color/ColorPicker.h"
#include "controls/color/Contrast.h"
#include "controls/color/InterfaceColors.h"
#include "controls/color/MarkerPicker.h"
#include "controls/color/NamedColors.h"
#include "platform/memory/MemorySystemColors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace CommonUI;

namespace
{

// Counts what an object calls.
class CCounter
{
public:
    void OnPaint(const SPaint& paint) { ++calls, last = FormatPaint(paint); }
    void OnMarker(const SMarker& marker) { ++calls, last = DescribeMarker(marker); }
    void OnChanged() { ++calls; }

    int calls = 0;
    CStr last{};
    CClosureConnection connection{};
};

std::vector<CStr> GetTexts(const std::vector<SPaint>& paints)
{
    std::vector<CStr> texts;
    std::ranges::transform(paints, std::back_inserter(texts), FormatPaint);
    return texts;
}

} // namespace

TEST(Paint, ReadsWhatPeopleWrite)
{
    const struct {
        const char16_t* text;
        const char16_t* paint; // null for what is refused
        const char16_t* name;
    } rows[] = {
        {u"#1a2B3c", u"#1a2b3c", u"#1a2b3c"},
        {u" 1a2b3c ", u"#1a2b3c", u"#1a2b3c"},
        {u"#f80", u"#ff8800", u"#ff8800"},
        {u"#ff000080", u"#ff000080", u"Red, 50 %"},
        {u"#ff0000ff", u"#ff0000", u"Red"},
        {u"255, 128,0", u"#ff8000", u"#ff8000"},
        {u"SKYBLUE", u"#87ceeb", u"Sky Blue"},
        {u"sky blue", u"#87ceeb", u"Sky Blue"},
        {u"", nullptr, nullptr},
        {u"#", nullptr, nullptr},
        {u"#12345", nullptr, nullptr},
        {u"#12g456", nullptr, nullptr},
        {u"#red", nullptr, nullptr},
        {u"1,2", nullptr, nullptr},
        {u"1,2,256", nullptr, nullptr},
        {u"1,,3", nullptr, nullptr},
        {u"99999999999,1,1", nullptr, nullptr},
    };
    for (const auto& row : rows) {
        SPaint paint{{1, 2, 3}};
        EXPECT_EQ(ParsePaint(row.text, paint), row.paint != nullptr) << CStr(row.text).ToUtf8();
        EXPECT_EQ(FormatPaint(paint), row.paint ? row.paint : u"#010203");
        EXPECT_EQ(DescribePaint(paint), row.name ? row.name : u"#010203");
    }
    for (int percent = 0; percent <= 100; ++percent)
        EXPECT_EQ(GetOpacityPercent(WithOpacityPercent({}, percent)), percent);
}

TEST(Contrast, IsThatOfTheStandard)
{
    // By the definition, for colours whose contrast with white is well known.
    EXPECT_NEAR(GetContrast({0, 0, 0}, {255, 255, 255}), 21, 1e-9);
    EXPECT_NEAR(GetContrast({255, 255, 255}, {0x76, 0x76, 0x76}), 4.54, 0.005);
    EXPECT_NEAR(GetContrast({255, 0, 0}, {255, 255, 255}), 3.998, 0.001);
    EXPECT_EQ(MakeReadable({0x70, 0x70, 0x70}, {255, 255, 255}), (SColor{0x70, 0x70, 0x70})) << "as it is";
    for (int grey = 0; grey < 256; ++grey) {
        const auto part = static_cast<std::uint8_t>(grey);
        const SColor ground{part, part, part};
        EXPECT_GE(GetContrast(MakeReadable({200, 40, 40}, ground), ground), c_textContrast) << grey;
    }
}

TEST(NamedColors, HaveNamesOfTheirOwn)
{
    std::vector<CStr> names;
    for (const SNamedColor& color : GetNamedColors())
        names.push_back(GetColorName(color.color));
    std::ranges::sort(names);
    EXPECT_EQ(std::ranges::adjacent_find(names), names.end());
    EXPECT_FALSE(names.front().IsEmpty());
}

TEST(ColorPicker, TellsWhatTheUserChooses)
{
    CRecentColors recent;
    CColorPicker picker(&recent);
    CCounter counter;
    picker.SetCallback(counter, &CCounter::OnPaint);
    picker.SetPaint({{9, 9, 9}});
    EXPECT_EQ(counter.calls, 0) << "the program's doing";
    EXPECT_TRUE(picker.Enter(u"#11223344"));
    EXPECT_EQ(counter.last, u"#112233") << "opacity is not allowed";
    EXPECT_FALSE(picker.Enter(u"nothing"));
    picker.AllowOpacity(true);
    picker.ChooseOpacity(50);
    EXPECT_EQ(counter.last, u"#11223380");
    picker.PickColor({0, 0, 255});
    EXPECT_EQ(counter.last, u"#0000ff80");
    picker.Choose(picker.GetPaint());
    EXPECT_EQ(counter.calls, 3) << "the same is no change";
    EXPECT_EQ(GetTexts(recent.GetAll()), (std::vector<CStr>{u"#0000ff80", u"#112233"}));
    picker.AllowOpacity(false);
    EXPECT_EQ(FormatPaint(picker.GetPaint()), u"#0000ff");
}

TEST(ColorPicker, KeepsRecentColorsInAFile)
{
    CRecentColors recent;
    for (std::uint8_t i = 0; i < 12; ++i)
        recent.Add({{i, 0, 0}});
    recent.Add({{5, 0, 0}, 255});
    CInifile file;
    recent.Save(file, u"Recent");
    CRecentColors loaded;
    loaded.Load(file, u"Recent");
    EXPECT_EQ(GetTexts(loaded.GetAll()), (std::vector<CStr>{u"#050000", u"#0b0000", u"#0a0000", u"#090000",
                                                            u"#080000", u"#070000", u"#060000", u"#040000"}));
    file.WriteTexts(u"Recent", {u"#0b0000", u"broken", u"#0B0000", u"red"});
    loaded.Load(file, u"Recent");
    EXPECT_EQ(GetTexts(loaded.GetAll()), (std::vector<CStr>{u"#0b0000", u"#ff0000"}));
}

TEST(MarkerPicker, JoinsShapeColorAndSize)
{
    CMarkerPicker picker;
    CCounter counter;
    picker.SetCallback(counter, &CCounter::OnMarker);
    picker.ChooseShape(EMarkerShape::Diamond);
    picker.GetColorPicker().PickColor({255, 0, 0});
    picker.ChooseSize(1000);
    EXPECT_EQ(counter.last, u"Diamond, Red, 32 pt");
    picker.ChooseSize(33);
    picker.ChooseFilled(true);
    EXPECT_EQ(counter.calls, 3) << "what is so already is no change";
    picker.SetMarker({.shape = EMarkerShape::Plus, .paint = {{0, 0, 255}}, .size = 0, .filled = false});
    EXPECT_EQ(counter.calls, 3);
    EXPECT_EQ(DescribeMarker(picker.GetMarker()), u"Plus, Blue, 3 pt");
    EXPECT_EQ(FormatPaint(picker.GetColorPicker().GetPaint()), u"#0000ff");
}

TEST(Marker, FillsItsSquare)
{
    for (const auto& value : GetMarkerShapeEnum()) {
        const auto shape = static_cast<EMarkerShape>(value.GetValue());
        double reach = 0;
        for (const SMarkerPath& path : GetMarkerPaths(shape)) {
            EXPECT_EQ(path.closed, CanFillMarker(shape));
            for (const auto& [x, y] : path.points)
                reach = std::max({reach, std::abs(x), std::abs(y)});
        }
        EXPECT_LE(reach, 1 + 1e-12);
        EXPECT_GE(reach, shape == EMarkerShape::None ? 0 : 0.4) << value.GetIniName().ToUtf8();
    }
}

TEST(InterfaceColors, StandOutWhateverTheAccent)
{
    const SColor accents[] = {{0, 0, 0},     {255, 255, 255}, {128, 128, 128},
                              {255, 255, 0}, {0, 0, 128},     {255, 0, 0}};
    for (const auto scheme : {EColorScheme::Light, EColorScheme::Dark, EColorScheme::HighContrast})
        for (const SColor& accent : accents) {
            const CInterfaceColorTable table = MakeInterfaceColors(scheme, accent);
            for (const auto& [mark, ground, contrast] : GetInterfaceContrasts())
                EXPECT_GE(GetContrast(table[static_cast<std::size_t>(mark)],
                                      table[static_cast<std::size_t>(ground)]),
                          contrast)
                    << static_cast<int>(scheme) << FormatPaint({accent}).ToUtf8() << static_cast<int>(mark);
        }
}

TEST(InterfaceColors, FollowTheDesktopUntilTheUserChooses)
{
    CMemorySystemColors system;
    const CServiceScope<CSystemColors> scope(system);
    CCounter counter;
    CInterfaceColors colors;
    colors.GetChanged().Subscribe(counter, &CCounter::OnChanged, counter.connection);
    using enum EInterfaceColor;
    const SColor light = colors.Get(Window);
    system.Set({.scheme = EColorScheme::Dark});
    EXPECT_EQ(colors.GetScheme(), EColorScheme::Dark);
    EXPECT_LT(GetLuminance(colors.Get(Window)), GetLuminance(light));
    system.Set({.scheme = EColorScheme::Dark});
    EXPECT_EQ(counter.calls, 1) << "the same is no change";
    const SHighContrastColors theirs{.ground = {255, 255, 255}, .text = {0, 0, 0}};
    system.Set({.scheme = EColorScheme::HighContrast, .highContrast = theirs});
    EXPECT_EQ(colors.Get(Field), theirs.ground);
    EXPECT_EQ(colors.Get(DimText), theirs.text) << "nothing of the library's own";
    colors.SetChoice(EInterfaceScheme::Light);
    colors.SetAccent(SColor{200, 0, 0});
    EXPECT_EQ(colors.Get(Window), light);
    EXPECT_EQ(colors.Get(Selection), (SColor{200, 0, 0}));
    system.Set({.scheme = EColorScheme::Dark});
    EXPECT_EQ(colors.Get(Window), light) << "the user has chosen";
    EXPECT_EQ(counter.calls, 4);
}

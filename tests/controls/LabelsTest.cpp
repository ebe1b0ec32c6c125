#include "controls/labels/Elision.h"
#include "controls/labels/FontFit.h"
#include "controls/labels/ToolTip.h"

#include <gtest/gtest.h>

#include <string>

using namespace CommonUI;

namespace
{

// Every code unit is as wide as any other.
double Count(std::u16string_view text)
{
    return static_cast<double>(text.size());
}

} // namespace

TEST(Elision, LeavesOutWhatTellsLeast)
{
    using enum EElision;
    const struct {
        const char16_t* text;
        double room;
        EElision elision;
        const char16_t* shown;
    } rows[] = {
        {u"Surface", 7, Right, u"Surface"},
        {u"Surface", 6, Right, u"Surfa\u2026"},
        {u"Surface", 1, Right, u"\u2026"},
        {u"Surface", 0, Right, u"\u2026"},
        {u"Surface", 6, Middle, u"Sur\u2026ce"},
        {u"Surface", 2, Middle, u"S\u2026"},
        {u"a\U0001F600b", 3, Right, u"a\u2026"},
        {u"ae\u0301xyz", 3, Right, u"a\u2026"},
        {u"abcde\u0301", 4, Middle, u"a\u2026e\u0301"},
        {u"/data/steel/2024/scan.sdf", 25, Path, u"/data/steel/2024/scan.sdf"},
        {u"/data/steel/2024/scan.sdf", 24, Path, u"/data/\u2026/2024/scan.sdf"},
        {u"/data/steel/2024/scan.sdf", 20, Path, u"/data/\u2026/scan.sdf"},
        {u"/data/steel/2024/scan.sdf", 12, Path, u"\u2026/scan.sdf"},
        {u"/data/steel/2024/scan.sdf", 8, Path, u"scan\u2026sdf"},
        {u"C:\\data\\steel\\scan.sdf", 16, Path, u"C:\\\u2026\\scan.sdf"},
        {u"scan.sdf", 6, Path, u"sca\u2026df"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ElideText(row.text, row.room, row.elision, Count), row.shown)
            << CStr(row.text).ToUtf8() << ' ' << row.room;
}

TEST(Elision, NeverCutsANumber)
{
    const SValueText value{u"Height", u"35.2", u"nm"};
    std::string shown;
    for (int room = 16; room >= 0; --room)
        shown += ElideValue(value, room, Count).Replace(u"\u00A0", u"_").ToUtf8() + '|';
    EXPECT_EQ(shown,
              "Height: 35.2_nm|Height: 35.2_nm|Heig\u2026: 35.2_nm|Hei\u2026: 35.2_nm|He\u2026: 35.2_nm|"
              "H\u2026: 35.2_nm|35.2_nm|35.2_nm|35.2_nm|35.2_nm|"
              "\u2026|\u2026|\u2026|\u2026|\u2026|\u2026|\u2026|");
    EXPECT_EQ(ElideValue({{}, u"7", {}}, 1, Count), u"7");
}

TEST(FontFit, IsTheLargestThatHasRoom)
{
    // A text of ten letters, each half as wide as the font is high.
    const auto measure = [](double size) {
        return SSize{static_cast<int>(5 * size), static_cast<int>(size)};
    };
    const struct {
        SSize room;
        double size;
    } rows[] = {
        {{100, 100}, 20}, {{103, 100}, 20.5}, {{1000, 30}, 30.5},
        {{10, 10}, 6},    {{9999, 9999}, 96}, {{0, 0}, 6},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FitFont(row.room, {}, measure), row.size) << row.room.cx;
    EXPECT_EQ(FitFont({100, 100}, {10, 9, 1}, measure), 10) << "a range of one size";
}

TEST(ToolTip, TellsWhatThereIs)
{
    const SToolTip whole{u"Sq",    u"Root Mean Square Height", u"a < b & c\nmore", u"nm", u"ISO 25178-2",
                         u"Ctrl+Q"};
    EXPECT_EQ(MakeToolTipHtml(whole),
              u"<p><b>Sq \u2013 Root Mean Square Height</b></p><p>a &lt; b &amp; c</p><p>more</p>"
              u"<table><tr><td>Unit:</td><td>nm</td></tr><tr><td>Standard:</td><td>ISO 25178-2</td></tr>"
              u"<tr><td>Keys:</td><td>Ctrl+Q</td></tr></table>");
    EXPECT_EQ(MakeToolTipText(whole), u"Sq \u2013 Root Mean Square Height\na < b & c\nmore\nUnit: nm\n"
                                      u"Standard: ISO 25178-2\nKeys: Ctrl+Q");
    EXPECT_EQ(MakeToolTipHtml({.symbol = u"<Sq>"}), u"<p><b>&lt;Sq&gt;</b></p>");
    EXPECT_EQ(MakeToolTipText({.unit = u"nm"}), u"Unit: nm");
    EXPECT_EQ(MakeToolTipHtml({}), u"");
}

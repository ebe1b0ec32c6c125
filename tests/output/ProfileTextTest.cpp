#include "output/results/ProfileText.h"
#include "output/results/GridCopy.h"
#include "platform/memory/MemoryClipboard.h"
#include "tests/output/TestTables.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

namespace CommonUI
{

namespace
{

constexpr SNumberProfile c_local{ENumberProfile::Spreadsheet, u';', u','};
constexpr SNumberProfile c_machine{ENumberProfile::Machine, u','};

// A parameter and a remark of two files, of which one has no value.
CGrid Files()
{
    CGrid grid(SCell::Results);
    grid.SetNameHeader(u"File");
    grid.AddColumn({.header = u"Ra\r\nVORN", .group = {}, .exactHeader = u"4287Ra"});
    grid.AddColumn({.header = u"Remark", .group = {}});
    grid.AddRow({.name = u"Unit", .cells = {u"nm", u""}, .subHeader = true, .exactTexts = {{1, u"m"}}});
    constexpr double c_none = std::numeric_limits<double>::quiet_NaN();
    grid.AddRow({.name = u"=a;b", .cells = {u"-1.5", u""}, .values = {-1.5e-9 / 3, c_none}});
    grid.AddRow(
        {.name = u"c", .cells = {u"", u"\"+\""}, .values = {c_none, c_none}, .exactTexts = {{0, u"key"}}});
    return grid;
}

} // namespace

TEST(ProfileText, OnlyTextsAreKeptFromBeingFormulas)
{
    const std::tuple<const char16_t*, std::uint32_t, const char16_t*> cases[] = {
        {u"-1.5", 0, u"-1,5"},
        {u"+1.5E-6", 0, u"+1,5E-6"},
        {u"12", 0, u"12"},
        {u"1.5", SCell::RowHeader, u"1.5"},
        {u"1.5", SCell::SubHeader, u"1.5"},
        {u"1.5 nm", 0, u"1.5 nm"},
        {u"", 0, u""},
        {u"=1+1", 0, u"'=1+1"},
        {u"=1+1", SCell::RowHeader, u"'=1+1"},
        {u"+1-1", SCell::ColumnHeader, u"'+1-1"},
        {u"-cmd|' /C calc'!A0", 0, u"'-cmd|' /C calc'!A0"},
        {u"@SUM(1)", 0, u"'@SUM(1)"},
        {u"  =1+1", 0, u"'  =1+1"},
        {u"\t=1", 0, u"'\t=1"},
        {u"\uFF1D1", 0, u"'\uFF1D1"},
        {u"-INF", 0, u"'-INF"},
        {u"a=b", 0, u"a=b"},
        {u"a;b", 0, u"\"a;b\""},
        {u"5\" disk", 0, u"\"5\"\" disk\""},
        {u"R\r\nq", 0, u"R q"},
        {u"a\nb", 0, u"\"a\nb\""},
    };
    for (const auto& [text, flags, expected] : cases) {
        CCells cells{{Cell(text, flags)}};
        ConvertCells(cells, c_local);
        EXPECT_EQ(GenerateProfileText(cells, c_local), CStr(expected) + u"\r\n") << CStr(text).ToUtf8();
    }
}

TEST(ProfileText, CellsStandInTheirColumns)
{
    CCells cells = SampleTable();
    ConvertCells(cells, c_local);
    EXPECT_EQ(GenerateProfileText(cells, c_local),
              u";Height;;\r\nLine;Ra;R q;RSm\r\n;nm;nm;µm\r\n1;1,5;1,9;7\r\nMean;2,5;;\r\n");
}

TEST(ProfileText, GridIsCopiedInEachProfile)
{
    const CGrid grid = Files();
    CGrid selected = Files();
    selected.SelectAll();
    CMemoryClipboard clipboard;
    const std::tuple<SNumberProfile, const char16_t*> cases[] = {
        {SNumberProfile(), u"File\tRa\tRemark\r\n\tVORN\t\r\nUnit\tnm\t\r\n=a;b\t-1.5\t\r\nc\t\t\"+\"\r\n"},
        {c_local, u"File;Ra VORN;Remark\r\nUnit;nm;\r\n\"'=a;b\";-1,5;\r\nc;;\"\"\"+\"\"\"\r\n"},
        {c_machine, u"File,4287Ra,Remark\r\nUnit,m,\r\n=a;b,-5e-10,\r\nkey,,\"\"\"+\"\"\"\r\n"},
    };
    for (const auto& [profile, text] : cases) {
        ASSERT_TRUE(CopyGrids(nullptr, &grid, nullptr, false, profile, clipboard));
        EXPECT_EQ(clipboard.GetText(), text) << clipboard.GetText().ToUtf8();
        const bool isExact = profile.kind == ENumberProfile::Machine;
        EXPECT_EQ(clipboard.GetHtml().Contains(u"-5e-10"), isExact);
        ASSERT_TRUE(CopySelection(selected, false, true, profile, clipboard));
        EXPECT_EQ(clipboard.GetText() == text, profile.kind != ENumberProfile::Shown)
            << clipboard.GetText().ToUtf8();
        EXPECT_EQ(clipboard.GetHtml().Contains(u"4287Ra"), isExact);
    }
    CGrid summary(SCell::Summary);
    summary.AddRow({.name = u"File", .cells = {u"1.5"}});
    summary.AddRow({.name = u"Note", .cells = {u"@x"}});
    EXPECT_EQ(GenerateProfileText(&summary, nullptr, nullptr, false, c_local), u"File;1.5\r\nNote;'@x\r\n");
}

} // namespace CommonUI

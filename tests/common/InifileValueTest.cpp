#include "tests/common/InifileTesting.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>

using namespace CommonUI;
using namespace std::string_view_literals;

namespace
{

std::vector<CStr> UnusualTexts()
{
    std::vector<CStr> texts =
        CStr(u"| |\t| leading|trailing\t|a=b|=|[a]|]|; no comment|# none|'a'|\"|\"quoted\"|\"a\",\"b\"|"
             u"say \"a\"|\\|\\\"|C:\\data\\new\\x.pln|\"\\u0041|,|a,b,|1\r\n2\n3\r|\u0085\u2028\uFEFF|\uFEFF|"
             u"\u00FF\u00FE|\u00EF\u00BB\u00BF|\u00C3\u00A9|caf\u00E9 \u20AC \u0081|\u4E2D\u6587 \U0001F600|"
             u"\xD83D|\xDE00\xD83D")
            .Split(u"|");
    texts.insert(texts.end(), {CStr(u"a\0b\0"sv), CStr(3, u'\0'), CStr(1000, u'\u00E4')});
    return texts;
}

const std::vector<CStr> c_texts = UnusualTexts();

} // namespace

TEST(InifileValue, AnyTextIsValueKeyAndSectionInAnyEncoding)
{
    for (const std::string& file : c_emptyFiles) {
        CInifile ini = IniOf(file);
        for (const CStr& text : c_texts) {
            ini.SelectSection(text);
            for (const CStr& key : {CStr(u"text"), text + u".", u"." + text})
                ini.WriteText(key, text);
            ini.WriteTexts(u"list", {text, text});
            ini.WriteTexts(text, {text});
        }
        CInifile read = Reloaded(ini);
        EXPECT_EQ(read.GetBytes(), ini.GetBytes());
        EXPECT_EQ(read.GetSections().size(), c_texts.size());
        for (const CStr& text : c_texts) {
            read.SelectSection(text);
            for (const CStr& key : {CStr(u"text"), text + u".", u"." + text})
                EXPECT_EQ(read.ReadText(key), text) << text.ToUtf8();
            EXPECT_EQ(read.ReadTexts(u"list"), (std::vector<CStr>{text, text})) << text.ToUtf8();
            EXPECT_EQ(read.ReadTexts(text), std::vector<CStr>{text}) << text.ToUtf8();
        }
    }
}

TEST(InifileValue, ListsOfTexts)
{
    const std::vector<CStr> missing = {u"missing"};
    for (const std::vector<CStr>& list :
         {std::vector<CStr>{}, {u""}, {u"", u""}, {u"a", u"", u"b,"}, c_texts}) {
        CInifile ini;
        ini.WriteTexts(u"k", list);
        EXPECT_EQ(Reloaded(ini).ReadTexts(u"k", missing), list);
    }
    const std::pair<const char*, std::vector<CStr>> rows[] = {
        {"a, b ,c d", {u"a", u"b", u"c d"}},        {",", {u"", u""}}, {"a\"b\",c", {u"a\"b\"", u"c"}},
        {" \"a,b\" , c ", {u"a,b", u"c"}},          {"\"a", missing},  {"\"a\"b,c", missing},
        {"C:\\a,\"C:\\\\b\"", {u"C:\\a", u"C:\\b"}}};
    for (const auto& [stored, list] : rows) {
        const CDiagnosticsCapture diagnostics;
        EXPECT_EQ(IniOf(std::string("k=") + stored).ReadTexts(u"k", missing), list) << stored;
        EXPECT_EQ(diagnostics.GetCount(), list == missing ? 1 : 0) << stored;
    }
}

TEST(InifileValue, DoublesKeepTheirBits)
{
    constexpr double c_max = std::numeric_limits<double>::max();
    constexpr double c_infinity = std::numeric_limits<double>::infinity();
    const double strangeNaN = std::bit_cast<double>(0x7FF8000000000123);
    const std::vector<double> values = {0.0,   -0.0,        0.1,           1e22,      5e-324,
                                        c_max, -c_infinity, -std::nan(""), strangeNaN};
    const auto toBits = [](double value) { return std::bit_cast<std::uint64_t>(value); };
    CInifile ini;
    ini.WriteDoubles(u"all", values);
    ini.WriteDoubles(u"none", {});
    const std::vector<double> list = Reloaded(ini).ReadDoubles(u"all");
    EXPECT_TRUE(std::ranges::equal(list, values, {}, toBits, toBits)) << ini.GetBytes();
    EXPECT_TRUE(Reloaded(ini).ReadDoubles(u"none", {1}).empty());
    for (const double value : values) {
        ini.WriteDouble(u"one", value);
        EXPECT_EQ(toBits(Reloaded(ini).ReadDouble(u"one", 1)), toBits(value)) << value;
    }
}

TEST(InifileValue, StoredForms)
{
    CInifile ini;
    ini.WriteBool(u"b", true);
    ini.WriteInt(u"i", std::numeric_limits<int>::min());
    ini.WriteUnsigned(u"u", 4294967295u);
    ini.WriteColor(u"c", {255, 128, 0});
    ini.WriteRect(u"r", {-1, 2, 3, 4});
    ini.WriteSize(u"s", {640, 480});
    ini.WriteDoubles(u"d", {0.1, 1e300, std::nan("")});
    ini.WriteText(u"p", u"C:\\data\\new, 2\\x.pln");
    ini.WriteTexts(u"t", {u"C:\\new", u"a b", u"x,y", u""});
    ini.WriteText(u"e", u"\u0085\u009F\u00A0\u2028\u2029\u202A");
    EXPECT_EQ(ini.GetBytes(), "b=1\ni=-2147483648\nu=4294967295\nc=255,128,0\nr=-1,2,3,4\ns=640,480\n"
                              "d=0.1,1e+300,nan\np=C:\\data\\new, 2\\x.pln\nt=C:\\new,a b,\"x,y\",\"\"\n"
                              "e=\"\\u0085\\u009F\xC2\xA0\\u2028\\u2029\xE2\x80\xAA\"\n");
    EXPECT_EQ(ini.ReadInt(u"i", 0), std::numeric_limits<int>::min());
    EXPECT_EQ(ini.ReadUnsigned(u"u", 0), 4294967295u);
    EXPECT_EQ(ini.ReadColor(u"c", {}), (SColor{255, 128, 0}));
    EXPECT_EQ(ini.ReadRect(u"r", {}), (SRect{-1, 2, 3, 4}));
}

TEST(InifileValue, NumbersAsPeopleWriteThem)
{
    for (const char* yes : {"1", "true", "YES", "oN"})
        EXPECT_TRUE(IniOf(std::string("k=") + yes).ReadBool(u"k", false)) << yes;
    for (const char* no : {"0", "False", "no", "OFF"})
        EXPECT_FALSE(IniOf(std::string("k=") + no).ReadBool(u"k", true)) << no;
    EXPECT_EQ(IniOf("k = +5 ").ReadInt(u"k", 0), 5);
    EXPECT_EQ(IniOf("k = +1.5E3 ").ReadDouble(u"k", 0), 1500.0);
    EXPECT_EQ(IniOf("k = 1 , +2.5,-inf").ReadDoubles(u"k"),
              (std::vector<double>{1, 2.5, -std::numeric_limits<double>::infinity()}));
    EXPECT_EQ(IniOf("k = 1 , 2").ReadSize(u"k", {}), (SSize{1, 2}));
}

TEST(InifileValue, WhatIsNoneOfTheTypeGivesTheDefaultAndAWarning)
{
    const auto isBool = [](const CInifile& i) { return i.ReadBool(u"k", true); };
    const auto isUnsigned = [](const CInifile& i) { return i.ReadUnsigned(u"k", 42) == 42; };
    const auto isInt = [](const CInifile& i) { return i.ReadInt(u"k", 42) == 42; };
    const auto isDouble = [](const CInifile& i) { return i.ReadDouble(u"k", 42) == 42; };
    const auto isColor = [](const CInifile& i) { return i.ReadColor(u"k", {1, 2, 3}) == SColor{1, 2, 3}; };
    const auto isSize = [](const CInifile& i) { return i.ReadSize(u"k", {4, 2}) == SSize{4, 2}; };
    const auto isDoubles = [](const CInifile& i) { return i.ReadDoubles(u"k", {42}).at(0) == 42; };
    const std::pair<const char*, bool (*)(const CInifile&)> rows[] = {
        {"2", isBool},         {"", isBool},         {"-1", isUnsigned},  {"", isInt},
        {"1.0", isInt},        {"+-1", isInt},       {"++1", isInt},      {"2147483648", isInt},
        {"1,5", isDouble},     {"0x10", isDouble},   {"1e999", isDouble}, {"nan(1)", isDouble},
        {"nan(zz)", isDouble}, {"1,2,256", isColor}, {"1,2", isColor},    {"1,2,3,", isColor},
        {"1,2,3,4", isSize},   {"1,,2", isDoubles},  {",", isDoubles}};
    for (const auto& [stored, isDefault] : rows) {
        const CDiagnosticsCapture diagnostics;
        EXPECT_TRUE(isDefault(IniOf(std::string("k=") + stored))) << stored;
        EXPECT_EQ(diagnostics.GetCount(), 1) << stored;
        EXPECT_TRUE(isDefault(CInifile()) && diagnostics.GetCount() == 1) << stored;
    }
}

#include "tests/common/InifileTesting.h"

#include <functional>
#include <gtest/gtest.h>

using namespace CommonUI;

namespace
{

// UTF-16 with its mark.
std::string Wide(std::u16string_view text)
{
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : text)
        bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    return bytes;
}

// The same, big endian.
std::string Big(std::u16string_view text)
{
    std::string bytes = Wide(text);
    for (std::size_t i = 0; i < bytes.size(); i += 2)
        std::swap(bytes[i], bytes[i + 1]);
    return bytes;
}

using FEdit = std::function<void(CInifile&)>;

struct SEdit {
    const char* name;
    std::string before;
    std::vector<FEdit> edits;
    std::string after;
};

void WriteUnnamed(CInifile& ini)
{
    ini.SelectSection(u"");
    ini.WriteInt(u"m", 3);
}

FEdit Int(const char16_t* key, int value)
{
    return [=](CInifile& ini) { ini.WriteInt(key, value); };
}

FEdit Text(const char16_t* key, const char16_t* value)
{
    return [=](CInifile& ini) { ini.WriteText(key, value); };
}

FEdit Remove(const char16_t* key)
{
    return [=](CInifile& ini) { ini.RemoveKey(key); };
}

// The current section is "A".
const SEdit c_edits[] = {
    {"change", "[A]\n  k =  1 \t\r\nm=2\r\n", {Int(u"k", 7)}, "[A]\n  k =  7 \t\r\nm=2\r\n"},
    {"to nothing", "[A]\nk=1", {Text(u"k", u"")}, "[A]\nk="},
    {"from nothing", "[A]\nk= \n", {Text(u"k", u"x")}, "[A]\nk= x\n"},
    {"same value",
     "[A]\nk= 5.00\nb=Yes\nl= \"a\" , b\n",
     {[](CInifile& i) {
         i.WriteDouble(u"k", 5);
         i.WriteBool(u"b", true);
         i.WriteTexts(u"l", {u"a", u"b"});
     }},
     "[A]\nk= 5.00\nb=Yes\nl= \"a\" , b\n"},
    {"minus zero differs", "[A]\nk=0\n", {[](CInifile& i) { i.WriteDouble(u"k", -0.0); }}, "[A]\nk=-0\n"},
    {"first duplicate", "[A]\nk=1\nk=2\n", {Int(u"k", 3)}, "[A]\nk=3\nk=2\n"},
    {"new key",
     "[A]\r\nk=1\r\n\r\n; of B\r\n[B]\r\n",
     {Int(u"m", 2)},
     "[A]\r\nk=1\r\nm=2\r\n\r\n; of B\r\n[B]\r\n"},
    {"new key behind garbage", "[A]\nk=1\ngarbage\n\n", {Int(u"m", 2)}, "[A]\nk=1\ngarbage\nm=2\n\n"},
    {"new key in the last part", "[A]\n[B]\n[A]\n[C]\n", {Int(u"m", 2)}, "[A]\n[B]\n[A]\nm=2\n[C]\n"},
    {"new key without final line end", "[A]\r\nk=1\r\nl=2", {Int(u"m", 3)}, "[A]\r\nk=1\r\nl=2\r\nm=3\r\n"},
    {"new section", "x=1\r[B]\r; end", {Int(u"m", 3)}, "x=1\r[B]\r; end\r[A]\rm=3\r"},
    {"new unnamed key", "[A]\nk=1\n", {WriteUnnamed}, "m=3\n[A]\nk=1\n"},
    {"new unnamed key and the comment of a section",
     "\n; of A\n[A]\n",
     {WriteUnnamed},
     "m=3\n\n; of A\n[A]\n"},
    {"new unnamed key and the comment of the file",
     "\n; file\n\n; of A\n[A]\n",
     {WriteUnnamed},
     "\n; file\n\nm=3\n; of A\n[A]\n"},
    {"new unnamed key behind nothing but a comment",
     "; file\n\n; more",
     {WriteUnnamed},
     "; file\n\n; more\nm=3\n"},
    {"new file", "", {Int(u"m", 3)}, "[A]\nm=3\n"},
    {"UTF-16",
     Wide(u"[A]\r\nk=\xD800\r\n") + "x",
     {Text(u"m", u"\u00E4\xDC00")},
     Wide(u"[A]\r\nk=\xD800\r\nm=\"\u00E4\\uDC00\"\r\n") + "x"},
    {"big-endian UTF-16",
     Big(u"[A]\r\nk=\xD800\r\n") + "x",
     {Text(u"m", u"\u00E4\xDC00")},
     Big(u"[A]\r\nk=\xD800\r\nm=\"\u00E4\\uDC00\"\r\n") + "x"},
    {"Western", "[A]\nk=\xE9\n", {Text(u"m", u"\u20AC\u4E2D")}, "[A]\nk=\xE9\nm=\"\x80\\u4E2D\"\n"},
    {"marked UTF-8", "\xEF\xBB\xBF[A]\n", {Text(u"m", u"\u00E4")}, "\xEF\xBB\xBF[A]\nm=\xC3\xA4\n"},
    {"Western that would be read as UTF-8",
     "[A]\nk=\xE9\nm=\xC3\xA9\n",
     {Int(u"k", 1)},
     "\xEF\xBB\xBF[A]\nk=1\nm=\xC3\x83\xC2\xA9\n"},
    {"remove", "[A]\nk=1\n;c\nK=5\nk=2\n[A]\nk=3\n", {Remove(u"k")}, "[A]\n;c\nK=5\n[A]\n"},
    {"clear",
     "x=0\n[A]\nk=1\n;c\ngarbage\n[B]\nk=2\n[A]\nl=3",
     {[](CInifile& i) { i.ClearSection(); }},
     "x=0\n[A]\n;c\ngarbage\n[B]\nk=2\n[A]\n"},
    {"key with a blank at its end",
     "[A]\nSrw =1\n",
     {Int(u"Srw", 2), Remove(u"Srw  "), Int(u"Srw ", 3)},
     "[A]\nSrw =3\nSrw=2\n"},
    {"spaced key", "[A]\nKey = 1\nOther = 2\n", {Int(u"Key", 2), Remove(u"Other")}, "[A]\nKey = 2\n"},
    {"spaced key and one with a blank at its end",
     "[A]\nk = 3\n",
     {Int(u"k", 4), Int(u"k ", 5)},
     "[A]\nk = 4\nk =5\n"},
    {"remove what is read under the name",
     "[A]\nk =1\nk\t=2\nm = 3\n",
     {Remove(u"k"), Remove(u"m ")},
     "[A]\nk\t=2\n"},
    {"value with the quote that the name lacks",
     "[A]\n\"k = 1\n",
     {Text(u"\"k", u"a\"=b")},
     "[A]\n\"\\\"k\" = a\"=b\n"},
    {"value that leaves its blanks to a name with a blank",
     "[A]\nk =1 \n",
     {Text(u"k ", u"")},
     "[A]\n\"k \"= \n"},
    {"merge",
     "[A]\nk=1\n",
     {[](CInifile& i) { i.Merge(IniOf("u=0\n[A]\nk = 2\nk = 3\n;c\n[B]\nSrw ='x'\n\"=\"=a , \"b\"\n")); }},
     "u=0\n[A]\nk=2\n[B]\nSrw ='x'\n\"=\"=a , \"b\"\n"},
    {"merge from a wider encoding",
     "[A]\nk=\xE9\n",
     {[](CInifile& i) { i.Merge(IniOf("[A]\nm=\xE4\xB8\xAD,b\n")); }},
     "[A]\nk=\xC3\xA9\nm=\xE4\xB8\xAD,b\n"},
};

} // namespace

TEST(InifileFormat, ChangesKeepTheRest)
{
    for (const SEdit& row : c_edits) {
        CInifile ini = IniOf(row.before, u"A");
        for (const FEdit& edit : row.edits)
            edit(ini);
        EXPECT_EQ(ini.GetBytes(), row.after) << row.name;
    }
}

TEST(InifileFormat, Reading)
{
    const std::tuple<const char*, const char16_t*, const char16_t*> rows[] = {
        {"k=1", u"k", u"1"},
        {"  k  = \t a b\t ", u"k", u"a b"},
        {"k=1", u"K", u"(none)"},
        {"k=1", u"k ", u"(none)"},
        {"k =1", u"k", u"1"},
        {"k =1\nk=2", u"k", u"2"},
        {"k =1\nk=2", u"k ", u"1"},
        {"k  = 1\nk = 2", u"k", u"1"},
        {"k =1\nk  = 2", u"k", u"2"},
        {"k =1\nk = 2", u"k", u"2"},
        {"k = 1\nk =2", u"k ", u"2"},
        {"k = 1\nk=2", u"k", u"2"},
        {"k = 1", u"k ", u"1"},
        {"SdPercent _S_On=1", u"SdPercent _S_On", u"1"},
        {"k=1\nk=2\n[]\nk=3", u"k", u"1"},
        {"[B]\nk=1\n[]\nk=2", u"k", u"2"},
        {";k=1\n#k=1\n[k=1\n[k=1]", u"k", u"(none)"},
        {"[x] k=1\nk=2\n[] trailing\nk=3", u"k", u"3"},
        {"=1", u"", u"1"},
        {"\"a=b\" = 1", u"a=b", u"1"},
        {"\"a\\u00e4\\u263A\"=1", u"a\u00E4\u263A", u"1"},
        {"\"a=1", u"\"a", u"1"},
        {"\"a \"=1", u"a", u"(none)"},
        {"k=a ; b # c", u"k", u"a ; b # c"},
        {"k=C:\\new\\u0041.pln", u"k", u"C:\\new\\u0041.pln"},
        {"k=\"C:\\data\\\\n\\u12\"", u"k", u"C:\\data\\n\\u12"},
        {"k=\" a\\t\\\"b\\\" \"", u"k", u" a\t\"b\" "},
        {"k=\"a\" b", u"k", u"\"a\" b"},
        {"k=\"", u"k", u"\""},
        {"k=\"a\\\"", u"k", u"\"a\\\""},
        {"k=\x80\x9F\xE9", u"k", u"\u20AC\u0178\u00E9"},
    };
    for (const auto& [bytes, key, value] : rows) {
        const CInifile ini = IniOf(bytes);
        EXPECT_EQ(ini.ReadText(key, u"(none)"), value) << bytes;
        EXPECT_EQ(ini.HasKey(key), value != CStr(u"(none)")) << bytes;
    }
}

TEST(InifileFormat, NamesAreListedOnceAndInOrder)
{
    CInifile ini = IniOf("[B]\nx = 1\ny =1\nx = 2\nz=1\nz = 2\n[\"]\"]\n[A]\n[B]\nw=1\nx=3\n", u"B");
    EXPECT_EQ(ini.GetSections(), (std::vector<CStr>{u"B", u"]", u"A"}));
    EXPECT_EQ(ini.GetKeys(), (std::vector<CStr>{u"y ", u"z", u"w", u"x"}));
    EXPECT_EQ(IniOf("k = 1\n[A]\nx=1").GetSections(), (std::vector<CStr>{u"", u"A"}));
    EXPECT_EQ(IniOf("k = 1\n[A]\nx=1").GetKeys(), (std::vector<CStr>{u"k"}));
    ini.SelectSection(u"C");
    EXPECT_FALSE(ini.HasSection(u"C") || ini.HasSection(u""));
    EXPECT_TRUE(ini.HasSection(u"]"));
}

TEST(InifileFormat, ParsedLines)
{
    CInifile ini = IniOf("[B]\nk=1\n; end", u"C");
    for (const char16_t* line :
         {u"x=1", u"[A]", u"", u"; c", u"k = 5", u"k=6\r\nl=7\n", u"[B]", u"k=2", u"m=\xD800"})
        ini.ParseLine(line);
    EXPECT_EQ(ini.GetSection(), u"C");
    EXPECT_EQ(ini.GetBytes(),
              Wide(u"x=1\n[B]\nk=1\n; end\n[A]\n\n; c\nk = 5\nk=6\nl=7\n[B]\nk=2\nm=\xD800\n"));
    ini.SelectSection(u"B");
    EXPECT_EQ(std::tuple(ini.ReadInt(u"k", 0), ini.ReadText(u"m")), std::tuple(1, u"\xD800"));
}

TEST(InifileFormat, CopiesAreApart)
{
    CInifile ini = IniOf("[A]\nk=1\n", u"A");
    ini.SetFileName(u"x.ini");
    CInifile copy = ini;
    copy.WriteInt(u"k", 2);
    EXPECT_EQ(ini.ReadInt(u"k", 0), 1);
    CInifile moved = std::move(copy);
    EXPECT_EQ(std::tuple(moved.ReadInt(u"k", 0), moved.GetFileName()), std::tuple(2, u"x.ini"));
    copy.WriteInt(u"n", 1); // NOLINT: a moved-from document is an empty one
    EXPECT_EQ(copy.GetBytes(), "n=1\n");
}

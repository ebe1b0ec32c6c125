#include "tests/common/InifileTesting.h"

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

// Writes "key=value" and removes "-key", of which a text has several with ';' between them.
void Edit(CInifile& ini, const CStr& edits)
{
    for (const CStr& edit : edits.Split(u";")) {
        const std::size_t equals = edit.Find(u'=');
        if (edit.StartsWith(u"-"))
            ini.RemoveKey(edit.Mid(1));
        else
            ini.WriteText(edit.Left(equals), edit.Mid(equals + 1));
    }
}

struct SEdit {
    std::string before;
    CStr edits;
    std::string after;
    const char16_t* section = u"A";
};

const SEdit c_edits[] = {
    {"[A]\n  k =  1 \t\r\nm=2\r\n", u"k=7", "[A]\n  k =  7 \t\r\nm=2\r\n"},
    {"[A]\nk=1", u"k=", "[A]\nk="},
    {"[A]\nk= \n", u"k=x", "[A]\nk= x\n"},
    {"[A]\nk=1\nk=2\n", u"k=3", "[A]\nk=3\nk=2\n"},
    {"[A]\nk=1\n;c\nK=5\nk=2\n[A]\nk=3\n", u"-k", "[A]\n;c\nK=5\n[A]\n"},
    // new keys
    {"[A]\r\nk=1\r\n\r\n; of B\r\n[B]\r\n", u"m=2", "[A]\r\nk=1\r\nm=2\r\n\r\n; of B\r\n[B]\r\n"},
    {"[A]\nk=1\ngarbage\n\n", u"m=2", "[A]\nk=1\ngarbage\nm=2\n\n"},
    {"[A]\n[B]\n[A]\n[C]\n", u"m=2", "[A]\n[B]\n[A]\nm=2\n[C]\n"},
    {"[A]\r\nk=1\r\nl=2", u"m=3", "[A]\r\nk=1\r\nl=2\r\nm=3\r\n"},
    {"x=1\r[B]\r; end", u"m=3", "x=1\r[B]\r; end\r[A]\rm=3\r"},
    {"", u"m=3", "[A]\nm=3\n"},
    // of the unnamed section, which is above the comment of the first named one and below that of the file
    {"[A]\nk=1\n", u"m=3", "m=3\n[A]\nk=1\n", u""},
    {"\n; of A\n[A]\n", u"m=3", "m=3\n\n; of A\n[A]\n", u""},
    {"\n; file\n\n; of A\n[A]\n", u"m=3", "\n; file\n\nm=3\n; of A\n[A]\n", u""},
    {"; file\n\n; more", u"m=3", "; file\n\n; more\nm=3\n", u""},
    // encodings
    {Wide(u"[A]\r\nk=\xD800\r\n") + "x", u"m=\u00E4\xDC00",
     Wide(u"[A]\r\nk=\xD800\r\nm=\"\u00E4\\uDC00\"\r\n") + "x"},
    {Big(u"[A]\r\nk=\xD800\r\n") + "x", u"m=\u00E4\xDC00",
     Big(u"[A]\r\nk=\xD800\r\nm=\"\u00E4\\uDC00\"\r\n") + "x"},
    {"[A]\nk=\xE9\n", u"m=\u20AC\u4E2D", "[A]\nk=\xE9\nm=\"\x80\\u4E2D\"\n"},
    {"\xEF\xBB\xBF[A]\n", u"m=\u00E4", "\xEF\xBB\xBF[A]\nm=\xC3\xA4\n"},
    {"[A]\nk=\xE9\nm=\xC3\xA9\n", u"k=1", "\xEF\xBB\xBF[A]\nk=1\nm=\xC3\x83\xC2\xA9\n"}, // else it were UTF-8
    // names with blanks and quotes
    {"[A]\nSrw =1\n", u"Srw=2;-Srw  ;Srw =3", "[A]\nSrw =3\nSrw=2\n"},
    {"[A]\nKey = 1\nOther = 2\n", u"Key=2;-Other", "[A]\nKey = 2\n"},
    {"[A]\nk = 3\n", u"k=4;k =5", "[A]\nk = 4\nk =5\n"},
    {"[A]\nk =1\nk\t=2\nm = 3\n", u"-k;-m ", "[A]\nk\t=2\n"},
    {"[A]\n\"k = 1\n", u"\"k=a\"=b", "[A]\n\"\\\"k\" = a\"=b\n"},
    {"[A]\nk =1 \n", u"k =", "[A]\n\"k \"= \n"},
};

} // namespace

TEST(InifileFormat, ChangesKeepTheRest)
{
    for (const SEdit& row : c_edits) {
        CInifile ini = IniOf(row.before, row.section);
        Edit(ini, row.edits);
        EXPECT_EQ(ini.GetBytes(), row.after) << row.before;
    }
}

TEST(InifileFormat, ValuesAreNotWrittenAnewUnlessTheyDiffer)
{
    const std::string same = "i=07\nk= 5.00\nb=Yes\nl= \"a\" , b\n";
    CInifile ini = IniOf(same + "z=0\n");
    ini.WriteInt(u"i", 7);
    ini.WriteDouble(u"k", 5);
    ini.WriteBool(u"b", true);
    ini.WriteTexts(u"l", {u"a", u"b"});
    ini.WriteDouble(u"z", -0.0);
    EXPECT_EQ(ini.GetBytes(), same + "z=-0\n");
}

TEST(InifileFormat, ClearingASectionKeepsItsComments)
{
    CInifile ini = IniOf("x=0\n[A]\nk=1\n;c\ngarbage\n[B]\nk=2\n[A]\nl=3", u"A");
    ini.ClearSection();
    EXPECT_EQ(ini.GetBytes(), "x=0\n[A]\n;c\ngarbage\n[B]\nk=2\n[A]\n");
}

TEST(InifileFormat, MergingKeepsValuesAsTheyAreStored)
{
    CInifile ini = IniOf("[A]\nk=1\n");
    ini.Merge(IniOf("u=0\n[A]\nk = 2\nk = 3\n;c\n[B]\nSrw ='x'\n\"=\"=a , \"b\"\n"));
    EXPECT_EQ(ini.GetBytes(), "u=0\n[A]\nk=2\n[B]\nSrw ='x'\n\"=\"=a , \"b\"\n");
    CInifile western = IniOf("[A]\nk=\xE9\n");
    western.Merge(IniOf("[A]\nm=\xE4\xB8\xAD,b\n"));
    EXPECT_EQ(western.GetBytes(), "[A]\nk=\xC3\xA9\nm=\xE4\xB8\xAD,b\n")
        << "in an encoding that has all of it";
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

#include "common/Str.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <thread>
#include <unordered_set>

using namespace CommonUI;

namespace
{

// Texts around the length from which a text is shared instead of lying in the object.
std::vector<CStr> TextsOfCriticalLengths()
{
    std::vector<CStr> texts;
    for (const std::size_t length : {0u, 1u, 11u, 12u, 14u, 15u, 16u, 17u, 100u})
        texts.emplace_back(length, u'x');
    return texts;
}

} // namespace

TEST(Str, MalformedUtf8)
{
    const std::pair<std::string_view, std::u16string_view> rows[] = {
        {"", u""},
        {{"a\0b", 3}, {u"a\0b", 3}},
        {"\xEF\xBB\xBFz", u"\uFEFFz"},
        {"\xE2\x82\xE2\x82\xAC\xC2(", u"\uFFFD\u20ac\uFFFD("},
        {"a\xC2\xB5\xE2\x82\xAC\xF0\x9F\x98\x80z", u"a\u00b5\u20ac\U0001F600z"},
        {"\xF4\x8F\xBF\xBF\xEE\x80\x80\xED\x9F\xBF", u"\U0010FFFF\uE000\uD7FF"},
        {"a\xF1\x80\x80\xE1\x80\xC2z\x80z\x80\xBF", u"a\uFFFD\uFFFD\uFFFDz\uFFFDz\uFFFD\uFFFD"}};
    for (const auto& [bytes, text] : rows)
        EXPECT_EQ(CStr::FromUtf8(bytes), text) << testing::PrintToString(bytes);
    // No sequence, overlong, surrogates, beyond U+10FFFF: every byte is replaced.
    for (const std::string bytes :
         {"\x80", "\xBF\xBF", "\xFE\xFF", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF",
          "\xED\xA0\x80", "\xED\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80"})
        EXPECT_EQ(CStr::FromUtf8(bytes + "z"), CStr(bytes.size(), u'\uFFFD') + u"z");
    for (const std::string cut : {"\xC2", "\xE2\x82", "\xF0\x9F\x98"}) {
        EXPECT_EQ(CStr::FromUtf8(cut), u"\uFFFD");
        EXPECT_EQ(CStr::FromUtf8(cut + "z"), u"\uFFFDz");
    }
}

// Blocks of ASCII are converted at once: what is none stands at each place of them, alone and in a row.
TEST(Str, Utf8AtEveryPlaceOfABlock)
{
    const std::pair<std::string, std::u16string> pieces[] = {{"\xC3\xA9", u"é"},
                                                             {"\xE2\x82\xAC", u"€"},
                                                             {"\xEA\xB0\x80\xED\x9F\xBF", u"\uAC00\uD7FF"},
                                                             {"\xF0\x9F\x98\x80", u"😀"},
                                                             {"\xC2\x80\xDF\xBF", u"\u0080\u07FF"},
                                                             {"\xE0\xA0\x80\xEF\xBF\xBF", u"\u0800\uFFFF"},
                                                             {"\xFF", u"\uFFFD"},
                                                             {"\xE2\x82", u"\uFFFD"},
                                                             {"\xC3", u"\uFFFD"}};
    for (const auto& [bytes, units] : pieces) {
        const bool isWellFormed = units != u"\uFFFD";
        for (const std::size_t length : {0U, 1U, 7U, 8U, 9U, 40U, 130U, 1030U}) {
            for (std::size_t at = 0; at <= length; at += at < 140 ? 1 : 97) {
                for (const std::size_t times : {1U, 3U, 600U}) {
                    std::string from(at, 'a');
                    std::u16string text(at, u'a');
                    for (std::size_t i = 0; i < times; ++i) {
                        from += bytes;
                        text += units;
                    }
                    from.append(length - at, 'b');
                    text.append(length - at, u'b');
                    ASSERT_EQ(CStr::FromUtf8(from), text)
                        << testing::PrintToString(bytes) << at << ' ' << times;
                    if (isWellFormed) {
                        ASSERT_EQ(CStr(text).ToUtf8(), from) << at << ' ' << times;
                    }
                }
            }
        }
    }
}

TEST(Str, LoneSurrogatesLeaveAsReplacements)
{
    const std::pair<std::u16string, std::string_view> rows[] = {
        {u"\u007f\u0080\u07ff\u0800\uffff\U00010000\U0010ffff",
         "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
        {{u'a', char16_t(0xD800)}, "a\xEF\xBF\xBD"},
        {{char16_t(0xDC00), u'z'}, "\xEF\xBF\xBDz"},
        {{char16_t(0xDBFF), char16_t(0xD83D), char16_t(0xDE00)}, "\xEF\xBF\xBD\xF0\x9F\x98\x80"},
        {{char16_t(0xDC00), char16_t(0xD800)}, "\xEF\xBF\xBD\xEF\xBF\xBD"},
    };
    for (const auto& [text, bytes] : rows)
        EXPECT_EQ(CStr(text).ToUtf8(), bytes);
}

TEST(Str, AsciiBytesKeepTheirNumbers)
{
    CStr text = CStr::FromAscii("\x7F\x80\xFF");
    EXPECT_EQ(text, u"\u007f\u0080\u00ff");
    text.AppendAscii("").AppendAscii("abcdefghijklmnop");
    EXPECT_EQ(text, u"\u007f\u0080\u00ffabcdefghijklmnop");
}

TEST(Str, CopiesAreIndependent)
{
    for (const CStr& original : TextsOfCriticalLengths()) {
        const std::u16string expected(original.View());
        CStr changed = original;
        changed += u'y';
        CStr reserved = original;
        reserved.Reserve(200);
        EXPECT_EQ(reserved, expected);
        const char16_t* const place = reserved.data();
        reserved += std::u16string(200 - expected.size(), u'z');
        EXPECT_EQ(reserved.data(), place);
        EXPECT_EQ(std::tuple(changed, original), std::tuple(expected + u'y', expected));
        CStr cleared = original;
        cleared.Clear();
        EXPECT_TRUE(cleared.IsEmpty());
        EXPECT_EQ(original, expected);
    }
}

TEST(Str, MovedFromIsEmptyAndUsable)
{
    for (CStr& text : TextsOfCriticalLengths()) {
        const CStr expected = text;
        CStr moved = std::move(text);
        EXPECT_EQ(moved, expected);
        EXPECT_TRUE(text.IsEmpty());
        text += u"again";
        EXPECT_EQ(text, u"again");
        text = std::move(moved);
        EXPECT_EQ(text, expected);
        EXPECT_TRUE(moved.IsEmpty());
        CStr& self = text;
        text = std::move(self);
        text = self;
        text.Swap(self);
        EXPECT_EQ(text, expected);
    }
}

TEST(Str, AppendsPartsOfItself)
{
    for (const CStr& original : TextsOfCriticalLengths()) {
        const std::u16string plain(original.View());
        CStr text = original;
        text += text;
        EXPECT_EQ(text, plain + plain);
        text += text.View().substr(text.GetLength() / 2);
        EXPECT_EQ(text, plain + plain + plain);
        CStr alone(plain);
        for (int i = 0; i < 5; ++i)
            alone += alone.View();
        EXPECT_EQ(alone, CStr(32 * plain.size(), u'x'));
    }
}

TEST(Str, SharedBufferInTwoThreads)
{
    const CStr original(50, u'x');
    const auto work = [copy = original]() mutable {
        for (int i = 0; i < 1000; ++i) {
            CStr changed = copy;
            changed += u'y';
            copy = changed.Left(50);
        }
        EXPECT_EQ(copy, CStr(50, u'x'));
    };
    std::thread first(work), second(work);
    first.join();
    second.join();
    EXPECT_EQ(original, CStr(50, u'x'));
}

TEST(Str, SplitAndReplace)
{
    // with "ab" for the delimiter
    const std::tuple<const char16_t*, const char16_t*, std::vector<CStr>, const char16_t*> rows[] = {
        {u"", u",", {u""}, u""},         {u"aaa", u"aa", {u"", u"a"}, u"aba"},
        {u"a", u"abc", {u"a"}, u"a"},    {u"a::b:c", u"::", {u"a", u"b:c"}, u"aabb:c"},
        {u",", u",", {u"", u""}, u"ab"}, {u"a,b,,c,", u",", {u"a", u"b", u"", u"c", u""}, u"aabbababcab"},
        {u"abc", u"", {u"abc"}, u"abc"}};
    for (const auto& [text, delimiter, pieces, replaced] : rows) {
        EXPECT_EQ(CStr(text).Split(delimiter), pieces) << ToUtf8(text);
        EXPECT_EQ(CStr(text).Replace(delimiter, u"ab"), replaced) << ToUtf8(text);
    }
    EXPECT_EQ(CStr(u"a--b").Replace(u"-", u""), u"ab");
}

TEST(Str, Trim)
{
    const std::tuple<CStr, const char16_t*, const char16_t*> rows[] = {
        {u"", u"", u""},
        {u" \t\n\v\f\r", u"", u""},
        {u" \r\na\t b\v ", u"a\t b\v ", u" \r\na\t b"},
        {u"\u00a0a\u2003", u"\u00a0a\u2003", u"\u00a0a\u2003"}};
    for (const auto& [text, left, right] : rows) {
        EXPECT_TRUE(text.TrimLeft() == left && text.TrimRight() == right) << text.ToUtf8();
        EXPECT_EQ(text.Trim(), CStr(left).TrimRight());
    }
}

TEST(Str, FindsAndCuts)
{
    const CStr text(u"abcabc");
    const std::size_t npos = CStr::npos;
    EXPECT_TRUE(text.Find(u"bc") == 1 && text.Find(u"bc", 2) == 4);
    EXPECT_TRUE(text.Find(u'c', 6) == npos && text.Find(u"a", 100) == npos);
    EXPECT_TRUE(text.ReverseFind(u"ab") == 3 && text.ReverseFind(u'x') == npos);
    EXPECT_EQ(text.FindOneOf(u"xcb", 2), 2u);
    EXPECT_TRUE(text.StartsWith(u"") && text.StartsWith(u"abca") && !text.StartsWith(u"abcabca"));
    EXPECT_TRUE(text.EndsWith(u"abc") && !text.EndsWith(u"ab") && text.Contains(u"ca"));
    EXPECT_TRUE(text.Mid(4) == u"bc" && text.Mid(1, 2) == u"bc" && text.Right(2) == u"bc");
    EXPECT_TRUE(text.Mid(6).IsEmpty() && text.Mid(npos, npos).IsEmpty());
    EXPECT_TRUE(text.Left(100) == text && text.Right(100) == text);
}

TEST(Str, OrdersByCodeUnits)
{
    const CStr sorted[] = {u"", u"A", u"AA", u"Z", u"a", u"a ", u"\u00e4", u"\U0001F600", u"\uFF21"};
    EXPECT_TRUE(std::is_sorted(std::begin(sorted), std::end(sorted)));
    for (const CStr& a : sorted)
        for (const CStr& b : sorted)
            EXPECT_TRUE((a == b) == (&a == &b) && (a < b) == (&a < &b) && (a > b.View()) == (&a > &b));
    EXPECT_TRUE(sorted[1] < u"B" && u"B" > sorted[1] && sorted[1] == std::u16string(u"A"));
    const std::map<CStr, int, std::less<>> map{{u"key", 1}};
    EXPECT_TRUE(map.contains(std::u16string_view(u"key")));
    EXPECT_TRUE(std::unordered_set<CStr>({CStr(20, u'x')}).contains(CStr(20, u'x')));
}

TEST(Str, UnitsAreAppendedAndComparedAtEveryPlace)
{
    CStr text;
    std::u16string expected;
    for (char16_t unit = u'\u0100'; unit < u'\u0130'; ++unit) {
        const CStr before = text;
        text += unit;
        expected += unit;
        ASSERT_EQ(text, expected);
        ASSERT_EQ(before, std::u16string_view(expected).substr(0, expected.size() - 1)) << "shared before";
        ASSERT_LT(before, text);
        for (std::size_t at = 0; at < expected.size(); ++at) {
            // The greater unit has the lower byte that is less.
            std::u16string other = expected;
            other[at] = u'\u0200';
            ASSERT_LT(text, other) << at;
            ASSERT_GT(CStr(other), text) << at;
            ASSERT_FALSE(text == other) << at;
        }
    }
}

TEST(Str, Concatenates)
{
    const CStr a(u"a");
    EXPECT_EQ(a + a + u"b" + u'c' + std::u16string(u"d") + std::u16string_view(u"e"), u"aabcde");
    EXPECT_TRUE(u"x" + a == u"xa" && std::u16string_view(u"y") + a == u"ya" && a == u"a");
}

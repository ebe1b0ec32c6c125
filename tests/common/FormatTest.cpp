#include "common/Str.h"

#include "tests/common/CommaLocale.h"

#include <climits>
#include <limits>

using namespace CommonUI;

namespace
{

using Format = CCommaLocaleTest;

enum class EColour : unsigned char { Red = 200 };

} // namespace

TEST_F(Format, Texts)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const std::pair<CStr, std::u16string_view> rows[] = {
        {CStr::Format(u"plain \u00b5m"), u"plain \u00b5m"},
        {CStr::Format(u"100%%, %5%|%d", 1), u"100%, %|1"},
        {CStr::Format(u"%d/%i/%ld", 1, -2, 3L), u"1/-2/3"},
        {CStr::Format(u"[%5d|%-5d|%05d|%+d|% d|%.3d]", 42, 42, 42, 42, 42, 42),
         u"[   42|42   |00042|+42| 42|042]"},
        {CStr::Format(u"%u %x %X %#x %o", 7u, 255u, 255u, 255u, 8u), u"7 ff FF 0xff 10"},
        {CStr::Format(u"%u %x %llu", -1, static_cast<short>(-1), -1LL),
         u"4294967295 ffff 18446744073709551615"},
        {CStr::Format(u"%I64d %hhd %zu %d", LLONG_MIN, 5, sizeof(char), EColour::Red),
         u"-9223372036854775808 5 1 200"},
        {CStr::Format(u"%lf|%6.2f|%G|%.3e|%.2f", 1.5, -2.345, 1e-7, 12345.678, 0.25f),
         u"1.500000| -2.35|1E-07|1.235e+04|0.25"},
        {CStr::Format(u"%*d|%-*d|%*d|", 4, 1, 4, 2, -4, 3), u"   1|2   |3   |"},
        {CStr::Format(u"%.*f|%*.*f|%.*f", 1, 2.55, 6, 2, 3.14159, -1, 0.5), u"2.5|  3.14|0.500000"},
        {CStr::Format(u"%c%c%c", u'\u00b5', 'm', 65), u"\u00b5mA"},
        {CStr::Format(u"[%3c|%-3c|%c]", u'x', u'y', static_cast<char>(0xB5)), u"[  x|y  |\u00b5]"},
        {CStr::Format(u"[%s|%6s|%-6s|%.2s|%5.1s|%.0s]", u"abc", u"abc", u"abc", u"abc", u"abc", u"abc"),
         u"[abc|   abc|abc   |ab|    a|]"},
        {CStr::Format(u"%s %s %ls %s", CStr(u"a"), "\xC2\xB5", std::u16string(u"c"), std::string("d")),
         u"a \u00b5 c d"},
        {CStr::Format(u"%.1s|%.2s|%.3s", u"\U0001F600b", u"\U0001F600b", u"\U0001F600b"),
         u"|\U0001F600|\U0001F600b"},
        {CStr::Format(u"%s", static_cast<const char16_t*>(nullptr)), u"(null)"},
        // conversions and arguments that do not fit
        {CStr::Format(u"%d %5d %x %d", 2.9, -2.9, 255.9, infinity), u"2    -2 ff inf"},
        {CStr::Format(u"%f %G", 3, 4u), u"3.000000 4"},
        {CStr::Format(u"%s %.1s %5s %-5s|", 12345, 12345, 7u, -7), u"12345 12345     7 -7   |"},
        {CStr::Format(u"%s %s %6s %c", 0.1, 1e23, 2.5, 2.5), u"0.1 1e+23    2.5 2.5"},
        {CStr::Format(u"%d|%6.1f|%-4x|", u"none", u"none", "no"), u"none|  none|no  |"},
        {CStr::Format(u"%s %c %*d|", u'x', u"text", u"7", 1), u"x text 1|"},
        {CStr::Format(u"%*d|%.*f", 1.9, 1, -0.5, 0.25), u"1|0"},
        {CStr::Format(u"%d %d %s", 1), u"1 %d %s"},
        {CStr::Format(u"%-8.3lf"), u"%-8.3lf"},
        {CStr::Format(u"%*d %d", 5), u"%*d %d"},
        {CStr::Format(u"%d", 1, 2, u"surplus"), u"1"},
        {CStr::Format(u"%n %p %q %5y %a %d", 1), u"%n %p %q %5y %a 1"},
        {CStr::Format(u"50% |%", 1), u"50% |%"},
        {CStr::Format(u"%-", 1) + CStr::Format(u"%5.", 1) + CStr::Format(u"%ll", 1), u"%-%5.%ll"},
        {CStr::Format(u"%\u0164", 1), u"%\u0164"},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(text, expected) << text.ToUtf8();
}

TEST_F(Format, SizesAreLimited)
{
    EXPECT_EQ(CStr::Format(u"%2000000000d", 1).GetLength(), 65535u);
    EXPECT_EQ(CStr::Format(u"%*s", INT_MIN, u"x").GetLength(), 65535u);
    EXPECT_EQ(CStr::Format(u"%-*d", ULLONG_MAX, 1).GetLength(), 65535u);
    EXPECT_EQ(CStr::Format(u"%.*f", LLONG_MAX, 0.5).GetLength(), 65537u);
    EXPECT_EQ(CStr::Format(u"%*d", std::numeric_limits<double>::quiet_NaN(), 1), u"1");
    EXPECT_EQ(CStr::Format(u"%.99999999999999999999d", 0).GetLength(), 65535u);
}

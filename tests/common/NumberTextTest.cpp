#include "common/NumberText.h"
#include "common/Exceptions.h"

#include "tests/common/CommaLocale.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <random>

using namespace CommonUI;

namespace
{

constexpr double c_infinity = std::numeric_limits<double>::infinity();
constexpr double c_max = std::numeric_limits<double>::max();
constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();

// Doubles of all kinds, with many on and beside the points where rounding decides.
class CValues
{
public:
    double Next()
    {
        double value = Magnitude();
        const int steps = static_cast<int>(Below(5)) - 2;
        for (int i = 0; i < std::abs(steps); ++i)
            value = std::nextafter(value, steps < 0 ? -c_infinity : c_infinity);
        return Below(4) == 0 ? -value : value;
    }

    std::uint64_t Below(std::uint64_t limit) { return m_random() % limit; }
    std::uint64_t Bits() { return m_random(); }

private:
    double Magnitude()
    {
        switch (Below(6)) {
        case 0:
            return std::fabs(std::bit_cast<double>(m_random()));
        case 1: // a tie, or next to one: k + 1/2 in units of a power of ten or of two
            return (static_cast<double>(Below(1000000)) + 0.5) * PowerOf10(Below(20), -14);
        case 2:
            return std::ldexp(static_cast<double>(Below(1 << 20)), -static_cast<int>(Below(30)));
        case 3:
            return PowerOf10(Below(617), -308) - (Below(2) == 0 ? 5e-6 : 0);
        case 4:
            return std::bit_cast<double>(m_random() >> (12 + Below(52)));
        default:
            return std::exp(std::uniform_real_distribution(-27.6, 27.6)(m_random));
        }
    }

    static double PowerOf10(std::uint64_t step, int first)
    {
        return std::strtod(("1e" + std::to_string(first + static_cast<int>(step))).c_str(), nullptr);
    }

    std::mt19937_64 m_random{20240229};
};

// The C library's texts are exact there. Others differ in the last digits, and sign what has no sign.
#if defined(__GLIBC__)
#define COMMONUI_EXACT_PRINTF
#endif

#ifdef COMMONUI_EXACT_PRINTF
std::string RandomFormat(CValues& random, std::string_view letters)
{
    std::string format = "%";
    const bool usual = random.Below(2) == 0; // a width and a precision, as in result tables
    for (const char flag : {'-', '+', ' ', '0', '#'})
        if (!usual && random.Below(3) == 0)
            format += flag;
    if (random.Below(2) == 0)
        format += std::to_string(1 + random.Below(random.Below(8) == 0 ? 400 : 24));
    if (random.Below(4) != 0)
        format.append(".").append(std::to_string(random.Below(random.Below(16) == 0 ? 1200 : 24)));
    return format + letters[random.Below(letters.size())];
}

SNumberFormat Parsed(const std::string& format)
{
    SNumberFormat result;
    EXPECT_TRUE(ParseNumberFormat(CStr::FromAscii(format), result)) << format;
    return result;
}

// Comparisons with the C library in one test: a second's worth, or 100 times that when asked for.
long long Comparisons()
{
    return std::getenv("COMMONUI_EXHAUSTIVE") ? 100'000'000 : 1'000'000;
}

#endif

class NumberText : public CCommaLocaleTest
{
protected:
    template<class T>
    void Compare(const std::string& format, const SNumberFormat& parsed, T value)
    {
        const std::string_view expected = Reference(format, value);
        const CNumberText text(value, parsed);
        ++m_compared;
        if (text.View() != expected && !LostZeros(parsed, static_cast<double>(value), expected, text.View()))
            ADD_FAILURE() << format << " of " << std::hexfloat << value << ": " << text.View()
                          << " instead of " << expected;
    }

    // Some C libraries drop the zeros that '#' keeps where rounding carries a number to the power of ten at
    // which %g turns scientific: "1.e+06" of 999999.5 under "%#g". The right text is that of %e.
    static bool LostZeros(SNumberFormat format, double value, std::string_view reference,
                          std::string_view text)
    {
        const bool general = format.conversion == 'g' || format.conversion == 'G';
        if (!general || !format.alternate ||
            reference.find(format.conversion == 'g' ? "1.e" : "1.E") == reference.npos)
            return false;
        format.precision = (format.precision < 0 ? 6 : format.precision) - 1;
        format.conversion = format.conversion == 'g' ? 'e' : 'E';
        return text == CNumberText(value, format).View();
    }

    void TearDown() override
    {
        RecordProperty("compared", std::to_string(m_compared));
        CCommaLocaleTest::TearDown();
    }

    long long m_compared = 0;
};

} // namespace

#ifdef COMMONUI_EXACT_PRINTF
TEST_F(NumberText, SpecialValuesInEveryFormat)
{
    const double values[] = {0.0,     -0.0,     c_infinity, -c_infinity, c_nan,        -c_nan, 5e-324,
                             c_max,   0.5,      1.5,        2.5,         0.125,        9.5,    9.9995,
                             99999.5, 999999.5, 0.00001,    0.0001,      9.9999999e-5, 1e5,    1e22,
                             1e23,    0x1p53,   0x1p64,     0x1p63};
    for (const char* flags : {"", "-", "+", " ", "0", "#", "-0", "+0", "#0", "+ #"})
        for (const char* size :
             {"", "1", "12", "40", "400", ".", ".0", ".1", ".17", ".18", ".40", "9.3", ".1100"})
            for (const char letter : std::string("fFeEgG")) {
                const std::string format = std::string("%") + flags + size + letter;
                const SNumberFormat parsed = Parsed(format);
                for (const double value : values)
                    Compare(format, parsed, value);
            }
}

TEST_F(NumberText, RandomFormatsOfManyValues)
{
    CValues values;
    while (m_compared < Comparisons() && !HasFailure()) {
        const std::string format = RandomFormat(values, "fFeEgG");
        const SNumberFormat parsed = Parsed(format);
        for (int i = 0; i < 20; ++i)
            Compare(format, parsed, values.Next());
    }
}

TEST_F(NumberText, RandomFormatsOfIntegers)
{
    CValues values;
    while (m_compared < Comparisons() / 10 && !HasFailure()) {
        std::string format = RandomFormat(values, "diuxXo");
        const SNumberFormat parsed = Parsed(format);
        format.insert(format.size() - 1, "ll");
        const std::uint64_t bits = values.Below(16) == 0 ? 0 : values.Bits() >> values.Below(64);
        Compare(format, parsed, static_cast<long long>(bits));
        Compare(format, parsed, -static_cast<long long>(bits >> 1));
        if (parsed.conversion != 'd')
            Compare(format, parsed, static_cast<unsigned long long>(bits));
    }
}
#endif

TEST_F(NumberText, ConversionOfTheOtherKind)
{
    const std::tuple<const char16_t*, double, std::string_view> rows[] = {
        {u"%d", 2.9, "2"},     {u"%05d", -1e3, "-1000"},
        {u"%d", -0.5, "0"},    {u"%X", c_infinity, "inf"},
        {u"%d", -2.9, "-2"},   {u"%d", -c_infinity, "-inf"},
        {u"%x", 255.5, "ff"},  {u"%d", 1e20, "100000000000000000000"},
        {u"%u", c_nan, "nan"}, {u"%d", 9223372036854775808.0, "9223372036854775808"}};
    for (const auto& [formatText, value, text] : rows) {
        SNumberFormat format;
        ASSERT_TRUE(ParseNumberFormat(formatText, format));
        EXPECT_EQ(CNumberText(value, format).View(), text);
    }
    EXPECT_EQ(CNumberText(-3, SNumberFormat()).View(), "-3.000000");
    EXPECT_THROW(CNumberText(1.5, {.conversion = 's'}), EInternal);
    EXPECT_THROW(CNumberText(1, {.conversion = 'i'}), EInternal);
    EXPECT_EQ(CNumberText(3u, {.conversion = 'G', .width = 4}).View(), "   3");
}

TEST(NumberFormat, ExactlyOneConversion)
{
    for (const auto text : {u"%d", u"%f", u"%G", u"%6.3f", u"%-+ #08.3lf", u"%lld", u"%.f", u"%I64d", u"%hhx",
                            u"%i", u"%Lg", u"%8u"}) {
        SNumberFormat format;
        EXPECT_TRUE(ParseNumberFormat(text, format)) << ToUtf8(text);
    }
    for (const auto text : {u"",   u"%",    u"f",     u" %f",     u"%f ",  u"%f%f",     u"%%",     u"%s",
                            u"%c", u"%n",   u"%p",    u"%a",      u"%*d",  u"%.*f",     u"%5",     u"%.3",
                            u"%-", u"%lu%", u"%.-3f", u"%5.3.2f", u"%d\n", u"%\u0664f", u"%\u0166"}) {
        SNumberFormat format{.conversion = 'e', .width = 7};
        EXPECT_FALSE(ParseNumberFormat(text, format)) << ToUtf8(text);
        EXPECT_EQ(std::pair(format.conversion, format.width), std::pair('e', 7));
    }
}

using NumberReading = CCommaLocaleTest;

TEST_F(NumberReading, Doubles)
{
    const std::pair<CStr, double> good[] = {
        {u"0.1000000000000000055511151231257827021181583404541015625", 0.1},
        {CStr(400, u'9'), c_infinity},
        {u"0." + CStr(400, u'0') + u"1", 0},
        {u"0", 0},
        {u"+1.5", 1.5},
        {u"1e309", c_infinity},
        {u"5.", 5},
        {u"1e-400", 0},
        {u"-INFINITY", -c_infinity},
        {u"007", 7},
        {u"1e+05", 1e5},
        {u"0.00001e400", c_infinity},
        {u".5", 0.5},
        {u"0e999999", 0},
        {u" \t1.8823e-008\r\n", 1.8823e-8},
        {u"-0", -0.0},
        {u"inf", c_infinity},
        {u"-1e-99999999999999999999", -0.0},
        {u"1E5", 1e5},
        {u"4.9e-324", 5e-324},
        {u"-1e99999999999999999999", -c_infinity}};
    for (const auto& [text, expectedValue] : good) {
        double value = 42;
        EXPECT_TRUE(ParseDouble(text, value)) << text.ToUtf8();
        EXPECT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(expectedValue))
            << text.ToUtf8();
    }
    for (const auto text : {u"nan", u"NaN", u"-nan(ind)"}) {
        double value = 42;
        EXPECT_TRUE(ParseDouble(text, value) && std::isnan(value));
    }
    for (const auto text :
         {u"",    u" ",   u"+",   u"-",  u".",    u"e5",    u"1,5",    u"1.5x",    u"1 2",      u"+-1",
          u"-+1", u"--1", u"++1", u"1e", u"0x10", u"1.2.3", u"\u0661", u"1\u00b2", u"\u0131nf", u"infinit"}) {
        double value = 42;
        EXPECT_FALSE(ParseDouble(text, value)) << ToUtf8(text);
        EXPECT_EQ(value, 42) << ToUtf8(text);
    }
}

TEST_F(NumberReading, Integers)
{
    const std::pair<std::u16string_view, long long> good[] = {
        {u"0", 0},       {u"9223372036854775807", std::numeric_limits<long long>::max()},
        {u" +17\n", 17}, {u"-9223372036854775808", std::numeric_limits<long long>::min()},
        {u"-0012", -12},
    };
    for (const auto& [text, expectedValue] : good) {
        long long value = 42;
        EXPECT_TRUE(ParseInteger(text, value)) << ToUtf8(text);
        EXPECT_EQ(value, expectedValue);
    }
    for (const auto text :
         {u"", u"-", u"1.0", u"1e3", u"0x1", u"+-1", u"9223372036854775808", u"1 2", u"\u0131"}) {
        long long value = 42;
        EXPECT_FALSE(ParseInteger(text, value)) << ToUtf8(text);
        EXPECT_EQ(value, 42);
    }
}

TEST_F(NumberReading, ShortestTextReadsBack)
{
    EXPECT_EQ(ShortestText(0.1), u"0.1");
    EXPECT_EQ(ShortestText(1e23), u"1e+23");
    EXPECT_EQ(ShortestText(-c_infinity), u"-inf");
    EXPECT_EQ(ShortestText(-c_nan), u"nan");
    CValues values;
    for (int i = 0; i < 50000; ++i) {
        const double value = values.Next();
        double back = 42;
        ASSERT_TRUE(ParseDouble(ShortestText(value), back));
        if (std::isnan(value))
            ASSERT_TRUE(std::isnan(back));
        else
            ASSERT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(value));
    }
}

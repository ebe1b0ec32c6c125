#include "output/NumberFormat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace CommonUI;
using EFormat = CParameter::EFormatSpecifier;

namespace
{

constexpr double c_infinity = std::numeric_limits<double>::infinity();

/// What printf makes of the value, cleaned if the format is an exponent form.
CStr Expected(double value, const char16_t* format)
{
    CStr expected = CStr::Format(format, value);
    if (!CStr(format).EndsWith(u"G"))
        return expected;
    for (const char16_t* zero : {u"E+0", u"E-0"}) {
        while (expected.Contains(zero))
            expected = expected.Replace(zero, CStr(zero).Left(2));
    }
    return expected.TrimLeft();
}

} // namespace

TEST(ResultValue, FollowsItsTableInEveryDecade)
{
    // For each digit count the formats of the decades below 0.1, from 0.1, from 1, and so on; the last one
    // stays.
    const std::vector<const char16_t*> six = {u"%10.8G", u"%8.6f", u"%8.5f", u"%8.4f", u"%8.3f",
                                              u"%8.2f",  u"%8.1f", u"%7.0f", u"%10.6G"};
    const std::vector<const char16_t*> eight = {u"%10.8G", u"%10.8f", u"%10.7f", u"%10.6f",
                                                u"%10.5f", u"%10.4f", u"%10.3f", u"%10.2f",
                                                u"%10.1f", u"%9.0f",  u"%10.6G"};
    const struct {
        int digits;
        std::vector<const char16_t*> formats;
    } rows[] = {
        {1, {u"%3.1G", u"%3.1G", u"%3.0f", u"%3.0f", u"%3.0f", u"%4.0f", u"%5.0f", u"%4.1G"}},
        {2, {u"%4.2G", u"%4.2G", u"%4.1f", u"%4.0f", u"%4.0f", u"%4.0f", u"%5.0f", u"%4.2G"}},
        {3, {u"%5.3G", u"%5.3G", u"%5.2f", u"%5.1f", u"%5.0f", u"%5.0f", u"%5.0f", u"%5.3G"}},
        {4, {u"%6.4G", u"%6.4f", u"%6.3f", u"%6.2f", u"%6.1f", u"%6.0f", u"%6.4G"}},
        {5, {u"%7.5G", u"%7.5f", u"%7.4f", u"%7.3f", u"%7.2f", u"%7.1f", u"%6.0f", u"%7.5G"}},
        {6, six},
        {-1, six},
        {7,
         {u"%10.7G", u"%9.7f", u"%9.6f", u"%9.5f", u"%9.4f", u"%9.3f", u"%9.2f", u"%9.1f", u"%8.0f",
          u"%10.6G"}},
        {8, eight},
        {12, eight},
    };
    const double decades[] = {0.1, 1, 10, 100, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8};
    for (const auto& row : rows) {
        const auto expectAt = [&row](double magnitude, std::size_t decade) {
            const char16_t* format = row.formats[std::min(decade, row.formats.size() - 1)];
            for (const double value : {magnitude, -magnitude})
                EXPECT_EQ(FormatResultValue(value, row.digits, false), Expected(value, format))
                    << value << " with " << row.digits << " digits";
        };
        for (std::size_t i = 0; i < std::size(decades); ++i) {
            expectAt(std::nextafter(decades[i], 0), i);
            expectAt(decades[i], i + 1);
            expectAt(decades[i] * 3.14159265358979, i + 1);
        }
        expectAt(1.2345678e-300, 0);
        expectAt(9.87654321e34, 10);
    }
}

TEST(ResultValue, ExceptionsComeBeforeTheTable)
{
    const struct {
        double value;
        int digits;
        bool integer;
        const char16_t* text;
    } cases[] = {
        {std::nan(""), 5, true, u""},
        {c_infinity, 4, false, u"INF"},
        {-c_infinity, 4, false, u"-INF"},
        {2e35, 4, true, u"INF"},
        {double{1.7e35F}, 4, false, u"INF"},
        {std::nextafter(double{1.7e35F}, 0), 4, false, u"1.7E+35"},
        {-2e35, 4, false, u"-2E+35"},
        {-2e37, 4, false, u"-INF"},
        {double{-1.7e37F}, 4, false, u"-INF"},
        {std::nextafter(double{-1.7e37F}, 0), 4, false, u"-1.7E+37"},
        {12, 4, true, u"12"},
        {12, 4, false, u" 12.00"},
        {-32766, 4, true, u"-32766"},
        {32767, 4, true, u"3.277E+4"},
        {40000, 4, true, u"4E+4"},
        {12.5, 4, true, u" 12.50"},
        {0, 5, true, u"0"},
        {-0.0, 5, true, u"0"},
        {0, 0, false, u"0.0"},
        {0, 2, false, u"0.0"},
        {0, 3, false, u"0.000"},
        {-0.0, 4, false, u"0.0000"},
        {0, 5, false, u"0.00000"},
        {0, 6, false, u"0.000000"},
        {0, 7, false, u"0.0000000"},
        {0, 8, false, u"0.00000000"},
        {0, 9, false, u"0.0"},
        {0, -3, false, u"0.0"},
        {1e-6, 0, false, u"1E-6"},
        {1e-5, 0, false, u"1E-5"},
        {1.1e-5, 0, false, u"0"},
        {-0.6, 0, false, u"-1"},
        {123456789, 0, false, u"123456789"},
        {3.14159, 4, false, u" 3.142"},
        {12345.6, 4, false, u"1.235E+4"},
        {250000, 3, false, u"2.5E+5"},
        {1e-10, 4, false, u"1E-10"},
        {1e-5, 4, false, u"1E-5"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(FormatResultValue(row.value, row.digits, row.integer), row.text)
            << row.value << ", " << row.digits << ": "
            << FormatResultValue(row.value, row.digits, row.integer).ToUtf8();
}

TEST(ParameterFormat, GivesTheFormatAndTheTextOfAValue)
{
    const struct {
        CParameter::SFormatSpecifier format;
        const char16_t* printf;
        double value;
        const char16_t* text;
        const char16_t* words;
    } cases[] = {
        {{EFormat::FormatDecimals, 5}, u"%.5lf", 3.141592653589793, u"3.14159", u"5 Decimals"},
        {{EFormat::FormatDecimals, 0}, u"%.0lf", 2.5, u"2", u"0 Decimals"},
        {{EFormat::FormatDigits, 5}, u"%.5lG", 3.141592653589793e-6, u"3.1416E-06", u"5 Digits"},
        {{EFormat::FormatDigits, 12}, u"%.12lG", 0.1, u"0.1", u"12 Digits"},
        {{EFormat::FormatInteger, 5}, u"%d", 2.5, u"3", u"5 Integer"},
        {{EFormat::FormatInteger, 5}, u"%d", -0.2, u"0", u"5 Integer"},
        {{EFormat::FormatInteger, 5}, u"%d", 1e15, u"1000000000000000", u"5 Integer"},
        {{EFormat::FormatDecimals, 1}, u"%.1lf", -0.0, u"0.0", u"1 Decimals"},
        {{EFormat::FormatDecimals, -5}, u"%.-5lf", 2.5, u"2", u"-5 Decimals"},
        {{static_cast<EFormat>(7), 5}, u"%lf", 0.5, u"0.500000", u"5 "},
        {{EFormat::FormatDigits, 5}, u"%.5lG", std::nan(""), u"", u"5 Digits"},
        {{EFormat::FormatInteger, 5}, u"%d", c_infinity, u"INF", u"5 Integer"},
        {{EFormat::FormatDecimals, 5}, u"%.5lf", -c_infinity, u"-INF", u"5 Decimals"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(GetFormatString(row.format), row.printf);
        EXPECT_EQ(FormatParameterValue(row.value, row.format), row.text)
            << FormatParameterValue(row.value, row.format).ToUtf8();
        EXPECT_EQ(GenerateNumberFormatText(row.format), row.words);
    }
}

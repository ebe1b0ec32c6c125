#include "output/results/NumberFormat.h"

#include "tests/TestData.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace CommonUI;
using EFormat = CParameter::EFormatSpecifier;

namespace
{

// What printf makes of the value, cleaned if the format is an exponent form.
CStr Expected(double value, const CStr& format)
{
    CStr expected = CStr::Format(format, value);
    if (!format.EndsWith(u"G"))
        return expected;
    for (const char16_t* zero : {u"E+0", u"E-0"}) {
        while (expected.Contains(zero))
            expected = expected.Replace(zero, CStr(zero).Left(2));
    }
    return expected.TrimLeft();
}

} // namespace

// A line of the record names a digit count and its formats for the decades below 0.1, from 0.1, from 1, and
// so on; the last one stays.
TEST(ResultValue, FollowsItsTableInEveryDecade)
{
    const double decades[] = {0.1, 1, 10, 100, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8};
    for (const std::string& row : ReadTestLines("result-formats.txt")) {
        const std::vector<std::string> cells = SplitText(row, '|');
        const auto expectAt = [&cells](double magnitude, std::size_t decade) {
            const CStr format = CStr::FromUtf8(cells[std::min(decade + 1, cells.size() - 1)]);
            for (const double value : {magnitude, -magnitude})
                EXPECT_EQ(FormatResultValue(value, std::stoi(cells[0]), false), Expected(value, format))
                    << value << " with " << cells[0] << " digits";
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

// A line of the record: value, digits, whether integers are shown as such, text.
TEST(ResultValue, ExceptionsComeBeforeTheTable)
{
    for (const std::string& row : ReadTestLines("result-values.txt")) {
        const std::vector<std::string> cells = SplitText(row + '|', '|');
        const CStr text = FormatResultValue(std::stod(cells[0]), std::stoi(cells[1]), cells[2] == "integer");
        EXPECT_EQ(text.ToUtf8(), cells[3]) << row;
    }
}

// A line of the record: kind of format and count, as printf has it, value, its text, what people read of it.
TEST(ParameterFormat, GivesTheFormatAndTheTextOfAValue)
{
    for (const std::string& row : ReadTestLines("parameter-formats.txt")) {
        const std::vector<std::string> cells = SplitText(row, '|');
        const CParameter::SFormatSpecifier format{EFormat{std::stoi(cells[0])}, std::stoi(cells[1])};
        EXPECT_EQ(GetFormatString(format).ToUtf8(), cells[2]) << row;
        EXPECT_EQ(FormatParameterValue(std::stod(cells[3]), format).ToUtf8(), cells[4]) << row;
        EXPECT_EQ(GenerateNumberFormatText(format).ToUtf8(), cells[5]) << row;
    }
}

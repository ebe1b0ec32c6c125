#include "common/Format.h"
#include "common/NumberText.h"
#include "common/Str.h"
#include "common/Unit.h"
#include "tests/fuzz/FuzzBytes.h"
#include "tests/fuzz/Targets.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

using namespace CommonUI;

namespace
{

// The format as the C library knows it, for a number of 64 bits.
std::string Directive(const SNumberFormat& format, std::string_view length)
{
    std::string text = "%";
    for (const auto& [flag, isOn] : {std::pair{'-', format.leftAlign},
                                     {'+', format.plusSign},
                                     {' ', format.blankSign},
                                     {'0', format.zeroPad},
                                     {'#', format.alternate}})
        if (isOn)
            text += flag;
    text += std::to_string(format.width);
    if (format.precision >= 0)
        text += "." + std::to_string(format.precision);
    return text.append(length) + format.conversion;
}

#pragma GCC diagnostic ignored "-Wformat-nonliteral"
template<class T>
std::string Printed(const std::string& directive, T value)
{
    std::array<char, 5000> buffer{};
    const int count = std::snprintf(buffer.data(), buffer.size(), directive.c_str(), value);
    return {buffer.data(), static_cast<std::size_t>(count)};
}

bool IsUnsigned(char conversion)
{
    return std::string_view("uxXo").find(conversion) != std::string_view::npos;
}

} // namespace

// A format that is accepted prints as the C library does. That of other machines has other digits.
void Fuzz::RunNumberFormat(std::string_view bytes)
{
    CFuzzBytes input(bytes);
    const auto real = input.Number<double>();
    const auto integer = input.Number<long long>();
    const CStr text = CStr::FromUtf8(input.Rest());
    SNumberFormat format;
    if (!ParseNumberFormat(text, format) || format.width > 2000 || format.precision > 2000)
        return;
#if defined(__GLIBC__)
    if (format.conversion == 'd')
        Expect(CNumberText(integer, format).View() == Printed(Directive(format, "ll"), integer),
               "as printf, %d");
    else if (IsUnsigned(format.conversion))
        Expect(CNumberText(integer, format).View() == Printed(Directive(format, "ll"), integer),
               "as printf, %x");
    else
        Expect(CNumberText(real, format).View() == Printed(Directive(format, ""), real), "as printf, %f");
#endif
    Expect(CStr::Format(text, real) == CStr::FromAscii(CNumberText(real, format).View()),
           "Format does the same");
}

// A text that is a number is the one that the C library reads, and each number comes back from its text.
void Fuzz::RunNumberText(std::string_view bytes)
{
    const auto number = CFuzzBytes(bytes).Number<double>();
    double back = 0;
    Expect(ParseDouble(ShortestText(number), back), "the shortest text is a number");
    Expect(IsSame(back, number), "the shortest text gives the number back");
    Expect(ShortestText(number).GetLength() <= 24, "the shortest text is short");

    const CStr text = CStr::FromUtf8(bytes);
    if (ParseDouble(text, back)) {
        const std::string narrow = text.Trim().ToUtf8();
        char* end = nullptr;
        const double read = std::strtod(narrow.c_str(), &end);
        Expect(end == narrow.c_str() + narrow.size(), "the C library reads all of it, too");
        Expect(IsSame(read, back), "and gives the same number");
    }
    long long integer = 0;
    if (ParseInteger(text, integer))
        Expect(ParseInteger(CStr::Format(u"%d", integer), integer), "an integer comes back from its text");
    CUnit unit;
    if (CUnit::ParseLength(text, unit)) {
        CUnit again;
        Expect(CUnit::ParseLength(unit.GetText(), again) && again == unit, "a unit comes back from its text");
    }
}

// Any text is a format for any arguments: nothing is read that is not there.
void Fuzz::RunTextFormat(std::string_view bytes)
{
    CFuzzBytes input(bytes);
    const auto real = input.Number<double>();
    const auto integer = input.Number<int>();
    const CStr text = CFuzzBytes::Units(input.Piece());
    const CStr format = CStr::FromUtf8(input.Rest());
    for (const CStr& one : {CStr::Format(format), CStr::Format(format, integer, text, real),
                            CStr::Format(format, text, real, integer, real, text)})
        Expect(format.Contains(u"%") || one == format, "a format without a directive is the text");
    Expect(CStr::FromUtf8(format.ToUtf8()) == format, "a text comes back from UTF-8");
    const std::vector<CStr> pieces = format.Split(u"%");
    CStr joined = pieces[0];
    for (std::size_t i = 1; i < pieces.size(); ++i)
        joined += u"%" + pieces[i];
    Expect(joined == format, "the pieces of a text make the text again");
}

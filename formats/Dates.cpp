#include "formats/detail/Dates.h"

#include <charconv>
#include <chrono>
#include <cstddef>

namespace CommonUI::Formats
{

namespace
{

// The number of some digits; -1 where something else is among them.
int ReadDigits(std::string_view text, std::size_t first, std::size_t count)
{
    const std::string_view digits = text.substr(first, count);
    if (digits.size() != count || digits.find_first_not_of("0123456789") != digits.npos)
        return -1;
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

bool IsTime(int year, int month, int day, int hour, int minute)
{
    const std::chrono::year_month_day date{std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    return year > 0 && date.ok() && hour >= 0 && hour < 24 && minute >= 0 && minute < 60;
}

} // namespace

std::string DateOfSdf(std::string_view text)
{
    constexpr std::size_t c_size = 12;
    if (text.size() != c_size ||
        !IsTime(ReadDigits(text, 4, 4), ReadDigits(text, 2, 2), ReadDigits(text, 0, 2),
                ReadDigits(text, 8, 2), ReadDigits(text, 10, 2)))
        return {};
    const auto part = [text](std::size_t first, std::size_t count) {
        return std::string(text.substr(first, count));
    };
    return part(4, 4) + "-" + part(2, 2) + "-" + part(0, 2) + "T" + part(8, 2) + ":" + part(10, 2);
}

std::string DateOfXml(std::string_view text)
{
    constexpr std::size_t c_least = 16; // without seconds
    constexpr std::size_t c_most = 35;  // with nine digits of a second and a zone
    constexpr std::string_view c_form = "0000-00-00T00:00";
    const bool isLong = text.size() >= c_least && text.size() <= c_most;
    if (!isLong || text.find_first_not_of("0123456789:.+-Z", c_least) != text.npos)
        return {};
    for (std::size_t i = 0; i < c_least; ++i) {
        if (c_form[i] != '0' && text[i] != c_form[i])
            return {};
    }
    const bool isTime = IsTime(ReadDigits(text, 0, 4), ReadDigits(text, 5, 2), ReadDigits(text, 8, 2),
                               ReadDigits(text, 11, 2), ReadDigits(text, 14, 2));
    return isTime ? std::string(text) : std::string();
}

} // namespace CommonUI::Formats

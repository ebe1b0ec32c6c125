#include "formats/detail/BinaryHeights.h"
#include "formats/detail/Dates.h"
#include "formats/detail/Writers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>

namespace CommonUI::Formats
{

namespace
{

constexpr std::string_view c_maker = "CommonUI";
constexpr int c_doubles = 7;               // the data type
constexpr double c_unknownResolution = -1; // of the heights

// Day, month, year, hour and minute, without separators; in UTC.
std::string DateText(std::chrono::sys_seconds time)
{
    const auto days = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(days);
    const std::chrono::hh_mm_ss clock(time - days);
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), "%02u%02u%04d%02d%02d", static_cast<unsigned>(date.day()),
                  static_cast<unsigned>(date.month()), static_cast<int>(date.year()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()));
    return text.data();
}

// The date that the surface has from its file, or the time of writing.
std::string CreationText(const Analysis::SSurface& surface, std::chrono::sys_seconds time)
{
    const std::string date = DateOfXml(surface.date);
    if (date.empty())
        return DateText(time);
    const auto part = [&date](std::size_t first, std::size_t count) { return date.substr(first, count); };
    return part(8, 2) + part(5, 2) + part(0, 4) + part(11, 2) + part(14, 2);
}

void AppendEntry(std::string& text, std::string_view key, std::string_view value)
{
    text.append(key).append(" = ").append(value).append("\r\n");
}

void AppendEntry(std::string& text, std::string_view key, double value)
{
    std::string number;
    AppendNumber(number, value);
    AppendEntry(text, key, number);
}

std::uint16_t ToCount(std::size_t count)
{
    if (count > std::numeric_limits<std::uint16_t>::max())
        throw EWriteError("the binary form holds lines of 65535 points, and as many lines, at the most");
    return static_cast<std::uint16_t>(count);
}

} // namespace

std::string WriteSdf(const Analysis::SSurface& surface, std::chrono::sys_seconds time)
{
    constexpr std::size_t c_usualLength = 24; // of a height
    std::string text = "aISO-1.0\r\n";
    text.reserve(c_usualLength * surface.heights.size());
    AppendEntry(text, "ManufacID", c_maker);
    AppendEntry(text, "CreateDate", CreationText(surface, time));
    AppendEntry(text, "ModDate", DateText(time));
    AppendEntry(text, "NumPoints", std::to_string(surface.points));
    AppendEntry(text, "NumProfiles", std::to_string(surface.lines));
    AppendEntry(text, "Xscale", surface.dx);
    AppendEntry(text, "Yscale", surface.dy);
    AppendEntry(text, "Zscale", 1.0);
    AppendEntry(text, "Zresolution", c_unknownResolution);
    AppendEntry(text, "Compression", "0");
    AppendEntry(text, "DataType", std::to_string(c_doubles));
    AppendEntry(text, "CheckType", "0");
    text += "*\r\n";
    for (const double height : surface.heights) {
        if (std::isnan(height))
            text += "BAD";
        else
            AppendNumber(text, height);
        text += "\r\n";
    }
    return text += "*\r\n";
}

std::string WriteBinarySdf(const Analysis::SSurface& surface, std::chrono::sys_seconds time)
{
    constexpr std::size_t c_headerSize = 81;
    constexpr std::size_t c_makerSize = 10;
    std::string bytes = "bISO-1.0";
    bytes.reserve(c_headerSize + sizeof(double) * surface.heights.size());
    bytes.append(c_maker).append(c_makerSize - c_maker.size(), ' ');
    bytes.append(CreationText(surface, time)).append(DateText(time));
    AppendLittle(bytes, ToCount(surface.points));
    AppendLittle(bytes, ToCount(surface.lines));
    AppendLittle(bytes, surface.dx);
    AppendLittle(bytes, surface.dy);
    AppendLittle(bytes, 1.0);
    AppendLittle(bytes, c_unknownResolution);
    bytes.append({'\0', static_cast<char>(c_doubles), '\0'});
    for (const double height : surface.heights)
        AppendLittle(bytes, height);
    return bytes;
}

} // namespace CommonUI::Formats

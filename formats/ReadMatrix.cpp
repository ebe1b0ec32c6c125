#include "formats/detail/LengthUnit.h"
#include "formats/detail/Readers.h"

#include <algorithm>
#include <optional>

namespace CommonUI::Formats
{

namespace
{

struct SHeader {
    std::string channel;
    double width = 0;
    double height = 0;
    double scale = 0;
};

double ReadUnit(const CTextScanner& scanner, std::string_view text)
{
    const std::optional<double> metres = FindLengthUnit(text);
    if (!metres)
        scanner.Fail(text.data(), "a unit of length expected, not " + Quote(text));
    return *metres;
}

double ReadLength(const CTextScanner& scanner, std::string_view text)
{
    const std::size_t numberEnd = std::min(text.find_first_not_of("+-.,0123456789eE"), text.size());
    double number = 0;
    if (!ParseNumber(Trim(text.substr(0, numberEnd)), number))
        scanner.Fail(text.data(), "a length such as '10.00 um' expected, not " + Quote(text));
    const double length = number * ReadUnit(scanner, Trim(text.substr(numberEnd)));
    if (!IsPlausibleLength(length))
        scanner.Fail(text.data(), "a length from 1e-18 m to 1e9 m expected, not " + Quote(text));
    return length;
}

void TakeEntry(const CTextScanner& scanner, std::string_view key, std::string_view value, SHeader& header)
{
    if (EqualsNoCase(key, "Channel"))
        header.channel = ToUtf8(value);
    else if (EqualsNoCase(key, "Width"))
        header.width = ReadLength(scanner, value);
    else if (EqualsNoCase(key, "Height"))
        header.height = ReadLength(scanner, value);
    else if (EqualsNoCase(key, "Value units"))
        header.scale = ReadUnit(scanner, value);
}

SHeader ReadHeader(CTextScanner& scanner)
{
    SHeader header;
    while (scanner.Peek() == '#') {
        const std::string_view line = scanner.ReadLine().substr(1);
        if (const std::size_t colon = line.find(':'); colon != line.npos)
            TakeEntry(scanner, Trim(line.substr(0, colon)), Trim(line.substr(colon + 1)), header);
    }
    const auto require = [&](double value, const char* key) {
        if (value == 0)
            scanner.Fail(scanner.GetPosition(), std::string("the header ends without ") + key);
    };
    require(header.width, "Width");
    require(header.height, "Height");
    require(header.scale, "Value units");
    return header;
}

// Appends the numbers of the line; the scanner then stands at its end.
std::size_t ReadRow(CTextScanner& scanner, double scale, std::vector<double>& heights)
{
    const std::size_t before = heights.size();
    for (scanner.SkipBlanks(); !scanner.IsAtEnd() && scanner.Peek() != '\n'; scanner.SkipBlanks())
        heights.push_back(scanner.ReadHeight(scale));
    return heights.size() - before;
}

void ReadRows(CTextScanner& scanner, double scale, Analysis::SSurface& surface)
{
    const std::size_t bytes = scanner.GetRemaining();
    for (; !scanner.IsAtEnd(); scanner.SkipByte()) {
        const std::size_t points = ReadRow(scanner, scale, surface.heights);
        if (surface.points == 0 && points != 0) {
            surface.points = points;
            surface.heights.reserve(points * (bytes / (bytes - scanner.GetRemaining()) + 1));
        }
        if (points != 0 && points != surface.points)
            scanner.Fail(scanner.GetPosition(), std::to_string(points) + " values in a row, " +
                                                    std::to_string(surface.points) + " in the first");
        surface.lines += points != 0;
        if (scanner.IsAtEnd())
            return;
    }
}

} // namespace

Analysis::SSurface ReadMatrix(CTextScanner& scanner)
{
    const SHeader header = ReadHeader(scanner);
    Analysis::SSurface surface;
    ReadRows(scanner, header.scale, surface);
    if (surface.lines == 0)
        scanner.Fail(scanner.GetPosition(), "no values after the header");
    surface.channel = header.channel;
    surface.dx = header.width / static_cast<double>(surface.points);
    surface.dy = header.height / static_cast<double>(surface.lines);
    return surface;
}

} // namespace CommonUI::Formats

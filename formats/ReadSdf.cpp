#include "formats/detail/Dates.h"
#include "formats/detail/Readers.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace CommonUI::Formats
{

namespace
{

struct SHeader {
    std::uint32_t points = 0;
    std::uint32_t lines = 0;
    double dx = 0;
    double dy = 0;
    double scale = 0;
    bool hasNoLineSpacing = false; // it is given as 0, as for a profile
    std::string date{};
};

std::uint32_t ReadCount(const CTextScanner& scanner, std::string_view text)
{
    std::uint32_t count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error != std::errc() || end != text.data() + text.size() || count == 0)
        scanner.Fail(text.data(), "a number of points from 1 to 4294967295 expected, not " + Quote(text));
    return count;
}

double ReadScale(const CTextScanner& scanner, std::string_view text)
{
    double scale = 0;
    if (!ParseNumber(text, scale) || !IsPlausibleLength(scale))
        scanner.Fail(text.data(), "a scale from 1e-18 m to 1e9 m expected, not " + Quote(text));
    return scale;
}

template<class T>
void SetOnce(const CTextScanner& scanner, std::string_view key, T& field, T value)
{
    if (field != T{})
        scanner.Fail(key.data(), "the second line for " + Quote(key));
    field = value;
}

void TakeLineSpacing(const CTextScanner& scanner, std::string_view key, std::string_view value,
                     SHeader& header)
{
    double spacing = 0;
    if (ParseNumber(value, spacing) && spacing == 0)
        SetOnce(scanner, key, header.hasNoLineSpacing, true);
    else
        SetOnce(scanner, key, header.dy, ReadScale(scanner, value));
}

void TakeEntry(const CTextScanner& scanner, std::string_view key, std::string_view value, SHeader& header)
{
    if (EqualsNoCase(key, "NumPoints"))
        SetOnce(scanner, key, header.points, ReadCount(scanner, value));
    else if (EqualsNoCase(key, "NumProfiles"))
        SetOnce(scanner, key, header.lines, ReadCount(scanner, value));
    else if (EqualsNoCase(key, "Xscale"))
        SetOnce(scanner, key, header.dx, ReadScale(scanner, value));
    else if (EqualsNoCase(key, "Yscale"))
        TakeLineSpacing(scanner, key, value, header);
    else if (EqualsNoCase(key, "Zscale"))
        SetOnce(scanner, key, header.scale, ReadScale(scanner, value));
    else if (EqualsNoCase(key, "CreateDate"))
        header.date = DateOfSdf(value);
    else if (EqualsNoCase(key, "Compression") && value != "0")
        scanner.Fail(value.data(), "compressed data is not supported");
}

void CheckComplete(const CTextScanner& scanner, std::string_view lastLine, const SHeader& header)
{
    const auto require = [&](bool isGiven, const char* key) {
        if (!isGiven)
            scanner.Fail(lastLine.data(), std::string("the header ends without ") + key);
    };
    require(header.points != 0, "NumPoints");
    require(header.lines != 0, "NumProfiles");
    require(header.dx != 0, "Xscale");
    require(header.dy != 0 || (header.hasNoLineSpacing && header.lines == 1), "Yscale above 0");
    require(header.scale != 0, "Zscale");
}

SHeader ReadHeader(CTextScanner& scanner)
{
    SHeader header;
    scanner.ReadLine();
    while (!scanner.IsAtEnd()) {
        const std::string_view line = scanner.ReadLine();
        if (line == "*") {
            CheckComplete(scanner, line, header);
            return header;
        }
        const std::size_t equals = line.find('=');
        if (equals != line.npos)
            TakeEntry(scanner, Trim(line.substr(0, equals)), Trim(line.substr(equals + 1)), header);
        else if (!line.empty())
            scanner.Fail(line.data(),
                         "'Key = value' or the '*' after the header expected, not " + Quote(line));
    }
    scanner.Fail(scanner.GetPosition(), "the file ends within its header");
}

} // namespace

Analysis::SSurface ReadSdf(CTextScanner& scanner)
{
    const SHeader header = ReadHeader(scanner);
    Analysis::SSurface surface{.points = header.points,
                               .lines = header.lines,
                               .dx = header.dx,
                               .dy = header.dy != 0 ? header.dy : header.dx,
                               .date = header.date};
    const std::uint64_t promised = std::uint64_t{header.points} * header.lines;
    const std::string promise = std::to_string(promised) + " values promised, ";

    // A value takes two bytes at least: never reserve more than the file can hold.
    surface.heights.reserve(
        static_cast<std::size_t>(std::min<std::uint64_t>(promised, scanner.GetRemaining() / 2)));
    for (std::uint64_t found = 0;; ++found) {
        scanner.SkipSpace();
        const bool isEnd = scanner.IsAtEnd() || scanner.Peek() == '*';
        if (found == promised && isEnd)
            break;
        if (found == promised)
            scanner.Fail(scanner.GetPosition(), promise + "more found");
        if (isEnd)
            scanner.Fail(scanner.GetPosition(), promise + "only " + std::to_string(found) + " found");
        surface.heights.push_back(scanner.ReadHeight(header.scale));
    }
    if (scanner.IsAtEnd())
        scanner.Fail(scanner.GetPosition(), "the '*' after the values is missing");
    return surface;
}

} // namespace CommonUI::Formats
